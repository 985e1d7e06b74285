#include "compare/plots/page_table.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "tests/support/page_samples.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

/// One page with one computed signal; arguments: page id, samples, time steps per second.
void BuildPage(benchmark::State& state) {
    const auto pageId = static_cast<std::int32_t>(state.range(0));
    const auto count = static_cast<std::size_t>(state.range(1));
    const double step = 1.0 / static_cast<double>(state.range(2));
    CSignal reference = ComputedSignal("reference", TimeSignal(step, Noise(count, 1)));
    std::vector<CSignal> computed{ComputedSignal("computed", TimeSignal(step, Noise(count, 2)))};
    computed.front().Compare(reference);
    CSeriesList series;
    std::vector<std::string> names;
    for ([[maybe_unused]] const auto iteration : state) {
        MakePage(pageId)->BuildSeries(computed, reference.Record(), series, names);
    }
    state.SetItemsProcessed(state.iterations() * state.range(1));
    state.SetLabel(std::string(PageName(pageId)));
}

void Pages(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"page", "samples", "rate"})->Unit(benchmark::kMillisecond);
    for (const std::int32_t pageId : PageIds()) {
        if (!HasChart(pageId)) continue;
        benchmark->Args({pageId, 3000, 10000});
        benchmark->Args({pageId, 300000, 100000});
        benchmark->Args({pageId, 300000, 1000000});
        benchmark->Args({pageId, 1000000, 1000000});
    }
}
BENCHMARK(BuildPage)->Apply(Pages);

}  // namespace
