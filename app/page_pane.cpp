#include "app/page_pane.h"

#include "app/control_ids.h"
#include "compare/plots/page_table.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QSignalBlocker>

#include <cstdint>
#include <span>

namespace {

constexpr int kMargin = 2;

}  // namespace

CDialogPane::CDialogPane(QWidget* parent) : QFrame(parent), m_pages(new QComboBox(this)) {
    setObjectName(QStringLiteral("pagePane"));
    setProperty("controlId", kPaneId);
    setFixedSize(kWidth, kHeight);
    m_pages->setObjectName(QStringLiteral("pageSelector"));
    m_pages->setProperty("controlId", kPagesId);
    m_pages->setAccessibleName(tr("Plot Type"));
    m_pages->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_pages->setMaximumHeight(kHeight);
    m_pages->setMaxVisibleItems(static_cast<int>(PageTable().size()));

    auto* const label = new QLabel(tr("Plot Type:"), this);
    label->setBuddy(m_pages);
    label->setToolTip(tr("Choose the page to show (Alt+Y)"));
    // Not by "&" in the label, whose text is settled.
    auto* const shortcut = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Y), this);
    connect(shortcut, &QShortcut::activated, this, [this] { m_pages->setFocus(Qt::ShortcutFocusReason); });
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, 0, kMargin, 0);
    layout->addWidget(label);
    layout->addWidget(m_pages);

    // With a large font, a name may not fit in the pane's fixed width.
    connect(m_pages, &QComboBox::currentTextChanged, m_pages, &QComboBox::setToolTip);
    // activated, not currentIndexChanged: only the user's choices count, not the program's. Keys and the wheel
    // activate, too.
    connect(m_pages, &QComboBox::activated, this,
            [this](int index) { emit PageChosen(m_pages->itemData(index).toInt()); });
}

void CDialogPane::SetPages(std::span<const std::int32_t> pageIds) {
    const QSignalBlocker blocker(m_pages);
    m_pages->clear();
    for (const std::int32_t pageId : pageIds) m_pages->addItem(QString::fromUtf8(PageName(pageId)), pageId);
    m_pages->setToolTip(m_pages->currentText());
}

void CDialogPane::ShowPage(std::int32_t pageId) {
    const QSignalBlocker blocker(m_pages);
    m_pages->setCurrentIndex(m_pages->findData(pageId));
    m_pages->setToolTip(m_pages->currentText());
}
