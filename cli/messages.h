#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The sentences of the command-line tool, as the user reads them on standard error: wrong usage, what could not be
/// read or written, what a command changed. Help, tables and reports have their texts where they are laid out.
///
/// Options are named as typed, "--cfc"; paths are UTF-8.
namespace cli_message {

// Wrong usage of any command.

/// The program was started without a command.
inline constexpr std::string_view kNoCommand = "A command is needed, for example compare.";
/// The first argument is not a command.
std::string UnknownCommand(std::string_view name);
/// Follows every sentence about wrong usage; `command` is empty where none was given.
std::string TryHelp(std::string_view command);
/// An argument begins with "-" and is not an option of the command.
std::string UnknownOption(std::string_view argument);
/// An option has no value; `argument` is what the value is called in sentences.
std::string ValueMissing(std::string_view option, std::string_view argument);
/// A flag has a value.
std::string ValueNotTaken(std::string_view option);
/// An option that is given once at most is given again.
std::string OnlyOnce(std::string_view option);
/// An option takes a path, and its value is empty.
std::string EmptyPath(std::string_view option);
/// An output leads to a file that the command reads. A file of --ascii or --uds, whose name is known later, is not
/// written then; that is a failure of the output.
std::string InputOverwritten(std::string_view output);

// Wrong usage of compare.

/// Neither files nor hit lists are given.
inline constexpr std::string_view kNoFileToCompare = "At least one FILE to compare is needed.";
/// No files are given, and the hit lists are empty.
inline constexpr std::string_view kNoFileListed = "At least one FILE to compare is needed; the hit list names none.";
/// Options for printing less and for printing more are given.
inline constexpr std::string_view kQuietAndVerbose = "Options --quiet and --verbose exclude each other.";
/// Several outputs have the path "-".
inline constexpr std::string_view kSeveralOnStandardOutput = "Only one output can go to standard output (-).";
/// The value of --cfc is not one of `classes`.
std::string ClassNotKnown(std::string_view classes, std::string_view value);
/// The value of an option that takes numbers is not a number, or not a finite one.
std::string NumberNotRead(std::string_view option, std::string_view value);
/// The value of --jobs is not a whole number from 1 to `most`.
std::string JobsNotKnown(unsigned most, std::string_view value);
/// The bounds of --window are equal or in the wrong order.
std::string WindowNotAscending(std::string_view min, std::string_view max);
/// The value of --corridor is 0 or negative.
std::string CorridorNotPositive(std::string_view value);
/// An option for criteria, ratings or parameters names one that does not exist; `names` are those that do.
std::string NameNotKnown(std::string_view option, std::string_view names, std::string_view name);
/// The value of an option for criteria or parameters has no "="; `example` is a value that would do.
std::string ValueWithoutName(std::string_view option, std::string_view example, std::string_view value);
/// The parameters of an option are refused, for this reason.
std::string ParametersRefused(std::string_view option, std::string_view reason);
/// An option, as given, is about ratings that are not computed; `name` is what --ratings would have to name.
std::string RatingsNeeded(std::string_view option, std::string_view name);
/// Two outputs lead to one file.
std::string OutputsShareFile(std::string_view a, std::string_view b);

// Wrong usage of the commands for single files.

/// show has no file.
inline constexpr std::string_view kNoFileToShow = "At least one FILE to show is needed.";
/// export has both forms.
inline constexpr std::string_view kBothForms = "Options --xy and --x exclude each other.";
/// export has no form.
inline constexpr std::string_view kNoForm = "One of the options --xy and --x is needed.";
/// report has the path "-".
inline constexpr std::string_view kReportNotPrinted = "Option --pdf takes the path of a file, not standard output (-).";
/// report in a build without Qt, which draws reports.
inline constexpr std::string_view kNoReports =
    "Reports need a build with the desktop program; this quorvel-cli was built without it.";
/// A command for one file has none; `toDo` is what the command does, "export".
std::string FileMissing(std::string_view toDo);
/// Such a command has several; `done` is what happens to a file, "exported".
std::string OnlyOneFile(std::string_view done, std::string_view second);
/// A required option is missing; `argument` is what its value is called in sentences.
std::string OptionMissing(std::string_view option, std::string_view argument);
/// The value of --to is not a number format.
std::string TargetNotKnown(std::string_view value);

// Wrong usage of verify.

/// verify has a file; its signals are given by formulas, and the files of --annex by their folder.
std::string NoFileToVerify(std::string_view file);

// Reading.

/// Memory ran out where no other sentence says for what.
inline constexpr std::string_view kNoMemory = "The signals do not fit into memory.";
/// Memory ran out while the summary table was made or printed.
inline constexpr std::string_view kNoMemoryForTable = "There is not enough memory for the table of the results.";
/// Ends the messages of a run that stopped.
inline constexpr std::string_view kNothingCompared = "Nothing was compared.";
/// A file could not be read; follows the reader's sentence, which may name no file.
std::string NotRead(std::string_view path);
/// The same about the reference of a comparison.
std::string ReferenceNotRead(std::string_view path);
/// A hit list could not be read.
std::string HitListNotRead(std::string_view path);
/// The points of a file cannot be exported; follows the sentence that tells why.
std::string NotExported(std::string_view path);

// Judging.

/// --fail-on-bad names a criterion of ratings, and the ratings of a signal are not available for this reason.
std::string NotJudged(std::string_view path, std::string_view criterion, std::string_view reason);

// Outputs, as the sentences below name them.

inline constexpr std::string_view kTable = "the printed table";              ///< compare
inline constexpr std::string_view kHtmlReport = "The HTML report";           ///< compare --html
inline constexpr std::string_view kCsvTable = "The CSV table";               ///< compare --csv
inline constexpr std::string_view kJsonResults = "The JSON results";         ///< compare --json
inline constexpr std::string_view kPageTable = "The ASCII table of a page";  ///< compare --ascii
inline constexpr std::string_view kAsciiFile = "The ASCII file";             ///< export
inline constexpr std::string_view kUdsFile = "The UDS-1992 file";            ///< convert
inline constexpr std::string_view kPdfReport = "The report";                 ///< report

// Writing. `what` is one of the names above.

/// Memory ran out while the output was made.
std::string NoMemoryToWrite(std::string_view what, std::string_view path);
/// The file cannot be opened.
std::string NotOpenedForWriting(std::string_view what, std::string_view path);
/// Writing failed partway.
std::string NotCompleted(std::string_view what, std::string_view path);
/// The same, and the existing file had to be written in place: it is neither the old one nor the new one.
std::string FileDamaged(std::string_view what, std::string_view path);
/// Memory ran out between the outputs of a page; some of them may be missing.
std::string NoMemoryForPage(std::int32_t pageId);
/// The system refused what was printed; `reason` is its own text.
std::string StandardOutputFailed(std::string_view reason);
/// The folder of --ascii or --uds does not exist and cannot be made.
std::string FolderNotMade(std::string_view path);
/// A file of --uds could not be written; `reason` is the writer's sentence.
std::string SeriesNotWritten(std::string_view path, std::string_view reason);
/// A file of --uds that an earlier run left could not be removed.
std::string OlderFileNotRemoved(std::string_view path);

// What convert changed.

/// One of the user reals RD2 to RD5 became RD1. The values are texts of numbers.
std::string UserRealChanged(std::string_view field, std::string_view was, std::string_view now);
/// A two-digit year became one of four digits.
std::string YearChanged(std::int32_t was, std::int32_t now);
/// Other reals that were not a number.
std::string NumbersCleared(std::uint64_t count);
/// Texts and tags that began with blanks.
std::string TextsMoved(std::uint64_t count);
/// Records with something after their last field or point.
std::string RecordsCleared(std::uint64_t count);
/// Data records that no point needs.
std::string RecordsDropped(std::uint64_t count);

// Frames of other messages.

/// A message that came `times` times, more than once.
std::string Repeated(std::string_view message, std::size_t times);
/// A message or note about one file.
std::string About(std::string_view path, std::string_view message);
/// What building a page did to the signal of a file.
std::string PageNote(std::string_view path, std::string_view note);
/// Where the messages of a page come from.
std::string PageSource(std::int32_t pageId, std::string_view pageName);

}  // namespace cli_message
