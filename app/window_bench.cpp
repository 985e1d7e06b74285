#include "app/dialogs/file_picker.h"
#include "app/dialogs/printer_picker.h"
#include "app/main_frame.h"
#include "app/message_box.h"
#include "app/quorvel_view.h"
#include "app/settings.h"
#include "app/window_services.h"
#include "compare/chart_block.h"
#include "compare/plots/page_table.h"
#include "signal/nsignal.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_signals.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kSignalCount = 100;
constexpr std::size_t kPointCount = 20000;
constexpr double kTimeStepS = 0.0001;  // a smaller one is resampled to this

/// Lives as long as the program, as every window needs it.
void NeedApplication() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argumentCount = 1;
    static char name[] = "quorvel_window_bench";
    static char* arguments[] = {name, nullptr};
    static const QApplication application(argumentCount, arguments);
}

/// Everything a window needs, including its own settings.
struct CWindow {
    QTemporaryDir folder;
    QSettings store{folder.filePath("settings.ini"), QSettings::IniFormat};
    CSettings settings{store};
    CFileDialogs picker;
    CMessageBoxes messages;
    CPrinterDialogs printers;
    CMainFrame frame{{settings, picker, messages, printers}};
};

ks::CNSignal Pulse(int number) {
    std::vector<double> y(kPointCount);
    for (std::size_t i = 0; i < kPointCount; ++i) {
        const double t = static_cast<double>(i) * kTimeStepS;
        y[i] = (30.0 + 0.1 * number) * std::exp(-std::pow((t - 0.8) / 0.3, 2.0)) + std::sin(500.0 * t + number);
    }
    return MakeTimeSignal(std::move(y), kTimeStepS);
}

/// A window after a run over 100 signals of 20 000 samples, compared with the first of them.
CWindow& LoadedWindow() {
    NeedApplication();
    static CWindow window;
    if (!window.frame.Document().ComputedSignals().empty()) return window;
    const CTempFolder files;
    std::vector<std::string> paths;
    for (int i = 0; i < kSignalCount; ++i) {
        paths.push_back(WriteUds(files, QStringLiteral("v%1aa0.001").arg(i).toStdString(), Pulse(i)));
    }
    window.frame.resize(1200, 800);
    window.frame.show();
    window.frame.Document().SetComputedFiles(paths);
    window.frame.Document().CompareLoadedList(1000, 0.0, 0.0);
    return window;
}

/// From nothing to a window whose contents are painted; the application exists already.
void OpenWindow(benchmark::State& state) {
    NeedApplication();
    for (auto _ : state) {
        CWindow window;
        window.frame.show();
        window.frame.repaint();
    }
}

/// Derives the page's curves, lays them out, hands them to a new chart, and paints it.
void PageChange(benchmark::State& state) {
    CWindow& window = LoadedWindow();
    const auto pageId = static_cast<std::int32_t>(state.range(0));
    state.SetLabel(std::string(PageName(pageId)));
    for (auto _ : state) {
        window.frame.View().ChoosePage(pageId);
        window.frame.repaint();
    }
    const CChartBlock& block = window.frame.Document().ChartBlock();
    state.counters["curves"] = block.seriesCount;
    state.counters["points"] = block.pointCount;
}

BENCHMARK(OpenWindow)->Unit(benchmark::kMillisecond);
BENCHMARK(PageChange)
    ->Apply([](benchmark::internal::Benchmark* benchmark) {
        for (const std::int32_t pageId : PageIds()) benchmark->Arg(pageId);
    })
    ->Unit(benchmark::kMillisecond);

}  // namespace
