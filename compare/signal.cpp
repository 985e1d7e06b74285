#include "compare/signal.h"

#include "compare/note.h"
#include "compare/ratings/choice.h"
#include "compare/ratings/pair.h"
#include "compare/ratings/signal_ratings.h"
#include "compare/sampling.h"
#include "compare/summary_columns.h"
#include "compare/verdict.h"
#include "signal/formats/formats.h"
#include "signal/signal_loader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace {

/// The column at that place of the table, or null.
const CSummaryColumn* FindColumn(int column) {
    const std::span<const CSummaryColumn> columns = SummaryColumns();
    const auto index = static_cast<std::size_t>(column);
    return index < columns.size() ? &columns[index] : nullptr;
}

}  // namespace

CSignal::CSignal(std::string path) : m_path(std::move(path)) {}

bool CSignal::Read() {
    return Take(ks::LoadSignal(m_path));
}

bool CSignal::ReadUds() {
    return Take(ks::LoadSignalAs(ks::kUdsFormat, m_path));
}

bool CSignal::ReadAscii() {
    return Take(ks::LoadSignalAs(ks::kPointsFormat, m_path));
}

bool CSignal::Take(ks::CLoadedSignal loaded) {
    if (!loaded.IsLoaded()) {
        for (const std::string& complaint : loaded.complaints) m_record.AddWarning(complaint);
        return false;
    }
    m_record = std::move(loaded.record);
    m_format = loaded.format;
    return true;
}

void CSignal::Compare(const CSignal& reference) {
    const CSampling before = SamplingOf(m_record);
    const CSampling resampled = m_comparison.Compute(m_record, reference.m_record);
    AppendResampling(m_notes, CNoteKind::Resampled, before, resampled);
    AppendCutToCommonRange(m_notes, resampled, SamplingOf(m_record));
    m_referenceName = reference.m_path;
    m_ratings.reset();
}

void CSignal::Rate(const CSignal& reference, const ratings::CRatingChoice& choice,
                   std::optional<std::int32_t> filterClass) {
    m_ratings.reset();
    if (choice.IsEmpty()) return;
    const bool isApart =
        std::ranges::any_of(m_notes, [](const CNote& note) { return note.kind == CNoteKind::NoCommonTime; });
    ratings::CRatedPair pair;
    if (!isApart) pair = ratings::MakeRatedPair(m_record, reference.m_record, m_comparison);
    if (isApart) pair.time.stepS = reference.m_record.Getdelt();
    AppendUnitsDiffer(m_notes, m_record.GetYUNITS(), reference.m_path, reference.m_record.GetYUNITS());
    m_ratings = std::make_shared<const ratings::CSignalRatings>(ratings::RatePair(pair, choice, filterClass));
}

std::string CSignal::GetColumnText(int column) const {
    const CSummaryColumn* const found = FindColumn(column);
    return found ? found->text(*this) : std::string();
}

CVerdictColor CSignal::GetColumnColor(int column) const {
    const CSummaryColumn* const found = FindColumn(column);
    return ColorOf(found ? Judge(*found, *this) : CVerdict::None);
}
