#include "cli/output/json_results.h"

#include "cli/commands/compare_options.h"
#include "cli/output/json_text.h"
#include "cli/output/notes.h"
#include "cli/output/rating_json.h"
#include "cli/output/spool.h"
#include "compare/comparison.h"
#include "compare/critical_values.h"
#include "compare/note.h"
#include "compare/plots/page_table.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/verdict.h"
#include "signal/nsignal.h"

#include <nlohmann/json.hpp>

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <new>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr int kVersion = 1;

void AddMember(CJsonText& text, std::string_view name, std::string_view value) {
    text.Key(name);
    text.String(value);
}

void AddMember(CJsonText& text, std::string_view name, double value) {
    text.Key(name);
    text.Real(value);
}

void AddMember(CJsonText& text, std::string_view name, std::integral auto value) {
    text.Key(name);
    text.Integer(value);
}

/// A member of the whole file, on a line of its own.
void BeginLine(CJsonText& text, std::string_view name) {
    text.NewLine();
    text.Key(name);
    text.Space(" ");
}

void AddCriticalValues(CJsonText& text, const CCriticalValues& values) {
    text.Open('{');
    for (const CCriterion& criterion : Criteria()) AddMember(text, criterion.name, values.*criterion.limit);
    text.Close('}');
}

void AddSettings(CJsonText& text, const CCompareOptions& options) {
    text.Open('{');
    text.Key("cfc");
    options.cfc ? text.Integer(*options.cfc) : text.Null();
    text.Key("filterReference");
    text.Bool(options.FiltersReference());
    text.Key("window");
    options.window ? text.Reals(std::array{options.window->min, options.window->max}) : text.Null();
    AddMember(text, "corridor", options.corridor);
    text.Key("critical");
    AddCriticalValues(text, options.critical);
    text.Close('}');
}

void AddNoteMembers(CJsonText& text, const CNote& note) {
    AddMember(text, "kind", NameOf(note.kind));
    AddMember(text, "text", note.sentence);
}

void AddNoteList(CJsonText& text, const std::vector<CNote>& notes) {
    text.Open('[');
    for (const CNote& note : notes) {
        text.Open('{');
        AddNoteMembers(text, note);
        text.Close('}');
    }
    text.Close(']');
}

// A run without notes has no such member, so programs written before there were notes read its results unchanged.
void AddNotes(CJsonText& text, const std::vector<CNote>& notes) {
    if (notes.empty()) return;
    text.Key("notes");
    AddNoteList(text, notes);
}

void AddNotes(CJsonText& text, const std::vector<CPageNote>& notes) {
    if (notes.empty()) return;
    text.Key("notes");
    text.Open('[');
    for (const CPageNote& note : notes) {
        text.Open('{');
        AddMember(text, "signal", note.signal);
        AddNoteMembers(text, note.note);
        text.Close('}');
    }
    text.Close(']');
}

void AddReference(CJsonText& text, const CSignal& reference) {
    const ks::CNSignal& record = reference.Record();
    text.Open('{');
    AddMember(text, "path", reference.GetPath());
    AddMember(text, "pointCount", record.GetPointCount());
    AddMember(text, "timeStep", record.Getdelt());
    AddMember(text, "xUnits", record.GetXUNITS());
    AddMember(text, "yUnits", record.GetYUNITS());
    text.Key("warnings");
    text.Strings(record.GetWarnings());
    AddNotes(text, reference.Notes());
    text.Close('}');
}

void AddMeasures(CJsonText& text, const CComparison& measures) {
    text.Open('{');
    AddMember(text, "meanSquareResidual", measures.GetMeanSquareResidual());
    AddMember(text, "computedPeak", measures.GetComputedPeak());
    AddMember(text, "referencePeak", measures.GetReferencePeak());
    AddMember(text, "computedMaximum", measures.GetComputedMaximum());
    AddMember(text, "referenceMaximum", measures.GetReferenceMaximum());
    AddMember(text, "computedMinimum", measures.GetComputedMinimum());
    AddMember(text, "referenceMinimum", measures.GetReferenceMinimum());
    AddMember(text, "residualStandardDeviation", measures.GetResidualStandardDeviation());
    AddMember(text, "residualSum", measures.GetResidualSum());
    AddMember(text, "residualSumOfSquares", measures.GetResidualSumOfSquares());
    AddMember(text, "percentOutsideCorridor", measures.GetPercentOutsideCorridor());
    AddMember(text, "pointCount", measures.GetPointCount());
    text.Key("momentDifferences");
    text.Reals(measures.GetMomentDifferences());
    AddMember(text, "correlationFactor", measures.GetCorrelationFactor());
    AddMember(text, "magnitudeError", measures.GetMagnitudeError());
    AddMember(text, "phaseError", measures.GetPhaseError());
    AddMember(text, "comprehensiveError", measures.GetComprehensiveError());
    AddMember(text, "tStatistic", measures.GetTStatistic());
    AddMember(text, "minimumTime", measures.GetMinimumTime());
    AddMember(text, "maximumTime", measures.GetMaximumTime());
    AddMember(text, "corridorSize", measures.GetCorridorSize());
    text.Close('}');
}

void AddColumns(CJsonText& text, const CSignal& signal, std::span<const CSummaryColumn> columns) {
    text.Key("columns");
    text.Open('[');
    for (const CSummaryColumn& column : columns) {
        if (column.isFixed) text.String(column.text(signal));
    }
    text.Close(']');
    text.Key("verdicts");
    text.Open('[');
    for (const CSummaryColumn& column : columns) {
        if (column.isFixed) text.String(VerdictName(Judge(column, signal)));
    }
    text.Close(']');
}

void AddSignal(CJsonText& text, const CSignal& signal, std::span<const CSummaryColumn> columns) {
    text.Open('{');
    AddMember(text, "path", signal.GetPath());
    AddMember(text, "referenceName", signal.GetReferenceName());
    AddMember(text, "pointCount", signal.GetPointCount());
    text.Key("warnings");
    text.Strings(signal.Record().GetWarnings());
    AddNotes(text, signal.Notes());
    text.Key("measures");
    AddMeasures(text, signal.Comparison());
    AddColumns(text, signal, columns);
    AddRatings(text, signal);
    text.Close('}');
}

void AddSeries(CJsonText& text, const CPageView& page, std::size_t index) {
    text.Open('{');
    AddMember(text, "name", index < page.names.size() ? std::string_view(page.names[index]) : std::string_view());
    text.Key("x");
    text.Column(page.series[index]->GetX());
    text.Key("y");
    text.Column(page.series[index]->GetY());
    text.Close('}');
}

void AddPageMembers(CJsonText& text, const CPageView& page) {
    // The summary page keeps the chart block of the page before it; it has no curves of its own.
    const bool hasChart = HasChart(page.id);
    AddMember(text, "id", page.id);
    AddMember(text, "name", PageName(page.id));
    text.Key("built");
    text.Bool(!page.error.has_value() && (!hasChart || !page.series.empty()));
    text.Key("error");
    page.error ? text.String(*page.error) : text.Null();
    AddMember(text, "xTitle", page.block.xTitle);
    AddMember(text, "yTitle", page.block.yTitle);
    AddMember(text, "pointCount", hasChart ? page.block.pointCount : 0);
    AddMember(text, "seriesCount", hasChart ? page.block.seriesCount : 0);
    AddNotes(text, page.notes);
    text.Key("series");
    text.Open('[');
    for (std::size_t j = 0; hasChart && j < page.series.size(); ++j) AddSeries(text, page, j);
    text.Close(']');
}

}  // namespace

CJsonResults::CJsonResults(const CCompareOptions& options, const CResults& results, const CSignal& reference,
                           const std::vector<CSignal>& signalList, std::span<const CSummaryColumn> columns) {
    Attempt([&] { AddRun(options, results, reference, signalList, columns); });
}

void CJsonResults::AddRun(const CCompareOptions& options, const CResults& results, const CSignal& reference,
                          const std::vector<CSignal>& signalList, std::span<const CSummaryColumn> columns) {
    m_text.Open('{');
    BeginLine(m_text, "format");
    m_text.String("quorvel-compare");
    BeginLine(m_text, "version");
    m_text.Integer(kVersion);
    BeginLine(m_text, "settings");
    AddSettings(m_text, options);
    BeginLine(m_text, "errors");
    m_text.Strings(results.errors);
    BeginLine(m_text, "referenceErrors");
    m_text.Strings(results.referenceErrors);
    if (!results.notes.empty()) {
        BeginLine(m_text, "notes");
        AddNoteList(m_text, results.notes);
    }
    BeginLine(m_text, "reference");
    AddReference(m_text, reference);
    BeginLine(m_text, "pageList");
    m_text.Open('[');
    for (const std::int32_t page : results.pageList) m_text.Integer(page);
    m_text.Close(']');
    BeginLine(m_text, "signals");
    m_text.Open('[');
    for (const CSignal& signal : signalList) {
        m_text.NewLine("  ");
        AddSignal(m_text, signal, columns);
    }
    m_text.Close(']');
}

void CJsonResults::StreamPagesTo(TextSink sink) {
    m_pageSink = std::move(sink);
}

void CJsonResults::BeginPages() {
    if (m_isInPages) return;
    if (m_pageSink) m_text.PassTo(m_pageSink);
    BeginLine(m_text, "pages");
    m_text.Open('[');
    m_isInPages = true;
}

void CJsonResults::AddPage(const CPageView& page) {
    Attempt([&] {
        BeginPages();
        m_text.NewLine("  ");
        m_text.Open('{');
        AddPageMembers(m_text, page);
        m_text.Close('}');
    });
}

void CJsonResults::GiveUp() noexcept {
    m_isTooLong = true;
    m_text = CJsonText();
}

std::vector<std::string> CJsonResults::Finish(bool shouldShowPages) {
    if (m_isTooLong) throw std::bad_alloc();
    if (shouldShowPages) {
        BeginPages();
        m_text.Close(']');
    }
    m_text.Space("\n");
    m_text.Close('}');
    m_text.Space("\n");
    return m_text.Take();
}

/// Too little memory ends the text, not the command: the other outputs are still to be made, and can use the memory.
void CJsonResults::Attempt(const std::function<void()>& add) {
    if (m_isTooLong) return;
    try {
        add();
    } catch (const std::bad_alloc&) {
        GiveUp();
    } catch (const std::length_error&) {  // more than any memory holds
        GiveUp();
    }
}

std::string_view VerdictName(CVerdict verdict) {
    switch (verdict) {
        case CVerdict::None:
            return "none";
        case CVerdict::Good:
            return "good";
        case CVerdict::Bad:
            break;
    }
    return "bad";
}
