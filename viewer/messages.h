#pragma once

#include <QCoreApplication>
#include <QString>

// The sentences of the file viewer, as the user reads them.

inline QString NoFormChosen() {
    return QCoreApplication::translate("CUDSDialog", "Check Radio Button X or XY");
}

inline QString FileNotOpened(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("CUDSDialog", "Failure to open file %1").arg(path);
}

inline QString FileNotCompleted(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate(
               "CUDSDialog", "%1 could not be written completely. An existing file with this name is unchanged.")
        .arg(path);
}

inline QString OverwritesItself(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("CUDSDialog", "%1 is the file shown here. Choose another name.").arg(path);
}

inline QString NoSuchPages(int pageCount) {
    //: %1 is the number of pages
    return QCoreApplication::translate("CUDSDialog",
                                       "The report does not have the pages you chose. Its last page is page %1.")
        .arg(pageCount);
}

inline QString NotPrinted(const QString& printer) {
    //: %1 is a printer
    return QCoreApplication::translate("CUDSDialog", "The printer %1 does not accept the report.").arg(printer);
}
