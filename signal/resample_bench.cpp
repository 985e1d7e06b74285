#include "signal/resample.h"

#include "signal/column.h"
#include "signal/integrate.h"
#include "signal/limits.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ks {
namespace {

/// Resampling to another step: a finer one and a coarser one per thousand of the old.
void BM_Resample(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    const auto size = static_cast<std::size_t>(count);
    const CNumberedCurve curve{CColumn::Regular({1e-4, 0}, size), CColumn(RegularAxis(5, count, 0.3)), 0, count - 1,
                               count};
    const double timeStep = 1e-4 * static_cast<double>(state.range(1)) / 1000.0;
    std::int64_t points = 0;
    for (auto _ : state) {
        const auto range = ResampledRange(curve, timeStep);
        const CColumn values = Interpolate(curve, *range, timeStep);
        points += static_cast<std::int64_t>(values.size());
        benchmark::DoNotOptimize(values.data());
    }
    state.SetItemsProcessed(points);
    state.SetBytesProcessed(points * static_cast<std::int64_t>(sizeof(double)));
}
BENCHMARK(BM_Resample)->ArgsProduct({{20'000, 1'000'000}, {700, 1300}})->Unit(benchmark::kMicrosecond);

void BM_Integrate(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    const CColumn x = CColumn::Regular({1e-4, 0}, static_cast<std::size_t>(count));
    const std::vector<double> y = RegularAxis(5, count, 0.3);
    for (auto _ : state) benchmark::DoNotOptimize(CumulativeIntegral(x, y, 0, 1.0, 0.0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Integrate)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ks
