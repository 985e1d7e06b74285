#pragma once

#include <QCoreApplication>
#include <QString>

// The sentences of the window that are said at several places.

/// Kept: saving a hit list fails with the words of reading one, as users know it.
inline QString HitListUnreadable() {
    return QCoreApplication::translate("Quorvel", "Unable to read Hit list file");
}
