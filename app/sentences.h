#pragma once

#include <QCoreApplication>
#include <QString>

// The messages that the window shows in several places.

/// Kept: a failed save of a hit list also shows this text, which users know.
inline QString HitListUnreadable() {
    return QCoreApplication::translate("Quorvel", "Unable to read Hit list file");
}

inline QString NothingDropped(const QString& dataType) {
    //: %1 is the text of a file filter
    return QCoreApplication::translate(
               "Quorvel", "The dropped items contain nothing to compare. Folders add only files of type %1.")
        .arg(dataType);
}
