#pragma once

#include "compare/plots/page_ids.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <cstdint>
#include <string>
#include <vector>

/// Cross Correlation: the covariance of the reference with itself and with every computed signal over offsets of up
/// to 0.01 X units either way.
class CPlotCrossCorrelation : public CPlot {
public:
    static constexpr std::int32_t kId = page::kCrossCorrelation;
    CPlotCrossCorrelation() : CPlot(kId) {}
    /// Cuts the computed signals permanently to the common range.
    /// @throws ks::CError from TruncateByIndex when the reference's point numbers do not cover 0 ... the number of
    ///         offsets - 1, and "Unable to provide requested stop/start indices" when these pass 32 bits; then nothing
    ///         is cut. From TruncateByTime; the signals before are then cut already. When memory runs out.
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};
