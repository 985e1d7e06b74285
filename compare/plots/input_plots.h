#pragma once

#include "compare/plots/page_ids.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <cstdint>
#include <string>
#include <vector>

/// Input Data: the reference and every computed signal as they are compared.
class CPlotInput : public CPlot {
public:
    static constexpr std::int32_t kId = page::kInputData;
    CPlotInput() : CPlot(kId) {}
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};

/// Acceleration: the curves of Input Data under another Y title.
class CPlotAcc : public CPlot {
public:
    static constexpr std::int32_t kId = page::kAcceleration;
    CPlotAcc() : CPlot(kId) {}
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};

/// Velocity: the reference and every computed signal, integrated once.
class CPlotVel : public CPlot {
public:
    static constexpr std::int32_t kId = page::kVelocity;
    CPlotVel() : CPlot(kId) {}
    /// @throws ks::CError from Integrate
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};

/// Displacement: the curves of Velocity under another Y title. It integrates once too; kept, results are compared
/// with those of earlier years.
class CPlotDisp : public CPlot {
public:
    static constexpr std::int32_t kId = page::kDisplacement;
    CPlotDisp() : CPlot(kId) {}
    /// @throws ks::CError from Integrate
    bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                     std::vector<std::string>& names) override;
    void GetAxisTitles(std::string& xTitle, std::string& yTitle) const override;
};
