#pragma once

#include "widgets/sentence.h"

#include <QCoreApplication>
#include <QString>

#include <cstddef>

/// Every message of the window and its dialogs, once. Labels, captions and tool tips are where their controls are made.
namespace app_message {

// Commands.

/// In the status bar at the start, and when a command begins.
inline constexpr CSentence kReady{QT_TRANSLATE_NOOP("Quorvel", "Ready")};
/// In the status bar when a command ended with an error, which a box shows.
inline constexpr CSentence kCommandFailed{QT_TRANSLATE_NOOP("Quorvel", "The command failed.")};

// Runs.

/// After a completed run.
QString RunCompleted(std::size_t signalCount);
/// After a run whose reference was not read; the document itself does not say so.
inline constexpr CSentence kReferenceUnreadable{
    QT_TRANSLATE_NOOP("Quorvel", "The reference could not be read; nothing was compared.")};
/// After any other run that did not complete.
inline constexpr CSentence kRunStopped{QT_TRANSLATE_NOOP("Quorvel", "The run stopped; nothing was compared.")};

// The view's hints, in place of table and chart, and its banner, above an older table.

/// Before the first run.
inline constexpr CSentence kHowToBegin{
    QT_TRANSLATE_NOOP("Quorvel", "Choose File > Select Files... or drop signal files here to compare them.")};
/// After a stopped run without results of an earlier one.
inline constexpr CSentence kNothingComparedYet{
    QT_TRANSLATE_NOOP("Quorvel", "Nothing has been compared yet. Choose File > Select Files... to compare signals.")};
/// On a chart page without curves.
inline constexpr CSentence kNoCurvesToShow{QT_TRANSLATE_NOOP(
    "Quorvel",
    "There are no curves to show on this page. Choose another page under Plot Type, or select other files.")};
/// During a run, without results of an earlier one.
inline constexpr CSentence kComparing{QT_TRANSLATE_NOOP("Quorvel", "Comparing ...")};
/// During a run, above the results of the one before.
inline constexpr CSentence kComparingOverPrevious{
    QT_TRANSLATE_NOOP("Quorvel", "Comparing ... These are the results of the previous run.")};
/// After a stopped run, above the results of the one before.
inline constexpr CSentence kStoppedOverPrevious{
    QT_TRANSLATE_NOOP("Quorvel", "The last run stopped. These are the results of the previous run.")};

// Files to compare, and hit lists.

/// When OK is pressed in "Select Uds Files" without signals.
inline constexpr CSentence kNoSignals{QT_TRANSLATE_NOOP("Quorvel", "You must select at least one signal")};
/// When OK is pressed there and the time window is empty.
inline constexpr CSentence kTimesInWrongOrder{QT_TRANSLATE_NOOP("Quorvel", "Max time must be > min time")};
/// In an empty list of files.
inline constexpr CSentence kHowToAddFiles{
    QT_TRANSLATE_NOOP("Quorvel", "Add files, or drop signal files, hit lists, or folders here.")};
/// Tool tip of a listed file that does not exist.
QString FileMissing(const QString& path);
/// When a drop brings no file to compare. `dataType` is the text of the file filter that folders are searched with.
QString NothingDropped(const QString& dataType);
/// When a hit list cannot be read. Kept: a failed save of a hit list also shows this text, which users know.
inline constexpr CSentence kHitListUnreadable{QT_TRANSLATE_NOOP("Quorvel", "Unable to read Hit list file")};
/// When writing a hit list fails after it was opened.
inline constexpr CSentence kHitListNotCompleted{QT_TRANSLATE_NOOP(
    "Quorvel", "The hit list could not be written completely. An existing file with this name is unchanged.")};
/// When a recent file no longer exists.
QString HitListGone(const QString& path);

// Numbers.

/// When a field does not hold a number; `field` is its name, for example Min Time.
QString NotANumber(const QString& field);
/// When OK is pressed in "Enter Corridor Size" with a size of 0 or less.
inline constexpr CSentence kCorridorNotPositive{
    QT_TRANSLATE_NOOP("Quorvel", "You must enter a positive Value for the corridor Size")};
/// In the error list without messages.
inline constexpr CSentence kNoErrorMessages{QT_TRANSLATE_NOOP("Quorvel", "No Error Messages:")};

// Saving, copying and printing.

/// When an output would replace a loaded file.
QString IsBeingCompared(const QString& path);
/// When curves are saved on a page that has none.
inline constexpr CSentence kNoCurvesToSave{QT_TRANSLATE_NOOP("Quorvel", "This page has no curves to save.")};
/// After saving one curve or one table.
QString Saved(const QString& path);
/// After saving several curves.
QString CurvesSaved(qsizetype count, const QString& lastPath);
/// After copying the chart.
inline constexpr CSentence kPlotCopied{QT_TRANSLATE_NOOP("Quorvel", "The plot was copied to the clipboard.")};
/// After saving the chart as a picture.
QString PlotSaved(const QString& path);
/// When a picture of the chart cannot be written.
QString PlotNotWritten(const QString& path);
/// After copying the summary.
inline constexpr CSentence kTableCopied{QT_TRANSLATE_NOOP("Quorvel", "The table was copied to the clipboard.")};
/// After saving the HTML report.
QString ReportSaved(const QString& path);
/// When writing the HTML report fails after it was opened.
QString ReportNotWritten(const QString& path);
/// After printing the chart.
inline constexpr CSentence kPlotPrinted{QT_TRANSLATE_NOOP("Quorvel", "The plot was printed.")};
/// When a printer does not print the chart.
inline constexpr CSentence kPlotNotPrinted{
    QT_TRANSLATE_NOOP("Quorvel", "The plot could not be printed. Check the printer or the output file.")};
/// When printing the chart into a file fails.
QString PlotNotPrintedTo(const QString& path);
/// When the chart is printed directly and there is no default printer.
inline constexpr CSentence kNoDefaultPrinter{
    QT_TRANSLATE_NOOP("Quorvel", "There is no default printer. Use File > Print... to choose a printer.")};

}  // namespace app_message
