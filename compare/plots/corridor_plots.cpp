#include "compare/plots/corridor_plots.h"

#include "compare/plots/plot.h"
#include "compare/plots/series.h"
#include "compare/signal.h"
#include "files/number_text.h"
#include "signal/nsignal.h"

#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

std::vector<double> Raised(std::span<const double> values, double by) {
    std::vector<double> raised(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) raised[i] = values[i] + by;
    return raised;
}

double MeanStandardDeviation(const std::vector<CSignal>& computed) {
    double sum = 0.0;
    for (const CSignal& signal : computed) sum += signal.Comparison().GetResidualStandardDeviation();
    return sum / static_cast<double>(computed.size());
}

/// The two edges of a band of the given half-width around the reference.
void AddBand(const ks::CNSignal& reference, double halfWidth, std::string upperName, std::string lowerName,
             CSeriesList& series, std::vector<std::string>& names) {
    std::vector<double> upper = Raised(reference.GetY(), halfWidth);
    // The lower edge is lowered from the upper one, not from the reference: kept, the last digit depends on it.
    std::vector<double> lower = Raised(upper, -(2.0 * halfWidth));
    AddSeries(series, names, CopyWithY(reference, std::move(upper)), std::move(upperName));
    AddSeries(series, names, CopyWithY(reference, std::move(lower)), std::move(lowerName));
}

void BandTitles(std::string& xTitle, std::string& yTitle) {
    xTitle = "Time (seconds)";
    yTitle = "Acceleration (G's)";
}

}  // namespace

bool CPlot4GCorridor::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                                  std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    if (computed.empty()) return false;
    const double size = computed.front().Comparison().GetCorridorSize();
    if (size == 0.0) return false;

    const std::string sizeText = ks::GeneralText(size);
    AddSeries(series, names, CopyWithY(reference, Raised(reference.GetY(), size)), "Plus " + sizeText);
    AddSeries(series, names, CopyWithY(reference, Raised(reference.GetY(), -size)), "Minus " + sizeText);
    AddComputed(series, names, computed);
    // The lone closing parenthesis is kept: it has always been in printed charts.
    m_xTitle = reference.GetXTYPE() + " " + reference.GetXUNITS() + ")";
    m_yTitle = reference.GetYTYPE() + " " + reference.GetYUNITS() + ")";
    return true;
}

void CPlot4GCorridor::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    xTitle = m_xTitle;
    yTitle = m_yTitle;
}

bool CPlotStdDeviation::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                                    std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    AddBand(reference, MeanStandardDeviation(computed), "Plus 1 Std Dev", "Minus 1 Std Dev", series, names);
    AddComputed(series, names, computed);
    return true;
}

void CPlotStdDeviation::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    BandTitles(xTitle, yTitle);
}

bool CPlot90Percent::BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                                 std::vector<std::string>& names) {
    CPlot::BuildSeries(computed, reference, series, names);
    AddBand(reference, 1.6449 * MeanStandardDeviation(computed), "Plus 90%", "Minus 90%", series, names);
    AddComputed(series, names, computed);
    return true;
}

void CPlot90Percent::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    BandTitles(xTitle, yTitle);
}
