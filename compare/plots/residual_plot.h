#pragma once

#include "compare/plots/page_ids.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <cstdint>
#include <string>
#include <vector>

/// Residuals: every computed signal minus the reference, over their common range.
class CPlotResidual : public CPlot {
public:
    static constexpr std::int32_t kId = page::kResiduals;
    /// The page kind stays 0; kept, only the document's page id counts.
    CPlotResidual() = default;
    /// Cuts the computed signals permanently to the common range.
    /// @throws ks::CError from TruncateByTime; the signals before are then cut already
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};
