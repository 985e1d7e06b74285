#include "compare/plots/input_plots.h"

#include "compare/plots/plot.h"
#include "compare/plots/series.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <string>
#include <utility>
#include <vector>

namespace {

constexpr const char* kReferenceName = "Reference";
constexpr const char* kTimeTitle = "Time (seconds)";

void AddInputs(const std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
               std::vector<std::string>& names) {
    AddSeries(series, names, reference, kReferenceName);
    AddComputed(series, names, computed);
}

void AddIntegral(const ks::CNSignal& record, std::string name, CSeriesList& series, std::vector<std::string>& names) {
    ks::CNSignal integral = record;
    integral.Integrate();
    AddSeries(series, names, std::move(integral), std::move(name));
}

void AddIntegrals(const std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                  std::vector<std::string>& names) {
    AddIntegral(reference, kReferenceName, series, names);
    for (const CSignal& signal : computed) AddIntegral(signal.Record(), LegendName(signal), series, names);
}

}  // namespace

bool CPlotInput::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                             std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    AddInputs(computed, reference, series, names);
    return true;
}

void CPlotInput::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    xTitle = kTimeTitle;
    yTitle = "Unknown Units";
}

bool CPlotAcc::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                           std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    AddInputs(computed, reference, series, names);
    return true;
}

void CPlotAcc::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    xTitle = kTimeTitle;
    yTitle = "Acceleration (G's)";
}

bool CPlotVel::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                           std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    AddIntegrals(computed, reference, series, names);
    return true;
}

void CPlotVel::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    xTitle = kTimeTitle;
    yTitle = "Velocity (kmph)";
}

bool CPlotDisp::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                            std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    AddIntegrals(computed, reference, series, names);
    return true;
}

void CPlotDisp::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    xTitle = kTimeTitle;
    yTitle = "Displacement (mm)";
}
