#pragma once

#include "widgets/sentence.h"

#include <QCoreApplication>
#include <QString>

/// Every message of the file viewer, once.
namespace viewer_message {

/// When points are exported before a form was chosen.
inline constexpr CSentence kNoFormChosen{QT_TRANSLATE_NOOP("Quorvel", "Check Radio Button X or XY")};

/// When an output file cannot be opened for writing.
QString FileNotOpened(const QString& path);
/// When writing an output file fails after it was opened.
QString FileNotCompleted(const QString& path);
/// When an output would replace the file that the sheet shows.
QString OverwritesItself(const QString& path);
/// When the chosen page range has none of the report's pages.
QString NoSuchPages(int pageCount);
/// When a printer does not start the job.
QString NotPrinted(const QString& printer);

}  // namespace viewer_message
