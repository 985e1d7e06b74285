#pragma once

#include "app/commands.h"

#include <functional>
#include <map>
#include <span>

class QAction;
class QWidget;

/// Marks a separator in a list of commands.
inline constexpr auto kSeparator = static_cast<CCommandId>(0);

/// The actions of all commands, which menus, toolbar and tests find by the command's number or by its name.
class CCommandActions {
public:
    /// `window` owns the actions and has their shortcuts; a chosen action calls `run`.
    CCommandActions(QWidget& window, const std::function<void(CCommandId)>& run);

    /// The action of a command; null for a number that no command has.
    [[nodiscard]] QAction* Find(CCommandId id) const;
    /// Switches every action on or off.
    void Enable(const CCommandState& state) const;
    /// Appends the actions of `ids` and separators to `menu`.
    void AddTo(QWidget& menu, std::span<const CCommandId> ids) const;

private:
    std::map<CCommandId, QAction*> m_actions;
};
