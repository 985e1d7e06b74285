#include "app/command_actions.h"

#include "app/commands.h"
#include "app/resources.h"

#include <QAction>
#include <QCoreApplication>
#include <QWidget>

#include <functional>
#include <span>

namespace {

QString Translated(const char* text) {
    return QCoreApplication::translate("Commands", text);
}

/// What the command does and its key: short menu texts such as "UDS" say too little on a button.
QString ToolTip(const QAction& action) {
    const QKeySequence key = action.shortcut();
    if (key.isEmpty()) return action.statusTip();
    return QStringLiteral("%1 (%2)").arg(action.statusTip(), key.toString(QKeySequence::NativeText));
}

QAction* MakeAction(const CCommand& command, QWidget& window) {
    auto* const action = new QAction(Translated(command.text), &window);
    action->setObjectName(QLatin1String(command.name));
    action->setProperty("commandId", static_cast<int>(command.id));
    action->setShortcut(QKeySequence(QLatin1String(command.shortcut)));
    action->setStatusTip(Translated(command.statusText));
    action->setToolTip(ToolTip(*action));
    action->setMenuRole(QAction::NoRole);
    if (*command.icon != '\0') action->setIcon(CommandIcon(QLatin1String(command.icon)));
    return action;
}

}  // namespace

CCommandActions::CCommandActions(QWidget& window, const std::function<void(CCommandId)>& run) {
    for (const CCommand& command : Commands()) {
        QAction* const action = MakeAction(command, window);
        QObject::connect(action, &QAction::triggered, &window, [run, id = command.id] { run(id); });
        window.addAction(action);  // shortcuts also work while the menus are hidden
        m_actions[command.id] = action;
    }
    Find(CCommandId::Toolbar)->setCheckable(true);
    Find(CCommandId::StatusBar)->setCheckable(true);
    Find(CCommandId::Customize)->setIconText(Find(CCommandId::Customize)->text());  // Qt would remove the dots
    Find(CCommandId::About)->setMenuRole(QAction::AboutRole);
    Find(CCommandId::Exit)->setMenuRole(QAction::QuitRole);
}

QAction* CCommandActions::Find(CCommandId id) const {
    const auto found = m_actions.find(id);
    return found == m_actions.end() ? nullptr : found->second;
}

void CCommandActions::Enable(const CCommandState& state) const {
    for (const auto& [id, action] : m_actions) action->setEnabled(IsCommandEnabled(id, state));
}

void CCommandActions::AddTo(QWidget& menu, std::span<const CCommandId> ids) const {
    for (const CCommandId id : ids) {
        if (id != kSeparator) {
            menu.addAction(Find(id));
            continue;
        }
        auto* const separator = new QAction(&menu);
        separator->setSeparator(true);
        menu.addAction(separator);
    }
}
