#include "compare/ratings/iso18571.h"

#include "compare/ratings/correlation.h"
#include "compare/ratings/lag_search.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/warping.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using ratings::CSamples;

/// A pulse with a ripple, and the same later, larger and with another ripple.
std::vector<double> Channel(std::size_t count, double late, double gain, double ripple) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double t = (static_cast<double>(i) - late) / static_cast<double>(count);
        values[i] = gain * std::exp(-40.0 * (t - 0.4) * (t - 0.4)) + ripple * std::sin(170.0 * t);
    }
    return values;
}

struct CChannels {
    explicit CChannels(const benchmark::State& state)
        : reference(Channel(static_cast<std::size_t>(state.range(0)), 0.0, 1.0, 0.05)),
          computed(Channel(static_cast<std::size_t>(state.range(0)), 0.03 * static_cast<double>(state.range(0)), 1.1,
                           0.03)) {}

    CSamples View() const { return {reference, computed}; }

    std::vector<double> reference, computed;
};

std::size_t BandWidth(std::size_t count) {
    return count / 10;
}

/// What any warping of one row after the other costs: the cheapest of three neighbors in two rows of the band, the
/// cost alone and no path.
double PlainBandLoop(const CSamples& samples, std::size_t width) {
    const std::size_t count = samples.reference.size();
    std::vector<double> above(count + 1, HUGE_VAL), row(count + 1, HUGE_VAL);
    above[0] = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t first = i + 1 > width ? i + 1 - width : 0;
        const std::size_t last = std::min(i + width, count);
        row[first] = HUGE_VAL;
        for (std::size_t j = first; j < last; ++j) {
            const double error = samples.computed[i] - samples.reference[j];
            row[j + 1] = std::min({above[j + 1], row[j], above[j]}) + error * error;
        }
        if (last < count) row[last + 1] = HUGE_VAL;
        std::swap(above, row);
    }
    return above[count];
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    for (const int samples : {1501, 10000, 50000}) benchmark->Arg(samples);
    benchmark->Unit(benchmark::kMillisecond);
}

void Iso18571(benchmark::State& state) {
    const CChannels channels(state);
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(ratings::ScoreIso18571(channels.View()));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Iso18571)->Apply(Sizes);

void LagSearch(benchmark::State& state) {
    const CChannels channels(state);
    const std::size_t maxLag = channels.reference.size() / 5;
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(ratings::FindBestLag(channels.View(), maxLag, ratings::CCentering::Mean));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(LagSearch)->Apply(Sizes);

void Warping(benchmark::State& state) {
    const CChannels channels(state);
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(ratings::WarpingPathSums(channels.View(), BandWidth(channels.reference.size())));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Warping)->Apply(Sizes);

void WarpingByPlainBandLoop(benchmark::State& state) {
    const CChannels channels(state);
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(PlainBandLoop(channels.View(), BandWidth(channels.reference.size())));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(WarpingByPlainBandLoop)->Apply(Sizes);

}  // namespace
