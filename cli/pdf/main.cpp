// quorvel-pdf-report FILE PDF short|full: the report of a UDS-1992 file, as `quorvel-cli report` wants it. A program of
// its own, so that the command line starts without Qt. It prints nothing but Qt's failures; its exit status tells the
// rest, see cli/commands/pdf_exit_code.h.

#include "cli/commands/pdf_exit_code.h"
#include "signal/formats/formats.h"
#include "signal/signal_loader.h"
#include "viewer/report_pdf.h"

#include <QApplication>

#include <array>
#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <string_view>

namespace {

// Qt's advice about the environment (a missing runtime folder, an unknown font alias) does not concern the user.
void ShowOnlyFailures(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type != QtCriticalMsg && type != QtFatalMsg) return;
    std::fprintf(stderr, "quorvel-cli: %s\n", text.toUtf8().constData());  // NOLINT(*-vararg)
}

CPdfExitCode Write(const std::string& file, const std::string& pdf, CReportMode mode) {
    const ks::CLoadedSignal loaded = ks::LoadSignalAs(ks::kUdsFormat, file);
    if (!loaded.IsLoaded()) return CPdfExitCode::NotRead;

    qInstallMessageHandler(ShowOnlyFailures);
    // Ignores what the user's desktop asks of Qt programs: without a screen, a theme plugin may end the program.
    qunsetenv("QT_QPA_PLATFORMTHEME");
    std::string name = "quorvel-cli";
    std::string option = "-platform";
    std::string platform = "offscreen";
    std::array<char*, 4> arguments = {name.data(), option.data(), platform.data(), nullptr};
    int count = 3;
    const QApplication application(count, arguments.data());
    return ExitCodeOf(WriteReportPdf(pdf, loaded.record, file, mode));
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) return static_cast<int>(CPdfExitCode::WrongUsage);
    const CReportMode mode =
        std::string_view(arguments[3]) == kFullReport ? CReportMode::Full : CReportMode::Specification;
    try {
        return static_cast<int>(Write(arguments[1], arguments[2], mode));
    } catch (const std::bad_alloc&) {
        return static_cast<int>(CPdfExitCode::NoMemory);
    } catch (const std::exception&) {
        return static_cast<int>(CPdfExitCode::Failed);
    }
}
