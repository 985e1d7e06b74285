#include "compare/comparison.h"

#include "compare/chart_block.h"
#include "compare/export.h"
#include "files/replacing_file.h"
#include "signal/nsignal.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>
#include <vector>

namespace {

constexpr double kStep = 1e-5;

/// `count` samples of a decaying oscillation; two phases give two signals that resemble each other.
ks::CNSignal MakeSignal(std::int64_t count, double phase) {
    std::vector<double> y(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < y.size(); ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(y.size());
        y[i] = 40.0 * std::exp(-3.0 * part) * std::sin(60.0 * part + phase);
    }
    ks::CNSignal record;
    record.Setdelt(kStep);
    record.SetNLP(static_cast<std::int32_t>(count) - 1);
    record.SetData(std::move(y));
    return record;
}

void BM_MeasuresOnOneRange(benchmark::State& state) {
    ks::CNSignal computed = MakeSignal(state.range(0), 0.1);
    const ks::CNSignal reference = MakeSignal(state.range(0), 0.0);
    CComparison measures;
    for (auto _ : state) {
        measures.Compute(computed, reference);
        benchmark::DoNotOptimize(measures);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_MeasuresOnOneRange)->Arg(3'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

/// The same with both signals cut first; what is cut is copied again for every turn.
void BM_MeasuresAfterACut(benchmark::State& state) {
    const ks::CNSignal shorter = MakeSignal(state.range(0) * 9 / 10, 0.1);
    const ks::CNSignal reference = MakeSignal(state.range(0), 0.0);
    CComparison measures;
    for (auto _ : state) {
        state.PauseTiming();
        ks::CNSignal computed = shorter;
        state.ResumeTiming();
        measures.Compute(computed, reference);
        benchmark::DoNotOptimize(measures);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_MeasuresAfterACut)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

void BM_AsciiTable(benchmark::State& state) {
    const ks::CNSignal record = MakeSignal(state.range(0), 0.0);
    CChartBlock block;
    block.pointCount = static_cast<std::int32_t>(state.range(0));
    block.seriesCount = 1;
    block.x = record.GetX().ToVector();
    block.y = record.GetY().ToVector();
    std::FILE* const stream = std::tmpfile();
    ks::CFileSink sink(stream);
    for (auto _ : state) {
        std::rewind(stream);
        PutAsciiTable(block, sink);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(sink.Size()));
    std::fclose(stream);
}
BENCHMARK(BM_AsciiTable)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
