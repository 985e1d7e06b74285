#include "files/uds_file.h"

#include "files/number_format.h"
#include "files/points.h"
#include "files/uds_content.h"
#include "files/uds_layout.h"
#include "files/uds_reader.h"
#include "files/uds_writer.h"
#include "tests/support/memory_source.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace ks {
namespace {

CUDS1992 FileOf(std::int64_t count, const char* form) {
    CPointColumns columns;
    for (std::int64_t i = 0; i < count; ++i) {
        columns.x.push_back(static_cast<double>(i) * 1e-4);
        columns.y.push_back(static_cast<double>(i % 977) * 0.37 - 100.0);
    }
    CUDS1992 file;
    file.SetColumns(std::move(columns));
    file.Fields().SetFILEFORM(form);
    file.Fields().SetNLP(static_cast<std::int32_t>(count - 1));
    file.Fields().Setdelt(1e-4F);
    return file;
}

/// The image in any of the three formats; the writer itself offers only two.
std::vector<std::byte> ImageIn(CNumberFormat format, std::int64_t count, const char* form) {
    CUDS1992 file = FileOf(count, form);
    CUDSContent content;
    content.fields = file.Fields();
    content.fields.SetNUMFORM(std::string(NumberFormatName(format)));
    content.columns = file.TakeColumns();
    content.formats = FormatsOf(NumberFormatName(format));
    return MakeUdsImage(content, CUDSGeometry{}, ProbeMachineFormats());
}

void ReadImage(benchmark::State& state, CNumberFormat format, const char* form) {
    const std::vector<std::byte> image = ImageIn(format, state.range(0), form);
    for (auto _ : state) {
        CMemorySource source(image);
        CUDSContent content;
        ks::ReadUds(source, CUDSGeometry{}, content);
        benchmark::DoNotOptimize(content.columns.y.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(image.size()));
}
BENCHMARK_CAPTURE(ReadImage, Ieee, CNumberFormat::Ieee, "X-Y")->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ReadImage, Sun, CNumberFormat::Sun, "X-Y")->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ReadImage, Vax, CNumberFormat::Vax, "X-Y")->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ReadImage, SunOrdinates, CNumberFormat::Sun, "Y")->Arg(1000000)->Unit(benchmark::kMicrosecond);

void WriteUds(benchmark::State& state, bool isSun) {
    CUDS1992 file = FileOf(state.range(0), "X-Y");
    file.SetSunOutput(isSun);
    for (auto _ : state) benchmark::DoNotOptimize(file.MakeImage());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(WriteUds, Machine, false)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(WriteUds, Sun, true)->Arg(1000000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace ks
