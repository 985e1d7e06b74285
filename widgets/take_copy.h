#pragma once

#include <QDropEvent>

/// Accepts a drag or a drop of files as a copy: a file manager that is told its files were moved would delete them.
/// Refuses files that can only be moved.
/// @return whether it is accepted
inline bool TakeAsCopy(QDropEvent& event) {
    const bool canCopy = event.possibleActions().testFlag(Qt::CopyAction);
    event.setDropAction(canCopy ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(canCopy);
    return canCopy;
}
