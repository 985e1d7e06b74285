#include "widgets/messages.h"

#include <QCoreApplication>

#include <exception>
#include <new>
#include <stdexcept>

namespace widget_message {
namespace {

/// A length error of the standard library is a request for more than any memory holds.
bool IsLackOfMemory(const std::exception& error) {
    return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
           dynamic_cast<const std::length_error*>(&error) != nullptr;
}

}  // namespace

QString SentenceOf(const std::exception& error) {
    if (!IsLackOfMemory(error)) return QString::fromUtf8(error.what());
    return QCoreApplication::translate("Quorvel",
                                       "There is not enough memory. Fewer or shorter signals would need less.");
}

QString FileDamaged(const QString& path) {
    //: %1 is a path
    return QCoreApplication::translate(
               "Quorvel", "%1 could not be written completely, and the existing file with this name is damaged.")
        .arg(path);
}

}  // namespace widget_message
