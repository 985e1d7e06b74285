#include "compare/plots/residual.h"

#include "tests/support/page_samples.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

namespace {

void Difference(benchmark::State& state) {
    const std::vector<double> computed = Noise(static_cast<std::size_t>(state.range(0)), 1);
    const std::vector<double> reference = Noise(static_cast<std::size_t>(state.range(0)), 2);
    for ([[maybe_unused]] const auto iteration : state) benchmark::DoNotOptimize(Residuals(computed, reference));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Difference)->ArgName("samples")->RangeMultiplier(10)->Range(3000, 1000000);

}  // namespace
