#include "cli/commands/compare_command.h"

#include "cli/cli_host.h"
#include "cli/commands/compare_options.h"
#include "cli/commands/file_input.h"
#include "cli/commands/output_conflicts.h"
#include "cli/criteria.h"
#include "cli/exit_status.h"
#include "cli/messages.h"
#include "cli/output/console.h"
#include "cli/output/csv_table.h"
#include "cli/output/json_results.h"
#include "cli/output/notes.h"
#include "cli/output/outputs.h"
#include "cli/output/page_outputs.h"
#include "cli/output/rating_csv.h"
#include "cli/output/rating_report.h"
#include "cli/output/streamed_output.h"
#include "cli/output/table_report.h"
#include "cli/output/text_table.h"
#include "cli/usage_error.h"
#include "compare/document.h"
#include "compare/export.h"
#include "compare/run_state.h"
#include "compare/signal.h"
#include "compare/summary_table.h"
#include "files/hit_list.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct CInput {
    std::vector<std::string> files;
    std::vector<std::string> errors;  // hit lists that could not be read
};

CInput CollectFiles(const CCompareOptions& options) {
    CInput input;
    input.files = options.files;
    for (const std::string& path : options.hitLists) {
        const auto listed = ks::ReadHitList(path);
        if (!listed) {
            input.errors.push_back(cli_message::HitListNotRead(path));
            continue;
        }
        input.files.insert(input.files.end(), listed->begin(), listed->end());
    }
    if (input.files.empty() && input.errors.empty()) {
        throw CUsageError(cli_message::kNoFileListed);
    }
    return input;
}

// An output that replaces an input would destroy a measurement that may exist only once.
std::vector<std::string> AllInputs(const CCompareOptions& options, std::vector<std::string> files) {
    files.insert(files.end(), options.hitLists.begin(), options.hitLists.end());
    if (options.reference) {
        files.push_back(*options.reference);
    }
    return files;
}

void RefuseOverwritingInputs(const CCompareOptions& options, const std::vector<std::string>& inputs) {
    for (const std::optional<std::string>& output : {options.html, options.json, options.csv}) {
        if (!output) continue;
        for (const std::string& input : inputs) RefuseOverwriting(*output, input);
    }
}

void WriteTables(const CCompareOptions& options, const CQuorvelDoc& document, const CSummaryTable& table,
                 COutputs& outputs) {
    if (options.html) {
        outputs.Write(cli_message::kHtmlReport, *options.html, [&table] { return HtmlReport(table); });
    }
    if (options.csv) {
        outputs.Write(cli_message::kCsvTable, *options.csv,
                      [&] { return CsvTable(table, RatingColumns(document.ComputedSignals(), options.ratings)); });
    }
}

void PrintReports(const CCompareOptions& options, const CQuorvelDoc& document, const CSummaryTable& table,
                  CConsole& console) {
    if (options.verbosity == CVerbosity::Verbose) {
        console.PrintLine(VerboseReport(document));
    }
    if (options.PrintsTable()) {
        const CTextTableStyle style{console.Width(), console.HasColor()};
        console.Print(TableReport(options, document, table, style));
        console.Print(RatingReport(document, options.ratingLimits, style));
    }
}

CExitStatus Status(const COutputs& outputs, bool hasInputFailed, bool isBadFound) {
    if (outputs.HasFailed()) {
        return CExitStatus::Output;
    }
    if (hasInputFailed) {
        return CExitStatus::Input;
    }
    return isBadFound ? CExitStatus::BadVerdict : CExitStatus::Good;
}

void WriteJson(const CCompareOptions& options, CJsonResults& json, CStreamedOutput& file, COutputs& outputs) {
    outputs.Attempt(cli_message::kJsonResults, *options.json,
                    [&] { file.Finish(json.Finish(options.shouldWritePages)); });
}

// Some of the readers' sentences name no file, and a run may have many.
void NameUnreadFiles(const CQuorvelDoc& document, CConsole& console) {
    std::vector<std::string> unread;
    for (const CSignal& signal : document.ComputedSignals()) {
        if (signal.GetPointCount() == 0 && !signal.GetMessages().empty()) {
            unread.push_back(cli_message::NotRead(signal.GetPath()));
        }
    }
    console.ComplainAll(unread);
    if (!document.ReferenceMessages().empty()) {
        console.Complain(cli_message::ReferenceNotRead(document.Reference().GetPath()));
    }
}

void PrintNotes(const CCompareOptions& options, const CQuorvelDoc& document, CConsole& console) {
    if (options.verbosity != CVerbosity::Verbose) return;
    const std::string notes = StoppedReport(document);
    if (!notes.empty()) console.PrintLine(notes);
}

CExitStatus FinishStopped(const CCompareOptions& options, const CResults& results, const CSignal& reference,
                          CConsole& console) {
    if (options.verbosity != CVerbosity::Quiet) {
        console.PrintLine(cli_message::kNothingCompared);
    }
    COutputs outputs(console);
    if (options.json) {
        CJsonResults json(options, results, reference, {});
        CStreamedOutput file(outputs, cli_message::kJsonResults, *options.json);
        WriteJson(options, json, file, outputs);
    }
    outputs.Finish();
    return Status(outputs, true, false);
}

CExitStatus FinishCompleted(const CCompareOptions& options, const CResults& results,
                            const std::vector<std::string>& inputs, CQuorvelDoc& document, CCliHost& host,
                            CConsole& console) {
    COutputs outputs(console);
    outputs.Protect(inputs);
    // Pages may cut the signals, so everything about the run itself is recorded before the first page.
    CSummaryTable table;
    const bool hasTable =
        outputs.Attempt(cli_message::kNoMemoryForTable, [&] { table = MakeSummaryTable(document.ComputedSignals()); });
    CStreamedOutput file(outputs, cli_message::kJsonResults, options.json.value_or(""));
    std::optional<CJsonResults> json;
    if (options.json) {
        json.emplace(options, results, document.Reference(), document.ComputedSignals());
        json->StreamPagesTo([&file](std::string_view text) { file.Put(text); });
    }
    if (hasTable) {
        outputs.Attempt(cli_message::kNoMemoryForTable, [&] { PrintReports(options, document, table, console); });
        WriteTables(options, document, table, outputs);
    }
    if (WantsPages(options)) {
        WritePages(options, document, host, json ? &*json : nullptr, outputs);
    }
    if (json) WriteJson(options, *json, file, outputs);
    outputs.Finish();
    const bool isBadFound = HasBad(table, options.failOnBad) ||
                            HasBadRating(document.ComputedSignals(), options.failOnBadRating, options.ratingLimits);
    return Status(outputs, !results.errors.empty(), isBadFound);
}

}  // namespace

CExitStatus RunCompare(const std::vector<std::string>& arguments, CConsole& console) {
    const CCompareOptions options = ParseCompareOptions(arguments);
    const CInput input = CollectFiles(options);
    const std::vector<std::string> inputs = AllInputs(options, input.files);
    RefuseOverwritingInputs(options, inputs);
    RefuseSharedOutputs(options);

    CCliHost host(options, input.files, console);
    CQuorvelDoc document(host);
    document.SetJobs(options.jobs);
    document.SetRatings(options.ratings);
    document.SetKeepsCopies(false);
    // A list that cannot be read leaves the choice of signals open; comparing the rest would look like a full result.
    if (!input.errors.empty()) {
        host.ShowSentences(input.errors);
        return FinishStopped(options, {input.errors, {}, {}}, document.Reference(), console);
    }
    document.OnCriticalValues();
    document.OnCorridorSize();
    document.OnCompareFiles();
    console.EraseProgress();

    // The document collects these but does not show them.
    console.ComplainAll(document.ReferenceMessages());
    ComplainOfIncomparable(document, console);
    const CResults results{document.ErrorMessages(), document.ReferenceMessages(), {}, document.Notes()};
    if (document.Run() != CRunState::Completed) {
        NameUnreadFiles(document, console);
        PrintNotes(options, document, console);
        return FinishStopped(options, results, document.Reference(), console);
    }
    console.ComplainAll(RatingsNotJudged(document.ComputedSignals(), options.failOnBadRating));
    return FinishCompleted(options, {results.errors, results.referenceErrors, document.PageList(), results.notes},
                           inputs, document, host, console);
}
