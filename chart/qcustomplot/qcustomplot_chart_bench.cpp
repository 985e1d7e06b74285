#include "chart/qcustomplot/qcustomplot_chart.h"

#include "chart/chart_control.h"
#include "chart/chart_sequences.h"
#include "chart/make_chart.h"
#include "chart/testing/sample_blocks.h"
#include "compare/chart_block.h"
#include "files/replacing_file.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QWidget>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <string>

namespace {

constexpr CChartSize kWindow{1200, 700};

/// Lives as long as the program, as every chart needs it.
void NeedApplication() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argumentCount = 1;
    static char name[] = "quorvel_chart_bench";
    static char* arguments[] = {name, nullptr};
    static const QApplication application(argumentCount, arguments);
}

CSamplePage PageOf(const benchmark::State& state) {
    NeedApplication();
    return PulsePage(static_cast<std::int32_t>(state.range(0)), static_cast<std::int32_t>(state.range(1)));
}

void CountPoints(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0) * state.range(1));
}

/// A page change: the chart is created, filled, and shown.
void PageChange(benchmark::State& state) {
    const CSamplePage page = PageOf(state);
    QWidget window;
    window.resize(kWindow.width, kWindow.height);
    window.show();
    const std::unique_ptr<CChartControl> chart = MakeChartControl();
    CLineStyles styles;
    const std::shared_ptr<const CChartBlock> block = SharedBlock(page);
    for (auto _ : state) {
        ShowChart(*chart, &window, kWindow, block, page.names, styles);
        window.repaint();
    }
    CountPoints(state);
}

void Redraw(benchmark::State& state) {
    const CSamplePage page = PageOf(state);
    QWidget window;
    window.resize(kWindow.width, kWindow.height);
    window.show();
    const std::unique_ptr<CChartControl> chart = MakeChartControl();
    CLineStyles styles;
    const std::shared_ptr<const CChartBlock> block = SharedBlock(page);
    ShowChart(*chart, &window, kWindow, block, page.names, styles);
    for (auto _ : state) chart->Draw(0, 0);
    CountPoints(state);
}

void Metafile(benchmark::State& state) {
    const CSamplePage page = PageOf(state);
    const std::unique_ptr<CChartControl> chart = MakeChartControl();
    CLineStyles styles;
    const std::shared_ptr<const CChartBlock> block = SharedBlock(page);
    ShowChart(*chart, nullptr, kWindow, block, page.names, styles);
    const QTemporaryDir folder;
    const std::string path = folder.filePath("chart.wmf").toStdString();
    for (auto _ : state)
        if (chart->ExportMetafile(kMetafileSize, path) != ks::CWriteResult::Written) state.SkipWithError("not written");
    CountPoints(state);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->Args({6, 20000})->Args({20, 20000})->Args({100, 20000})->Args({10, 1000000});
    bench->Unit(benchmark::kMillisecond);
}

BENCHMARK(PageChange)->Apply(Sizes);
BENCHMARK(Redraw)->Apply(Sizes);
BENCHMARK(Metafile)->Apply(Sizes);

}  // namespace
