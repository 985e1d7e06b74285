#include "compare/plots/residual_plot.h"

#include "compare/plots/plot.h"
#include "compare/plots/residual.h"
#include "compare/plots/series.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

/// The number of the last of `count` points when the first has the number `first`.
std::int32_t LastPointNumber(std::int32_t first, std::size_t count) {
    const std::int64_t last = first + static_cast<std::int64_t>(count) - 1;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(last, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

ks::CNSignal ResidualRecord(ks::CNSignal& computed, const ks::CNSignal& reference) {
    std::optional<ks::CNSignal> cut;
    const ks::CNSignal& counterpart = InCommonRange(reference, computed, cut);
    std::vector<double> residuals = Residuals(computed.GetY(), counterpart.GetY());
    ks::CNSignal record = CopyWithoutArrays(counterpart);
    record.SetNLP(LastPointNumber(record.GetNFP(), residuals.size()));
    SetSamples(record, counterpart, std::move(residuals));
    record.SetDataStatus("Computed");
    return record;
}

}  // namespace

bool CPlotResidual::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                                std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    for (CSignal& signal : computed) {
        AddSeries(series, names, ResidualRecord(signal.Record(), reference), LegendName(signal));
    }
    return true;
}

void CPlotResidual::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    xTitle = "Time (seconds)";
    yTitle = "Residual";
}
