#pragma once

#include "cli/commands/compare_options.h"
#include "cli/output/json_text.h"
#include "cli/output/notes.h"
#include "cli/output/spool.h"
#include "compare/chart_block.h"
#include "compare/note.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/verdict.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a comparison produced, as the results file shows it. A stopped run has neither pages nor signals.
struct CResults {
    std::vector<std::string> errors;           ///< messages of the run
    std::vector<std::string> referenceErrors;  ///< messages of a reference that could not be read
    std::vector<std::int32_t> pageList;
    std::vector<CNote> notes = {};  ///< notes of the run; those of a signal are with the signal
};

/// One chart page as the results file shows it.
struct CPageView {
    std::int32_t id = 0;
    std::optional<std::string> error;  ///< why the page could not be built
    const CChartBlock& block;
    const CSeriesList& series;
    const std::vector<std::string>& names;
    std::vector<CPageNote> notes = {};  ///< what building the page did to the signals
};

/// Writes the results file of `quorvel-cli compare`; docs/formats/results.md describes it.
///
/// One line per member, signal and page, so that two files can be compared by eye. Numbers read back bit for bit,
/// numbers that are not finite are null, and bytes that are not UTF-8 appear as U+FFFD. Members are added in the order
/// of the functions below. Everything before the pages is held in memory; the pages, which may be long, can go to a
/// sink as they are made. A text that needs more memory than there is gets lost, and only that text: none of the
/// functions but Finish throws then.
class CJsonResults {
public:
    CJsonResults(const CCompareOptions& options, const CResults& results, const CSignal& reference,
                 const std::vector<CSignal>& signalList, std::span<const CSummaryColumn> columns = SummaryColumns());

    /// From the first page on, hands the text to `sink` in pieces of limited size, beginning with what comes before the
    /// pages. Without it, everything is held until Finish.
    void StreamPagesTo(TextSink sink);
    void AddPage(const CPageView& page);
    /// Drops the text: a page could not be made for lack of memory, and without it the text would mislead.
    void GiveUp() noexcept;
    /// Ends the text and returns those of its pieces that no sink got, in order. `shouldShowPages` adds the member
    /// "pages", empty when no page was added.
    /// @throws std::bad_alloc when there was not enough memory for the text, here or in an earlier call
    std::vector<std::string> Finish(bool shouldShowPages);

private:
    void AddRun(const CCompareOptions& options, const CResults& results, const CSignal& reference,
                const std::vector<CSignal>& signalList, std::span<const CSummaryColumn> columns);
    void BeginPages();
    void Attempt(const std::function<void()>& add);

    CJsonText m_text;
    TextSink m_pageSink;
    bool m_isInPages = false;
    bool m_isTooLong = false;
};

/// "none", "good" or "bad".
std::string_view VerdictName(CVerdict verdict);
