#include "app/toolbar_row.h"

#include "app/command_actions.h"
#include "app/commands.h"

#include <QAction>
#include <QHBoxLayout>

#include <array>

namespace {

constexpr std::array kCommands = {CCommandId::SelectFiles,
                                  CCommandId::UdsSpecification,
                                  kSeparator,
                                  CCommandId::SaveBmp,
                                  CCommandId::SaveWmf,
                                  CCommandId::SaveHtml,
                                  CCommandId::SaveUds,
                                  CCommandId::SaveAscii,
                                  CCommandId::Print,
                                  CCommandId::PrintDirect,
                                  kSeparator,
                                  CCommandId::Copy,
                                  CCommandId::CopyData,
                                  kSeparator,
                                  CCommandId::CorridorSize,
                                  CCommandId::CriticalValues,
                                  kSeparator,
                                  CCommandId::About};

constexpr QSize kIconSize{20, 20};  // pixels
constexpr int kPaneGap = 4;         // pixels between the buttons and the pane
/// Qt's name for the button that offers the buttons that do not fit.
constexpr const char* kMoreButton = "qt_toolbar_ext_button";

}  // namespace

CToolbarRow::CToolbarRow(QWidget* pane, QWidget* parent) : QToolBar(tr("Toolbar"), parent) {
    setObjectName(QStringLiteral("toolbarRow"));
    setMovable(false);
    setFloatable(false);
    layout()->setContentsMargins(0, 0, 0, 0);

    auto* const row = new QWidget(this);
    row->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    // Not a toolbar of the window itself: those expand over their neighbors when they are short of room.
    m_buttons = new QToolBar(tr("Toolbar"), row);
    m_buttons->setObjectName(QStringLiteral("toolbar"));
    m_buttons->setAccessibleName(tr("Toolbar"));
    m_buttons->setIconSize(kIconSize);
    m_buttons->setContextMenuPolicy(Qt::CustomContextMenu);
    if (auto* const more = m_buttons->findChild<QWidget*>(QLatin1String(kMoreButton))) {
        more->setAccessibleName(tr("More buttons"));
    }
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kPaneGap);
    layout->addWidget(m_buttons, 1);
    layout->addWidget(pane, 0, Qt::AlignRight | Qt::AlignVCenter);
    addWidget(row);
}

QList<QAction*> CToolbarRow::OfferedActions(const CCommandActions& actions) {
    QList<QAction*> offered;
    for (const CCommandId id : kCommands) {
        if (id != kSeparator) offered.append(actions.Find(id));
    }
    return offered;
}

void CToolbarRow::ShowCommands(const CCommandActions& actions, const QStringList& hidden) {
    m_buttons->clear();
    bool isSeparatorDue = false;  // added only before a button: an empty group has no separators
    for (const CCommandId id : kCommands) {
        if (id == kSeparator) {
            isSeparatorDue = !m_buttons->actions().isEmpty();
            continue;
        }
        QAction* const action = actions.Find(id);
        if (hidden.contains(action->objectName())) continue;
        if (isSeparatorDue) m_buttons->addSeparator();
        isSeparatorDue = false;
        m_buttons->addAction(action);
    }
    m_buttons->addSeparator();
    m_buttons->addAction(actions.Find(CCommandId::Customize));
}
