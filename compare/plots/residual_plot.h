#pragma once

#include <string>
#include <vector>
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

/// Residuals: every computed signal minus the reference, over their common range.
class CPlotResidual : public CPlot {
public:
    /// The page kind stays 0; kept, only the document's page id counts.
    CPlotResidual() = default;
    /// Cuts the computed signals to the common range for good.
    /// @throws ks::CError from TruncateByTime; the signals before are then cut already
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};
