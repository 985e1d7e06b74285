#include "compare/signal.h"

#include <cmath>
#include <limits>
#include <utility>

#include "compare/critical_values.h"
#include "files/number_text.h"

const std::array<std::string_view, kSummaryColumnCount> kSummaryHeaders = {
    "Filename",
    "Peak Value",
    "Avg Residual",
    "Std Dev of Residual",
    "% in Corridor",
    "Correlation Factor",
    "T Statistic",
    "0 Moment Difference",
    "1st Moment Difference",
    "2nd Moment Difference",
    "3rd Moment Difference",
    "4th Moment Difference",
    "5th Moment Difference",
    "Ref Filename",
    "Min Time",
    "Max Time",
};

namespace {

/// The value of a column that is not judged. A judged value that happens to be equal gets no verdict either.
constexpr double kNoVerdict = std::numeric_limits<double>::epsilon();

/// A judged value and the limit that it must stay below.
class CJudged {
public:
    double value = kNoVerdict;
    double limit = 0.0;
};

bool IsMomentColumn(int column) {
    return column >= kFirstMomentColumn && column <= kLastMomentColumn;
}

double MomentDifference(int column, const CComparison& measures) {
    return measures.GetMomentDifferences()[static_cast<std::size_t>(column - kFirstMomentColumn)];
}

CJudged Judged(int column, const CComparison& measures, const CCriticalValues& limits) {
    if (IsMomentColumn(column)) return {MomentDifference(column, measures), limits.moment};
    const double peak = measures.GetReferencePeak();
    switch (column) {
        case kResidualColumn:
            return {std::abs(measures.GetResidualSum() / (measures.GetPointCount() * peak)) * 100.0,
                    limits.averageResidual};
        case kDeviationColumn:
            return {measures.GetResidualStandardDeviation() / peak * 100.0, limits.standardDeviation};
        case kCorridorColumn:
            return {measures.GetPercentOutsideCorridor() / 100.0, limits.corridor};
        case kCorrelationColumn:
            return {1.0 - measures.GetCorrelationFactor(), limits.correlation};
        case kTStatisticColumn:
            return {std::abs(measures.GetTStatistic()), limits.tStatistic};
        default:
            return {};
    }
}

std::string WithPercent(double value, double percent) {
    return ks::FixedText(value, 6) + " (" + ks::FixedText(percent, 2) + " %)";
}

std::string AverageResidualText(const CComparison& measures) {
    const double sum = measures.GetResidualSum();
    return WithPercent(sum / measures.GetPointCount(),
                       std::abs(sum) / (measures.GetPointCount() * measures.GetReferencePeak()) * 100.0);
}

std::string StandardDeviationText(const CComparison& measures) {
    const double deviation = measures.GetResidualStandardDeviation();
    return WithPercent(deviation, deviation / measures.GetReferencePeak() * 100.0);
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
        for (std::string& complaint : loaded.complaints) m_record.AddWarning(std::move(complaint));
        return false;
    }
    m_record = std::move(loaded.record);
    m_shouldFilter = loaded.format->shouldFilter;
    return true;
}

void CSignal::Compare(const CSignal& reference) {
    m_comparison.Compute(m_record, reference.m_record);
    m_referenceName = reference.m_path;
}

std::string CSignal::GetColumnText(int column) const {
    const CComparison& measures = m_comparison;
    if (IsMomentColumn(column)) return ks::FixedText(MomentDifference(column, measures), 3);
    switch (column) {
        case kFilenameColumn:
            return m_path;
        case kPeakColumn:
            return ks::FixedText(measures.GetComputedPeak(), 1);
        case kResidualColumn:
            return AverageResidualText(measures);
        case kDeviationColumn:
            return StandardDeviationText(measures);
        case kCorridorColumn:
            return ks::FixedText(measures.GetPercentOutsideCorridor(), 2);
        case kCorrelationColumn:
            return ks::FixedText(measures.GetCorrelationFactor(), 3);
        case kTStatisticColumn:
            return ks::FixedText(std::abs(measures.GetTStatistic()), 2);
        case kReferenceColumn:
            return m_referenceName;
        case kMinimumTimeColumn:
            return ks::FixedText(measures.GetMinimumTime(), 4);
        case kMaximumTimeColumn:
            return ks::FixedText(measures.GetMaximumTime(), 4);
        default:
            return {};
    }
}

CVerdictColor CSignal::GetColumnColor(int column) const {
    const CJudged judged = Judged(column, m_comparison, CriticalValues());
    if (judged.value == kNoVerdict) return CVerdictColor::White;
    return judged.limit > judged.value ? CVerdictColor::Green : CVerdictColor::Red;
}
