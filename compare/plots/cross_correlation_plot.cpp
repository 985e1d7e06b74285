#include "compare/plots/cross_correlation_plot.h"

#include "compare/plots/covariance.h"
#include "compare/plots/messages.h"
#include "compare/plots/plot.h"
#include "compare/plots/series.h"
#include "compare/signal.h"
#include "files/error.h"
#include "signal/messages.h"
#include "signal/nsignal.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace {

/// The largest offset, in X units: 10 ms for time in seconds.
constexpr double kLargestOffset = 0.01;

/// The largest offset as a number of time steps, rounded toward zero.
/// @throws ks::CError when it, or the number of offsets that follows from it, passes 32 bits
std::int32_t LargestLag(double timeStep) {
    using Limits = std::numeric_limits<std::int32_t>;
    const double lag = std::trunc(kLargestOffset / timeStep);
    const double count = 2.0 * lag + 1.0;
    if (!(count >= Limits::min() && count <= Limits::max())) throw ks::CError(ks::signal_message::kIndicesOutOfRange);
    return static_cast<std::int32_t>(lag);
}

/// The header that every curve of the page starts from, with as many samples as there are offsets.
/// @throws ks::CError from TruncateByIndex
ks::CNSignal LagRecord(const ks::CNSignal& reference, std::int32_t largestLag) {
    // Only the samples up to the last offset's: the rest of a long reference would be copied to be cut off again.
    const std::int64_t wanted = 2 * std::int64_t{largestLag} + 1 - reference.GetNFP();
    const auto held = static_cast<std::int64_t>(reference.GetPointCount());
    const std::int64_t count = std::clamp<std::int64_t>(wanted, 0, held);
    ks::CNSignal record = CopyWithoutArrays(reference);
    SetSamples(record, reference, {reference.GetY().begin(), reference.GetY().begin() + count});
    record.SetSENATT("UNKN");
    record.SetYTYPE("ERROR");
    record.SetYUNITS("None");
    record.SetFCUT(0.0);
    record.SetTSTSRC("Computed");
    record.SetDataStatus("Computed");
    record.Setdelt(0.0);
    record.TruncateByIndex(0, 2 * largestLag);
    return record;
}

std::vector<double> Offsets(std::int32_t largestLag, double timeStep) {
    std::vector<double> offsets;
    offsets.reserve(2 * static_cast<std::size_t>(largestLag) + 1);
    for (std::int32_t lag = -largestLag; lag <= largestLag; ++lag) offsets.push_back(lag * timeStep);
    return offsets;
}

void AddCurves(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
               std::vector<std::string>& names) {
    const std::int32_t largestLag = LargestLag(reference.Getdelt());
    ks::CNSignal record = LagRecord(reference, largestLag);
    const std::vector<double> offsets = Offsets(largestLag, reference.Getdelt());
    const auto add = [&](std::vector<double> covariances, std::string name) {
        record.SetData(offsets, std::move(covariances));
        AddSeries(series, names, record, std::move(name));
    };

    CCovariances covariances(largestLag);
    covariances.SetFirst(reference.GetY());
    add(covariances.WithItself(), "Reference");
    bool holdsWholeReference = true;
    for (CSignal& signal : computed) {
        std::optional<ks::CNSignal> cut;
        const ks::CNSignal& counterpart = InCommonRange(reference, signal.Record(), cut);
        const std::span<const double> second = signal.Record().GetY();
        const std::size_t count = std::min(counterpart.GetPointCount(), second.size());
        // While nothing is cut, one transform of the reference serves every signal.
        const bool isWholeReference = &counterpart == &reference && count == reference.GetPointCount();
        if (!isWholeReference || !holdsWholeReference) covariances.SetFirst(std::span(counterpart.GetY()).first(count));
        holdsWholeReference = isWholeReference;
        add(covariances.With(second), LegendName(signal));
    }
}

}  // namespace

bool CPlotCrossCorrelation::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference,
                                        CSeriesList& series, std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    try {
        AddCurves(computed, reference, series, names);
    } catch (const std::bad_alloc&) {
        throw ks::CError(page_message::kNoMemoryForCovariance);
    }
    return true;
}

void CPlotCrossCorrelation::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    xTitle = "Time Offset";
    yTitle = "Cross Correlation";
}
