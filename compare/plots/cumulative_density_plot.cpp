#include "compare/plots/cumulative_density_plot.h"

#include "compare/plots/cumulative_density.h"
#include "compare/plots/plot.h"
#include "compare/plots/series.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace {

/// The header that every curve of the page starts from.
ks::CNSignal DensityRecord() {
    ks::CNSignal record;
    record.SetSENATT("UNKN");
    record.SetXTYPE("RESIDUAL");
    record.SetTSTSRC("Computed");
    record.SetDataStatus("Computed");
    record.SetFCUT(0.0);
    record.Setdelt(0.0);
    record.SetNFP(0);
    record.SetNLP(static_cast<std::int32_t>(kDensityPointCount) - 1);
    return record;
}

CCumulativeDensity DensityOf(CSignal& signal, const ks::CNSignal& reference) {
    std::optional<ks::CNSignal> cut;
    const ks::CNSignal& counterpart = InCommonRange(reference, signal.Record(), cut);
    return CumulativeDensity(signal.Record().GetY(), counterpart.GetY(),
                             signal.Comparison().GetResidualStandardDeviation());
}

}  // namespace

bool CPlotCumulativeDensity::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference,
                                         CSeriesList& series, std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    for (CSignal& signal : computed) {
        ks::CNSignal record = DensityRecord();
        record.SetXUNITS(signal.Record().GetYUNITS());
        record.SetTSTNAM(signal.Record().GetTSTNAM());
        CCumulativeDensity density = DensityOf(signal, reference);
        record.SetData(std::move(density.x), std::move(density.y));
        AddSeries(series, names, std::move(record), LegendName(signal));
    }
    return true;
}

void CPlotCumulativeDensity::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    xTitle = "Residual";
    yTitle = "Percent Less than X (%)";
}
