#include "compare/document.h"

#include "compare/chart_block.h"
#include "compare/critical_values.h"
#include "compare/document_host.h"
#include "compare/export.h"
#include "compare/messages.h"
#include "compare/note.h"
#include "compare/plots/page_table.h"
#include "compare/plots/plot.h"
#include "compare/sampling.h"
#include "compare/setting_keys.h"
#include "files/file_request.h"
#include "files/path_text.h"
#include "files/replacing_file.h"
#include "signal/column.h"
#include "signal/messages.h"
#include "signal/saved_axis.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

std::int32_t LongestPointCount(const CSeriesList& seriesList) {
    std::size_t longest = 0;
    for (const auto& series : seriesList) longest = std::max(longest, series->GetPointCount());
    return static_cast<std::int32_t>(std::min<std::size_t>(longest, std::numeric_limits<std::int32_t>::max()));
}

/// Lays one column of a series out from `begin` on and fills the rest of its `rows` with `padding`.
void FillColumn(const ks::CColumn& values, std::vector<double>& matrix, std::size_t begin, std::size_t rows,
                double padding) {
    const std::size_t count = std::min(values.size(), rows);
    const std::span<double> target = std::span(matrix).subspan(begin, rows);
    values.CopyTo(target.first(count));
    std::ranges::fill(target.subspan(count), padding);
}

std::shared_ptr<CChartBlock> WithoutMatrices(const CChartBlock& block) {
    auto copy = std::make_shared<CChartBlock>();
    copy->capacity = block.capacity;
    copy->lineStyleMode = block.lineStyleMode;
    copy->paddingValue = block.paddingValue;
    copy->titleOne = block.titleOne;
    copy->titleTwo = block.titleTwo;
    copy->xTitle = block.xTitle;
    copy->yTitle = block.yTitle;
    return copy;
}

}  // namespace

CQuorvelDoc::CQuorvelDoc(CDocumentHost& host) : m_host(host), m_page(std::make_unique<CPlot>()) {}

CQuorvelDoc::~CQuorvelDoc() = default;

void CQuorvelDoc::AddObserver(CDocumentObserver& observer) {
    m_observers.push_back(&observer);
}

void CQuorvelDoc::RemoveObserver(CDocumentObserver& observer) {
    std::erase(m_observers, &observer);
}

void CQuorvelDoc::Notify(int hint) {
    TellObservers([hint](CDocumentObserver& observer) { observer.OnDocumentUpdate(hint); });
}

void CQuorvelDoc::TellObservers(const std::function<void(CDocumentObserver&)>& tell) {
    // An observer may remove itself or another one while it is told.
    const std::vector<CDocumentObserver*> observers = m_observers;
    for (CDocumentObserver* observer : observers) {
        if (std::ranges::find(m_observers, observer) != m_observers.end()) tell(*observer);
    }
}

void CQuorvelDoc::SetComputedFiles(const std::vector<std::string>& files) {
    m_computed.clear();
    m_copies.clear();
    m_computed.reserve(files.size());
    for (const std::string& file : files) m_computed.emplace_back(file);
}

void CQuorvelDoc::BuildPageList() {
    m_pageList.clear();
    if (m_computed.empty()) return;
    m_pageList = OfferedPages(m_reference.Record().GetYUNITS().find("G'S") != std::string::npos);
}

bool CQuorvelDoc::SelectPage(std::int32_t pageId) {
    m_page.reset();  // destroy the old page before making the new one
    m_page = MakePage(pageId);
    if (FindPage(pageId) == nullptr) return false;
    m_pageId = pageId;

    TellObservers([](CDocumentObserver& observer) { observer.OnPageChanging(); });
    const bool isShown = BuildSeries() && LayOutSeries();
    m_page->GetAxisTitles(m_block->xTitle, m_block->yTitle);
    Notify(kPageOrLimitsChanged);
    // Shown last, so that titles, series and matrices agree while the list is open.
    if (!isShown) ShowErrors();
    return true;
}

bool CQuorvelDoc::BuildSeries() {
    std::vector<CSampling> before;
    bool isBuilt = true;
    try {
        before = ComputedSamplings();
        m_page->BuildSeries(m_computed, m_reference.Record(), m_series, m_seriesNames);
    } catch (const std::bad_alloc&) {
        FailPage(std::string(compare_message::kNoMemoryForPage));
        return false;
    } catch (const std::length_error&) {  // more than any memory can hold
        FailPage(std::string(compare_message::kNoMemoryForPage));
        return false;
    } catch (const std::exception& error) {
        FailPage(error.what());
        isBuilt = false;
    }
    NoteCutsByPage(before);  // a page that failed may have cut the first signals
    return isBuilt;
}

std::vector<CSampling> CQuorvelDoc::ComputedSamplings() const {
    std::vector<CSampling> samplings;
    samplings.reserve(m_computed.size());
    for (const CSignal& signal : m_computed) samplings.push_back(SamplingOf(signal.Record()));
    return samplings;
}

void CQuorvelDoc::NoteCutsByPage(const std::vector<CSampling>& before) {
    for (std::size_t i = 0; i < before.size(); ++i) {
        CSignal& signal = m_computed[i];
        AppendCutByPage(signal.Notes(), PageName(m_pageId), before[i], SamplingOf(signal.Record()));
    }
}

/// The chart block of the series. If there is not enough memory for it, the page has no series and the block is empty.
bool CQuorvelDoc::LayOutSeries() {
    try {
        BuildSeriesMatrices();
    } catch (const std::exception&) {
        FailPage(std::string(compare_message::kNoMemoryForPage));
        return false;
    }
    return true;
}

void CQuorvelDoc::FailPage(std::string sentence) {
    m_series.clear();
    m_seriesNames.clear();
    m_errors.assign(1, {{}, std::move(sentence)});
    BuildSeriesMatrices();
}

bool CQuorvelDoc::BuildSeriesMatrices() {
    if (!HasChart(m_pageId)) return true;
    m_block->pointCount = 0;
    m_block->seriesCount = 0;
    if (m_series.empty()) return false;

    const std::int32_t pointCount = LongestPointCount(m_series);
    if (m_needsMatrices) FillMatrices(static_cast<std::size_t>(pointCount));
    m_block->pointCount = pointCount;
    m_block->seriesCount = static_cast<std::int32_t>(m_series.size());
    return true;
}

void CQuorvelDoc::SetNeedsMatrices(bool needsMatrices) {
    m_needsMatrices = needsMatrices;
    if (!needsMatrices) FreeMatrices();
}

void CQuorvelDoc::FillMatrices(std::size_t rows) {
    ReserveMatrices(static_cast<std::int64_t>(rows * m_series.size()));
    for (std::size_t j = 0; j < m_series.size(); ++j) {
        FillColumn(m_series[j]->GetX(), m_block->x, j * rows, rows, m_block->paddingValue);
        FillColumn(m_series[j]->GetY(), m_block->y, j * rows, rows, m_block->paddingValue);
    }
}

void CQuorvelDoc::ReserveMatrices(std::int64_t cellCount) {
    const bool isShared = m_block.use_count() > 1;
    if (!isShared && cellCount <= m_block->capacity) return;
    const std::int64_t capacity = std::max(cellCount, m_block->capacity);
    // Free the old matrices first, so that old and new are never in memory together.
    FreeMatrices();
    m_block->x.resize(static_cast<std::size_t>(capacity));
    m_block->y.resize(static_cast<std::size_t>(capacity));
    m_block->capacity = capacity;
}

void CQuorvelDoc::FreeMatrices() {
    // Whoever shares the matrices keeps them as they are.
    if (m_block.use_count() > 1) m_block = WithoutMatrices(*m_block);
    m_block->capacity = 0;
    m_block->x = {};
    m_block->y = {};
}

std::vector<std::string> CQuorvelDoc::ErrorMessages() const {
    std::vector<std::string> sentences;
    sentences.reserve(m_errors.size());
    for (const CRunMessage& message : m_errors) sentences.push_back(message.text);
    return sentences;
}

void CQuorvelDoc::ShowErrors() {
    if (m_errors.empty()) return;
    // A copy: while the list is open the user may choose a page that replaces the messages.
    const std::vector<CRunMessage> messages = m_errors;
    m_host.Beep();
    m_host.ShowErrorList(messages);
}

void CQuorvelDoc::OnCorridorSize() {
    const std::optional<double> size = m_host.EditCorridorSize(m_corridorSize);
    if (!size) return;
    m_corridorSize = *size;
    Notify(kPageOrLimitsChanged);
}

void CQuorvelDoc::OnCriticalValues() {
    const std::optional<CCriticalValues> values = m_host.EditCriticalValues(CriticalValues());
    if (!values) return;
    CriticalValues() = *values;
    Notify(kPageOrLimitsChanged);
}

void CQuorvelDoc::OnSaveUds() {
    if (!HasChart(m_pageId)) return;
    std::vector<CRunMessage> warnings;
    try {
        SaveSeries(warnings);
    } catch (...) {
        ShowWarnings(std::move(warnings));  // about the files written before
        throw;
    }
    ShowWarnings(std::move(warnings));
}

void CQuorvelDoc::SaveSeries(std::vector<CRunMessage>& warnings) {
    const std::string folder = m_host.ReadSetting(setting::kUdsOutputDir);
    std::optional<std::string> lastPath;
    for (std::size_t j = 0; j < m_series.size(); ++j) {
        const std::optional<std::string> path =
            m_host.AskSavePath(ks::SaveRequest("Save " + m_seriesNames.at(j) + " as", folder));
        if (!path) continue;
        m_series[j]->SaveUDS(*path);
        lastPath = path;
        if (const auto lost = ks::FirstLostAbscissa(*m_series[j])) {
            warnings.push_back({{}, ks::signal_message::TimesLost(*path, *lost)});
        }
    }
    if (lastPath) m_host.StoreSetting(setting::kUdsOutputDir, std::string(ks::FolderOf(*lastPath)));
}

void CQuorvelDoc::ShowWarnings(std::vector<CRunMessage> warnings) {
    if (warnings.empty()) return;
    m_errors = std::move(warnings);
    ShowErrors();
}

void CQuorvelDoc::OnSaveAscii() {
    const std::string folder = m_host.ReadSetting(setting::kAsciiOutputDir);
    const std::optional<std::string> path = m_host.AskSavePath(ks::SaveRequest("Save ASCII data As", folder));
    if (!path) return;
    const ks::CWriteResult result = WriteAsciiTable(*path, *m_block, m_pageId);
    if (result != ks::CWriteResult::Written) {
        const bool isDamaged = result == ks::CWriteResult::Damaged;
        m_errors.assign(
            1,
            {{}, isDamaged ? compare_message::AsciiTableDamaged(*path) : compare_message::AsciiTableNotWritten(*path)});
        ShowErrors();
        return;
    }
    m_host.StoreSetting(setting::kAsciiOutputDir, std::string(ks::FolderOf(*path)));
}
