#include "tests/support/page_samples.h"

#include "compare/plots/page_table.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

ks::CNSignal TimeSignal(double timeStep, std::vector<double> y, std::int32_t firstPoint) {
    ks::CNSignal record;
    record.Setdelt(timeStep);
    record.SetNFP(firstPoint);
    record.SetNLP(firstPoint + static_cast<std::int32_t>(y.size()) - 1);
    record.SetYTYPE("ACCELERATION");
    record.SetYUNITS("G'S");
    if (y.empty()) return record;
    std::vector<double> x(y.size());
    for (std::size_t i = 0; i < x.size(); ++i) x[i] = timeStep * (firstPoint + static_cast<double>(i));
    record.SetData(std::move(x), std::move(y));
    return record;
}

CSignal ComputedSignal(std::string path, ks::CNSignal record) {
    CSignal signal(std::move(path));
    signal.Record() = std::move(record);
    return signal;
}

std::vector<double> Noise(std::size_t count, std::uint32_t seed, double mean) {
    // The standard fixes the engine's numbers but not those of its distributions, so this is Box and Muller by hand.
    std::mt19937 random(seed);
    const auto uniform = [&random] { return (static_cast<double>(random()) + 0.5) / 4294967296.0; };
    std::vector<double> values(count);
    for (double& value : values) {
        const double radius = std::sqrt(-2.0 * std::log(uniform()));
        value = mean + radius * std::cos(2.0 * std::numbers::pi * uniform());
    }
    return values;
}

CShownPage Show(std::int32_t pageId, std::vector<CSignal>& computed, const ks::CNSignal& reference) {
    CShownPage shown;
    const std::unique_ptr<CPlot> plot = MakePage(pageId);
    shown.isBuilt = plot->BuildSeries(computed, reference, shown.series, shown.names);
    plot->GetAxisTitles(shown.xTitle, shown.yTitle);
    return shown;
}
