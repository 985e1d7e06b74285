#pragma once

#include "compare/plots/page_ids.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <cstdint>
#include <string>
#include <vector>

/// Cummulative Density: the empirical distribution of every computed signal's residual, 100 points each.
class CPlotCumulativeDensity : public CPlot {
public:
    static constexpr std::int32_t kId = page::kCumulativeDensity;
    CPlotCumulativeDensity() : CPlot(kId) {}
    /// Cuts the computed signals permanently to the common range.
    /// @throws ks::CError from TruncateByTime; the signals before are then cut already
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};
