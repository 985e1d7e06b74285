#include "compare/summary_columns.h"

#include "compare/comparison.h"
#include "compare/critical_values.h"
#include "compare/signal.h"
#include "compare/verdict.h"
#include "files/number_text.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>

namespace {

std::string WithPercent(double value, double percent) {
    return ks::FixedText(value, 6) + " (" + ks::FixedText(percent, 2) + " %)";
}

std::string ResidualText(const CSignal& signal) {
    const CComparison& measures = signal.Comparison();
    const double sum = measures.GetResidualSum();
    return WithPercent(sum / measures.GetPointCount(),
                       std::abs(sum) / (measures.GetPointCount() * measures.GetReferencePeak()) * 100.0);
}

double ResidualPercent(const CSignal& signal) {
    const CComparison& measures = signal.Comparison();
    return std::abs(measures.GetResidualSum() / (measures.GetPointCount() * measures.GetReferencePeak())) * 100.0;
}

double DeviationPercent(const CSignal& signal) {
    const CComparison& measures = signal.Comparison();
    return measures.GetResidualStandardDeviation() / measures.GetReferencePeak() * 100.0;
}

std::string DeviationText(const CSignal& signal) {
    return WithPercent(signal.Comparison().GetResidualStandardDeviation(), DeviationPercent(signal));
}

double ShareOutside(const CSignal& signal) {
    return signal.Comparison().GetPercentOutsideCorridor() / 100.0;
}

double LeftOfCorrelation(const CSignal& signal) {
    return 1.0 - signal.Comparison().GetCorrelationFactor();
}

double MagnitudeOfT(const CSignal& signal) {
    return std::abs(signal.Comparison().GetTStatistic());
}

template <std::size_t order>
double Moment(const CSignal& signal) {
    return std::get<order>(signal.Comparison().GetMomentDifferences());
}

/// A number of `digits` decimals.
template <double (*value)(const CSignal&), int digits>
std::string Number(const CSignal& signal) {
    return ks::FixedText(value(signal), digits);
}

/// The same for one of the measures as it is.
template <double (CComparison::*measure)() const, int digits>
std::string Measure(const CSignal& signal) {
    return ks::FixedText((signal.Comparison().*measure)(), digits);
}

constexpr CSummaryColumn Fixed(CSummaryColumn column) {
    column.isFixed = true;
    return column;
}

template <std::size_t order>
constexpr CSummaryColumn MomentColumn(std::string_view header) {
    return Fixed({header, Number<Moment<order>, 3>, CJudgment{Moment<order>, &CCriticalValues::moment}});
}

constexpr std::array kColumns = {
    Fixed({.header = "Filename", .text = [](const CSignal& signal) { return signal.GetPath(); }, .isName = true}),
    Fixed({"Peak Value", Measure<&CComparison::GetComputedPeak, 1>}),
    Fixed({"Avg Residual", ResidualText, CJudgment{ResidualPercent, &CCriticalValues::averageResidual}}),
    Fixed({"Std Dev of Residual", DeviationText, CJudgment{DeviationPercent, &CCriticalValues::standardDeviation}}),
    // Shows and judges the share outside the corridor, whatever its header says: readers know the column by it.
    Fixed({"% in Corridor", Measure<&CComparison::GetPercentOutsideCorridor, 2>,
           CJudgment{ShareOutside, &CCriticalValues::corridor}}),
    Fixed({"Correlation Factor", Measure<&CComparison::GetCorrelationFactor, 3>,
           CJudgment{LeftOfCorrelation, &CCriticalValues::correlation}}),
    Fixed({"T Statistic", Number<MagnitudeOfT, 2>, CJudgment{MagnitudeOfT, &CCriticalValues::tStatistic}}),
    MomentColumn<0>("0 Moment Difference"),
    MomentColumn<1>("1st Moment Difference"),
    MomentColumn<2>("2nd Moment Difference"),
    MomentColumn<3>("3rd Moment Difference"),
    MomentColumn<4>("4th Moment Difference"),
    MomentColumn<5>("5th Moment Difference"),
    Fixed({.header = "Ref Filename",
           .text = [](const CSignal& signal) { return signal.GetReferenceName(); },
           .isName = true}),
    Fixed({"Min Time", Measure<&CComparison::GetMinimumTime, 4>}),
    Fixed({"Max Time", Measure<&CComparison::GetMaximumTime, 4>}),
};

/// A judged value of exactly this gets no verdict, although its column is judged. Kept, so that verdicts agree with
/// those of earlier reports: there this number marked columns without verdicts, and 1 minus a correlation factor
/// may happen to equal it.
constexpr double kValueWithoutVerdict = std::numeric_limits<double>::epsilon();

}  // namespace

std::span<const CSummaryColumn> SummaryColumns() {
    return kColumns;
}

CVerdict Judge(const CSummaryColumn& column, const CSignal& signal, const CCriticalValues& limits) {
    if (!column.judgment) return CVerdict::None;
    const double value = column.judgment->value(signal);
    if (value == kValueWithoutVerdict) return CVerdict::None;
    const double limit = limits.*column.judgment->limit;
    const bool isGood = column.judgment->goodSide == CGoodSide::Below ? value < limit : value > limit;
    return isGood ? CVerdict::Good : CVerdict::Bad;
}
