#pragma once

#include <QDropEvent>

/// Takes a drag or a drop of files as a copy: told that its files were moved, a file manager would delete them. One
/// whose files can only be moved is refused.
/// @return whether it is taken
inline bool TakeAsCopy(QDropEvent& event) {
    const bool canCopy = event.possibleActions().testFlag(Qt::CopyAction);
    event.setDropAction(canCopy ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(canCopy);
    return canCopy;
}
