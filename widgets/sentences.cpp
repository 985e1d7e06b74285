#include "widgets/sentences.h"

#include <QCoreApplication>
#include <exception>
#include <new>
#include <stdexcept>

namespace {

struct CSentences {
    Q_DECLARE_TR_FUNCTIONS(CSentences)
};

/// A length error of the standard library is a request for more than any memory holds.
bool IsLackOfMemory(const std::exception& error) {
    return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
           dynamic_cast<const std::length_error*>(&error) != nullptr;
}

}  // namespace

QString SentenceOf(const std::exception& error) {
    if (IsLackOfMemory(error)) {
        return CSentences::tr("There is not enough memory. Fewer or shorter signals would need less.");
    }
    return QString::fromUtf8(error.what());
}

QString FileDamaged(const QString& path) {
    //: %1 is a path
    return CSentences::tr("%1 could not be written completely, and the existing file with this name is damaged.")
        .arg(path);
}
