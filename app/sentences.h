#pragma once

#include <QCoreApplication>
#include <QString>

// The sentences that are said at several places of the window.

/// Kept: saving a hit list fails with the words of reading one, as users know it.
inline QString HitListUnreadable() {
    return QCoreApplication::translate("Quorvel", "Unable to read Hit list file");
}

inline QString NothingDropped(const QString& dataType) {
    //: %1 is the text of a file filter
    return QCoreApplication::translate("Quorvel",
                                       "Nothing to compare was dropped. Folders add their files of the type %1.")
        .arg(dataType);
}
