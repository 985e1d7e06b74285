#include "viewer/messages.h"

namespace viewer_message {

QString FileNotOpened(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "Failure to open file %1").arg(path);
}

QString FileNotCompleted(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate(
               "Quorvel", "%1 could not be written completely. An existing file with this name is unchanged.")
        .arg(path);
}

QString OverwritesItself(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate("Quorvel", "%1 is the file shown here. Choose another name.").arg(path);
}

QString NoSuchPages(int pageCount) {
    //: %1 is the number of pages
    return QCoreApplication::translate("Quorvel",
                                       "The report does not have the pages you chose. Its last page is page %1.")
        .arg(pageCount);
}

QString NotPrinted(const QString& printer) {
    //: %1 is a printer
    return QCoreApplication::translate("Quorvel", "The printer %1 does not accept the report.").arg(printer);
}

}  // namespace viewer_message
