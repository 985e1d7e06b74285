#include "compare/plots/cumulative_density.h"

#include "tests/support/page_samples.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

namespace {

void OnePassWithBisection(benchmark::State& state) {
    const std::vector<double> computed = Noise(static_cast<std::size_t>(state.range(0)), 1);
    const std::vector<double> reference(computed.size(), 0.0);
    for ([[maybe_unused]] const auto iteration : state) {
        benchmark::DoNotOptimize(CumulativeDensity(computed, reference, 1.0));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(OnePassWithBisection)->ArgName("samples")->RangeMultiplier(10)->Range(3000, 1000000);

/// What the definition says: one pass over the residuals for each threshold.
void OnePassPerThreshold(benchmark::State& state) {
    const std::vector<double> computed = Noise(static_cast<std::size_t>(state.range(0)), 1);
    const std::vector<double> reference(computed.size(), 0.0);
    const std::vector<double> thresholds = DensityThresholds(1.0);
    for ([[maybe_unused]] const auto iteration : state) {
        for (const double threshold : thresholds) {
            std::size_t count = 0;
            for (std::size_t i = 0; i < computed.size(); ++i) count += computed[i] - reference[i] < threshold ? 1U : 0U;
            benchmark::DoNotOptimize(count);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(OnePassPerThreshold)->ArgName("samples")->RangeMultiplier(10)->Range(3000, 1000000);

}  // namespace
