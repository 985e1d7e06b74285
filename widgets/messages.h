#pragma once

#include <QString>

#include <exception>

/// Sentences that several windows show.
namespace widget_message {

/// In a message box, when `error` ended a command: its own sentence, or that there is not enough memory. The standard
/// library's text for that, "std::bad_alloc", means nothing to users.
[[nodiscard]] QString SentenceOf(const std::exception& error);

/// In a message box: the file at `path` had to be written in place, and that failed partway; see
/// ks::CWriteResult::Damaged.
[[nodiscard]] QString FileDamaged(const QString& path);

}  // namespace widget_message
