#pragma once

#include <QCoreApplication>
#include <QString>

/// A fixed sentence for the user, translated where it becomes a QString. `text` is written in QT_TRANSLATE_NOOP with
/// the context "Quorvel", so that translators' tools find it.
struct CSentence {
    const char* text;

    [[nodiscard]] operator QString() const { return QCoreApplication::translate("Quorvel", text); }
};
