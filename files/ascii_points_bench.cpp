#include "files/ascii_points.h"

#include "files/number_text.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace ks {
namespace {

/// Lines of `numbers` numbers, about 23 characters for two.
std::string TextOf(std::int64_t lines, int numbers) {
    std::string text;
    for (std::int64_t i = 0; i < lines; ++i) {
        text += FixedText(static_cast<double>(i) * 1e-4, 4);
        for (int j = 1; j < numbers; ++j) {
            text += '\t';
            text += FixedText(static_cast<double>(i % 977) * 0.3712345 - 100.0, 9);
        }
        text += '\n';
    }
    return text;
}

void ParsePoints(benchmark::State& state) {
    const std::string text = TextOf(state.range(0), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        CPoints points;
        points.ParseData(text);
        benchmark::DoNotOptimize(points.Columns().y.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ParsePoints)
    ->ArgNames({"lines", "numbers"})
    ->Args({10000, 2})
    ->Args({1000000, 1})
    ->Args({1000000, 2})
    ->Args({1000000, 3})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ks
