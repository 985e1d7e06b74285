#include "cli/messages.h"

#include "cli/join.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace cli_message {

std::string UnknownCommand(std::string_view name) {
    return Join({"Unknown command: ", name});
}

std::string TryHelp(std::string_view command) {
    return Join({"Try 'quorvel-cli ", command, command.empty() ? "" : " ", "--help'."});
}

std::string UnknownOption(std::string_view argument) {
    return Join({"Unknown option: ", argument, "\nTo use a file with that name, put it after --."});
}

std::string ValueMissing(std::string_view option, std::string_view argument) {
    return Join({"Option ", option, " needs ", argument, "."});
}

std::string ValueNotTaken(std::string_view option) {
    return Join({"Option ", option, " takes no value."});
}

std::string OnlyOnce(std::string_view option) {
    return Join({"Option ", option, " can be given only once."});
}

std::string EmptyPath(std::string_view option) {
    return Join({"Option ", option, " takes a path that is not empty."});
}

std::string InputOverwritten(std::string_view output) {
    return Join({"An output would overwrite an input: ", output});
}

std::string ClassNotKnown(std::string_view classes, std::string_view value) {
    return Join({"Option --cfc takes the channel class ", classes, ", not: ", value});
}

std::string NumberNotRead(std::string_view option, std::string_view value) {
    return Join({"Option ", option, " takes finite decimal numbers, not: ", value});
}

std::string JobsNotKnown(unsigned most, std::string_view value) {
    return Join({"Option --jobs takes a whole number from 1 to ", std::to_string(most), ", not: ", value});
}

std::string WindowNotAscending(std::string_view min, std::string_view max) {
    return Join({"Option --window takes MIN smaller than MAX, not: ", min, " ", max});
}

std::string CorridorNotPositive(std::string_view value) {
    return Join({"Option --corridor takes a size greater than 0, not: ", value});
}

std::string NameNotKnown(std::string_view option, std::string_view names, std::string_view name) {
    return Join({"Option ", option, " knows the names ", names, ", not: ", name});
}

std::string ValueWithoutName(std::string_view option, std::string_view example, std::string_view value) {
    return Join({"Option ", option, " takes NAME=VALUE, for example ", example, ", not: ", value});
}

std::string ParametersRefused(std::string_view option, std::string_view reason) {
    return Join({"Option ", option, ": ", reason});
}

std::string RatingsNeeded(std::string_view option, std::string_view name) {
    return Join({"Option ", option, " needs --ratings with ", name, "."});
}

std::string OutputsShareFile(std::string_view a, std::string_view b) {
    return Join({"Two outputs would go to one file: ", a, " and ", b});
}

std::string FileMissing(std::string_view toDo) {
    return Join({"A FILE to ", toDo, " is needed."});
}

std::string OnlyOneFile(std::string_view done, std::string_view second) {
    return Join({"Only one FILE can be ", done, " at a time, not also: ", second});
}

std::string OptionMissing(std::string_view option, std::string_view argument) {
    return Join({"Option ", option, " is needed, with ", argument, "."});
}

std::string TargetNotKnown(std::string_view value) {
    return Join({"Option --to takes the number format ieee or sun, not: ", value});
}

std::string NoFileToVerify(std::string_view file) {
    return Join({"verify takes no FILE, only options, not: ", file});
}

std::string NotRead(std::string_view path) {
    return Join({"Could not be read: ", path});
}

std::string ReferenceNotRead(std::string_view path) {
    return Join({"The reference could not be read: ", path});
}

std::string HitListNotRead(std::string_view path) {
    return Join({"Unable to read Hit list file: ", path});
}

std::string NotExported(std::string_view path) {
    return Join({"Could not be exported: ", path});
}

std::string NotJudged(std::string_view path, std::string_view criterion, std::string_view reason) {
    return Join({path, ": not judged by ", criterion, ": ", reason});
}

std::string NoMemoryToWrite(std::string_view what, std::string_view path) {
    return Join({what, " could not be written; there is not enough memory: ", path});
}

std::string NotOpenedForWriting(std::string_view what, std::string_view path) {
    return Join({what, " could not be written; the file cannot be opened for writing: ", path});
}

std::string NotCompleted(std::string_view what, std::string_view path) {
    return Join({what, " could not be written in full: ", path});
}

std::string FileDamaged(std::string_view what, std::string_view path) {
    return Join({what, " could not be written in full, and the existing file is damaged: ", path});
}

std::string NoMemoryForPage(std::int32_t pageId) {
    return Join({"Not all outputs of page ", std::to_string(pageId), " could be made; there is not enough memory."});
}

std::string StandardOutputFailed(std::string_view reason) {
    return Join({"Standard output could not be written: ", reason});
}

std::string FolderNotMade(std::string_view path) {
    return Join({"The folder could not be made: ", path});
}

std::string SeriesNotWritten(std::string_view path, std::string_view reason) {
    return Join({"The series could not be written: ", path, ": ", reason});
}

std::string OlderFileNotRemoved(std::string_view path) {
    return Join({"A file of an earlier run could not be removed: ", path});
}

std::string UserRealChanged(std::string_view field, std::string_view was, std::string_view now) {
    return Join({field, " was ", was, " and is now ", now, ", the value of RD1."});
}

std::string YearChanged(std::int32_t was, std::int32_t now) {
    return Join({"The year of component 1 was ", std::to_string(was), " and is now ", std::to_string(now), "."});
}

std::string NumbersCleared(std::uint64_t count) {
    return Join({"Values that were not a number and are now 0: ", std::to_string(count)});
}

std::string TextsMoved(std::uint64_t count) {
    return Join({"Texts that lost their leading blanks: ", std::to_string(count)});
}

std::string RecordsCleared(std::uint64_t count) {
    return Join({"Records whose unused bytes are now 0: ", std::to_string(count)});
}

std::string RecordsDropped(std::uint64_t count) {
    return Join({"Data records dropped after the last point: ", std::to_string(count)});
}

std::string Repeated(std::string_view message, std::size_t times) {
    return Join({message, " (", std::to_string(times), " times)"});
}

std::string About(std::string_view path, std::string_view message) {
    return Join({path, ": ", message});
}

std::string PageNote(std::string_view path, std::string_view note) {
    return Join({path, ": note: ", note});
}

std::string PageSource(std::int32_t pageId, std::string_view pageName) {
    return Join({"Page ", std::to_string(pageId), " (", pageName, ")"});
}

}  // namespace cli_message
