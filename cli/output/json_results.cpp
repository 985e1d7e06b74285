#include "cli/output/json_results.h"

#include "cli/commands/compare_options.h"
#include "cli/output/notes.h"
#include "compare/comparison.h"
#include "compare/critical_values.h"
#include "compare/note.h"
#include "compare/plots/page_table.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/verdict.h"
#include "signal/nsignal.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <new>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Json = nlohmann::ordered_json;

std::string Dump(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json SettingsJson(const CCompareOptions& options) {
    Json settings;
    settings["cfc"] = options.cfc ? Json(*options.cfc) : Json(nullptr);
    settings["filterReference"] = options.FiltersReference();
    settings["window"] = options.window ? Json::array({options.window->min, options.window->max}) : Json(nullptr);
    settings["corridor"] = options.corridor;
    Json critical;
    for (const CCriterion& criterion : Criteria()) {
        critical[std::string(criterion.name)] = options.critical.*criterion.limit;
    }
    settings["critical"] = std::move(critical);
    return settings;
}

Json NoteJson(const CNote& note) {
    Json json;
    json["kind"] = NameOf(note.kind);
    json["text"] = note.sentence;
    return json;
}

// A run without notes has no such member, so programs written before there were notes read its results unchanged.
void AddNotes(Json& json, const std::vector<CNote>& notes) {
    for (const CNote& note : notes) json["notes"].push_back(NoteJson(note));
}

Json ReferenceJson(const CSignal& reference) {
    const ks::CNSignal& record = reference.Record();
    Json json;
    json["path"] = reference.GetPath();
    json["pointCount"] = record.GetPointCount();
    json["timeStep"] = record.Getdelt();
    json["xUnits"] = record.GetXUNITS();
    json["yUnits"] = record.GetYUNITS();
    json["warnings"] = record.GetWarnings();
    AddNotes(json, reference.Notes());
    return json;
}

Json MeasuresJson(const CComparison& measures) {
    Json json;
    json["meanSquareResidual"] = measures.GetMeanSquareResidual();
    json["computedPeak"] = measures.GetComputedPeak();
    json["referencePeak"] = measures.GetReferencePeak();
    json["computedMaximum"] = measures.GetComputedMaximum();
    json["referenceMaximum"] = measures.GetReferenceMaximum();
    json["computedMinimum"] = measures.GetComputedMinimum();
    json["referenceMinimum"] = measures.GetReferenceMinimum();
    json["residualStandardDeviation"] = measures.GetResidualStandardDeviation();
    json["residualSum"] = measures.GetResidualSum();
    json["residualSumOfSquares"] = measures.GetResidualSumOfSquares();
    json["percentOutsideCorridor"] = measures.GetPercentOutsideCorridor();
    json["pointCount"] = measures.GetPointCount();
    json["momentDifferences"] = measures.GetMomentDifferences();
    json["correlationFactor"] = measures.GetCorrelationFactor();
    json["magnitudeError"] = measures.GetMagnitudeError();
    json["phaseError"] = measures.GetPhaseError();
    json["comprehensiveError"] = measures.GetComprehensiveError();
    json["tStatistic"] = measures.GetTStatistic();
    json["minimumTime"] = measures.GetMinimumTime();
    json["maximumTime"] = measures.GetMaximumTime();
    json["corridorSize"] = measures.GetCorridorSize();
    return json;
}

Json SignalJson(const CSignal& signal, std::span<const CSummaryColumn> summaryColumns) {
    Json json;
    json["path"] = signal.GetPath();
    json["referenceName"] = signal.GetReferenceName();
    json["pointCount"] = signal.GetPointCount();
    json["warnings"] = signal.Record().GetWarnings();
    AddNotes(json, signal.Notes());
    json["measures"] = MeasuresJson(signal.Comparison());
    Json columns = Json::array();
    Json verdicts = Json::array();
    for (const CSummaryColumn& column : summaryColumns) {
        if (!column.isFixed) continue;
        columns.push_back(column.text(signal));
        verdicts.push_back(VerdictName(Judge(column, signal)));
    }
    json["columns"] = std::move(columns);
    json["verdicts"] = std::move(verdicts);
    return json;
}

// A page's own members, without its series.
Json PageJson(const CPageView& page, bool hasChart) {
    Json json;
    json["id"] = page.id;
    json["name"] = PageName(page.id);
    json["built"] = !page.error.has_value() && (!hasChart || !page.series.empty());
    json["error"] = page.error ? Json(*page.error) : Json(nullptr);
    json["xTitle"] = page.block.xTitle;
    json["yTitle"] = page.block.yTitle;
    json["pointCount"] = hasChart ? page.block.pointCount : 0;
    json["seriesCount"] = hasChart ? page.block.seriesCount : 0;
    for (const CPageNote& note : page.notes) {
        Json item;
        item["signal"] = note.signal;
        item.update(NoteJson(note.note));
        json["notes"].push_back(std::move(item));
    }
    return json;
}

Json SeriesJson(const CPageView& page, std::size_t index) {
    Json json;
    json["name"] = index < page.names.size() ? page.names[index] : std::string();
    json["x"] = page.series[index]->GetX();
    json["y"] = page.series[index]->GetY();
    return json;
}

void AppendMember(std::string& text, std::string_view name, std::string_view value) {
    text += text.empty() ? "{\n\"" : ",\n\"";
    text += name;
    text += "\": ";
    text += value;
}

void AppendItem(std::string& items, const std::string& item) {
    items += items.empty() ? "\n  " : ",\n  ";
    items += item;
}

}  // namespace

CJsonResults::CJsonResults(const CCompareOptions& options, const CResults& results, const CSignal& reference,
                           const std::vector<CSignal>& signalList, std::span<const CSummaryColumn> columns) {
    AppendMember(m_text, "format", "\"quorvel-compare\"");
    AppendMember(m_text, "version", "1");
    AppendMember(m_text, "settings", Dump(SettingsJson(options)));
    AppendMember(m_text, "errors", Dump(Json(results.errors)));
    AppendMember(m_text, "referenceErrors", Dump(Json(results.referenceErrors)));
    Json run;
    AddNotes(run, results.notes);
    if (!run.empty()) AppendMember(m_text, "notes", Dump(run["notes"]));
    AppendMember(m_text, "reference", Dump(ReferenceJson(reference)));
    AppendMember(m_text, "pageList", Dump(Json(results.pageList)));
    std::string items;
    for (const CSignal& signal : signalList) AppendItem(items, Dump(SignalJson(signal, columns)));
    AppendMember(m_text, "signals", "[" + items + "]");
}

void CJsonResults::BeginPages() {
    if (!m_isInPages) {
        AppendMember(m_text, "pages", "[");
        m_isInPages = true;
    }
}

void CJsonResults::AddPage(const CPageView& page) {
    if (m_isTooLong) return;
    try {
        AppendPage(page);
    } catch (const std::bad_alloc&) {
        // The other outputs are still to be made, and can use the memory.
        m_isTooLong = true;
        m_text = std::string();
    }
}

void CJsonResults::AppendPage(const CPageView& page) {
    BeginPages();
    m_text += m_hasPage ? ",\n  " : "\n  ";
    m_hasPage = true;
    // The summary page keeps the chart block of the page before it; it has no curves of its own.
    const bool hasChart = HasChart(page.id);
    m_text += Dump(PageJson(page, hasChart));
    m_text.back() = ',';  // in place of the closing brace
    m_text += "\"series\":[";
    for (std::size_t j = 0; hasChart && j < page.series.size(); ++j) {
        m_text += j == 0 ? "" : ",";
        m_text += Dump(SeriesJson(page, j));
    }
    m_text += "]}";
}

std::string CJsonResults::Finish(bool shouldShowPages) {
    if (m_isTooLong) throw std::bad_alloc();
    if (shouldShowPages) {
        BeginPages();
        m_text += ']';
    }
    m_text += "\n}\n";
    return std::move(m_text);
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
