#include "compare/plots/covariance.h"

#include "tests/support/page_samples.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

/// Samples, and time steps within 10 ms: 100 for a step of 0.1 ms, 10 000 for one of a microsecond.
void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"samples", "lags"});
    for (const int samples : {3000, 30000, 300000, 1000000}) {
        for (const int lags : {100, 1000, 10000}) {
            if (lags < samples) benchmark->Args({samples, lags});
        }
    }
    benchmark->Unit(benchmark::kMillisecond);
}

void Run(benchmark::State& state, CCovarianceMethod method) {
    const std::vector<double> a = Noise(static_cast<std::size_t>(state.range(0)), 1);
    const std::vector<double> b = Noise(static_cast<std::size_t>(state.range(0)), 2);
    for ([[maybe_unused]] const auto iteration : state) {
        CCovariances covariances(static_cast<std::int32_t>(state.range(1)), method);
        covariances.SetFirst(a);
        benchmark::DoNotOptimize(covariances.WithItself());
        benchmark::DoNotOptimize(covariances.With(b));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void AutoAndCross(benchmark::State& state) {
    Run(state, CCovarianceMethod::Automatic);
}
BENCHMARK(AutoAndCross)->Apply(Sizes);

void AutoAndCrossByTransform(benchmark::State& state) {
    Run(state, CCovarianceMethod::Transform);
}
BENCHMARK(AutoAndCrossByTransform)->Apply(Sizes);

void AutoAndCrossByPlainSums(benchmark::State& state) {
    if (state.range(0) * state.range(1) > 1000000000) {
        state.SkipWithError("takes minutes");
        return;
    }
    Run(state, CCovarianceMethod::PlainSums);
}
BENCHMARK(AutoAndCrossByPlainSums)->Apply(Sizes);

}  // namespace
