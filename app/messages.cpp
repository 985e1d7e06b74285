#include "app/messages.h"

#include <cstddef>

namespace app_message {

QString RunCompleted(std::size_t signalCount) {
    if (signalCount == 1) return QCoreApplication::translate("Quorvel", "1 signal was compared.");
    return QCoreApplication::translate("Quorvel", "%1 signals were compared.").arg(signalCount);
}

QString FileMissing(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "This file is missing: %1").arg(path);
}

QString NothingDropped(const QString& dataType) {
    //: %1 is the text of a file filter
    return QCoreApplication::translate(
               "Quorvel", "The dropped items contain nothing to compare. Folders add only files of type %1.")
        .arg(dataType);
}

QString HitListGone(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel",
                                       "The hit list %1 no longer exists. It was removed from the recent files.")
        .arg(path);
}

QString NotANumber(const QString& field) {
    //: %1 is the name of the field, for example Min Time
    return QCoreApplication::translate("Quorvel", "Enter a number for \"%1\". Use a decimal point, for example 0.25.")
        .arg(field);
}

QString IsBeingCompared(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "%1 is one of the files being compared. Choose another name.")
        .arg(path);
}

QString Saved(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "Saved as %1.").arg(path);
}

QString CurvesSaved(qsizetype count, const QString& lastPath) {
    return QCoreApplication::translate("Quorvel", "%1 curves were saved, the last as %2.").arg(count).arg(lastPath);
}

QString PlotSaved(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "The plot was saved as %1.").arg(path);
}

QString PlotNotWritten(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "The plot could not be written to %1.").arg(path);
}

QString ReportSaved(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "The report was saved as %1.").arg(path);
}

QString ReportNotWritten(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "The report could not be written to %1.").arg(path);
}

QString PlotNotPrintedTo(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "The plot could not be printed to %1.").arg(path);
}

}  // namespace app_message
