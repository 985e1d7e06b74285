#include "cli/output/table_report.h"

#include "cli/commands/compare_options.h"
#include "cli/join.h"
#include "cli/output/display_text.h"
#include "cli/output/notes.h"
#include "cli/output/text_table.h"
#include "compare/critical_values.h"
#include "compare/document.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "files/number_text.h"
#include "signal/nsignal.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace {

using ks::GeneralText;

std::string RecordText(const ks::CNSignal& record) {
    std::string text = Join({std::to_string(record.GetPointCount()), " points, step ", GeneralText(record.Getdelt())});
    if (!record.GetXUNITS().empty()) {
        text += Join({" ", DisplayText(record.GetXUNITS())});
    }
    if (!record.GetYUNITS().empty()) {
        text += Join({", in ", DisplayText(record.GetYUNITS())});
    }
    return text;
}

std::string PreparationText(const CCompareOptions& options) {
    std::string text = options.cfc ? Join({"CFC ", std::to_string(*options.cfc)}) : "not filtered";
    if (options.cfc && options.reference && !options.shouldFilterReference) {
        text += " (reference not filtered)";
    }
    if (options.window) {
        text += Join({", window ", GeneralText(options.window->min), " to ", GeneralText(options.window->max)});
    }
    return text;
}

// `text` with its %1 replaced by `number`.
std::string WithNumber(std::string_view text, double number) {
    constexpr std::string_view kPlace = "%1";
    const std::size_t place = text.find(kPlace);
    return Join({text.substr(0, place), GeneralText(number), text.substr(place + kPlace.size())});
}

// The header of the first column that the limit judges.
std::string_view HeaderOf(CCriticalValue limit) {
    for (const CSummaryColumn& column : SummaryColumns()) {
        if (column.judgment && column.judgment->limit == limit) return column.header;
    }
    return {};
}

std::string LimitsText(const CCompareOptions& options) {
    std::string text = "Good is below: ";
    for (const CCriterion& criterion : Criteria()) {
        text += WithNumber(criterion.phrase, options.critical.*criterion.limit);
    }
    // The column's header says the opposite of what the column shows.
    return Join({text, "\"", HeaderOf(&CCriticalValues::corridor),
                 "\" is the share of points outside the corridor of +-", GeneralText(options.corridor), ".\n"});
}

std::size_t WarningCount(const CQuorvelDoc& document) {
    std::size_t count = document.Reference().Record().GetWarnings().size();
    for (const CSignal& signal : document.ComputedSignals()) count += signal.Record().GetWarnings().size();
    return count;
}

std::string WarningsNote(const CQuorvelDoc& document) {
    const std::size_t count = WarningCount(document);
    return count == 0 ? std::string() : Join({"Warnings: ", std::to_string(count), "; --verbose shows them.\n"});
}

void AppendSignal(std::string& text, std::string_view role, const CSignal& signal) {
    text += Join({role, " ", signal.GetPath(), ": ", RecordText(signal.Record()), "\n"});
    for (const std::string& warning : signal.Record().GetWarnings()) text += Join({"  warning: ", warning, "\n"});
    text += NoteLines(signal.Notes(), "  ");
}

}  // namespace

std::string TableReport(const CCompareOptions& options, const CQuorvelDoc& document, const CSummaryTable& table,
                        const CTextTableStyle& style) {
    const CSignal& reference = document.Reference();
    std::string text = Join({"Reference    ", DisplayText(reference.GetPath()), "\n"});
    text += Join({"             ", RecordText(reference.Record()), "\n"});
    text += Join({"Preparation  ", PreparationText(options), "\n"});
    std::size_t number = 0;
    for (const CSignal& signal : document.ComputedSignals()) {
        const std::string_view label = ++number == 1 ? "Signals      (" : "             (";
        text += Join({label, std::to_string(number), ") ", DisplayText(signal.GetPath()), "\n"});
    }
    return Join({text, "\n", TextTable(table, style), "\n", LimitsText(options), WarningsNote(document)});
}

std::string StoppedReport(const CQuorvelDoc& document) {
    std::string text = NoteLines(document.Notes(), "");
    if (document.Reference().GetPointCount() > 0) AppendSignal(text, "Reference", document.Reference());
    for (const CSignal& signal : document.ComputedSignals()) {
        if (signal.GetPointCount() > 0) AppendSignal(text, "Read", signal);
    }
    if (!text.empty()) text.pop_back();
    return text;
}

std::string VerboseReport(const CQuorvelDoc& document) {
    std::string text = NoteLines(document.Notes(), "");
    AppendSignal(text, "Reference", document.Reference());
    for (const CSignal& signal : document.ComputedSignals()) AppendSignal(text, "Compared", signal);
    text.pop_back();  // the console ends the last line
    return text;
}
