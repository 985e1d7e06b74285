#pragma once

#include "app/commands.h"

#include <functional>
#include <map>
#include <span>

class QAction;
class QWidget;

/// Marks a separator in a list of commands.
inline constexpr auto kSeparator = static_cast<CommandId>(0);

/// The actions of all commands, which menus, toolbar and tests find by the command's number or by its name.
class CCommandActions {
public:
    /// `window` owns the actions and has their shortcuts; a chosen action calls `run`.
    CCommandActions(QWidget& window, const std::function<void(CommandId)>& run);

    /// The action of a command; null for a number that no command has.
    [[nodiscard]] QAction* Find(CommandId id) const;
    /// Switches every action on or off.
    void Enable(const CCommandState& state) const;
    /// Appends the actions of `ids` and separators to `menu`.
    void AddTo(QWidget& menu, std::span<const CommandId> ids) const;

private:
    std::map<CommandId, QAction*> m_actions;
};
