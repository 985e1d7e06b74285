#include "signal/butterworth.h"
#include "signal/limits.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace ks {
namespace {

std::vector<double> Wave(std::size_t count) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) values[i] = std::sin(0.003 * static_cast<double>(i));
    return values;
}

void CountSamples(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * state.range(0) * static_cast<std::int64_t>(sizeof(double)));
}

void BM_Filter(benchmark::State& state) {
    std::vector<double> values = Wave(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        FilterInPlace(values, 1e-4, 1000.0);
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
    CountSamples(state);
}
BENCHMARK(BM_Filter)->Arg(1'000)->Arg(20'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

void BM_Extrema(benchmark::State& state) {
    const std::vector<double> values = Wave(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(ExtremaOf(values));
    CountSamples(state);
}
BENCHMARK(BM_Extrema)->Arg(20'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ks
