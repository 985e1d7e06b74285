#pragma once

#include "compare/plots/page_ids.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <cstdint>
#include <string>
#include <vector>

/// Corridor: a band of fixed half-width around the reference, and every computed signal.
class CPlot4GCorridor : public CPlot {
public:
    static constexpr std::int32_t kId = page::kCorridor;
    CPlot4GCorridor() : CPlot(kId) {}
    /// The half-width is the corridor size of the first computed signal.
    /// @return false, without series, when there is no computed signal or the corridor size is 0
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    /// Type and units of the reference's axes; empty before a successful BuildSeries.
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;

private:
    std::string m_xTitle;
    std::string m_yTitle;
};

/// Standard Deviation: a band of one mean standard deviation of the residuals around the reference, and every
/// computed signal. Without computed signals the band is not-a-number.
class CPlotStdDeviation : public CPlot {
public:
    static constexpr std::int32_t kId = page::kStandardDeviation;
    CPlotStdDeviation() : CPlot(kId) {}
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};

/// 90 Percentile Corridor: as Standard Deviation, 1.6449 standard deviations wide, within which 90 % of normally
/// distributed values lie.
class CPlot90Percent : public CPlot {
public:
    static constexpr std::int32_t kId = page::k90Percentile;
    CPlot90Percent() : CPlot(kId) {}
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};
