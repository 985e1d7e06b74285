#include "cli/commands/pdf_report.h"

#include "files/replacing_file.h"
#include "signal/nsignal.h"
#include "viewer/report_pdf.h"

#include <QApplication>

#include <array>
#include <cstdio>
#include <string>

namespace {

// Qt's advice about the environment (a missing runtime folder, an unknown font alias) does not concern the user.
void ShowOnlyFailures(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type != QtCriticalMsg && type != QtFatalMsg) return;
    std::fprintf(stderr, "quorvel-cli: %s\n", text.toUtf8().constData());  // NOLINT(*-vararg)
}

}  // namespace

bool CanWritePdfReport() {
    return true;
}

ks::CWriteResult WritePdfReport(const std::string& pdf, const ks::CNSignal& record, const std::string& file,
                                bool isFull) {
    qInstallMessageHandler(ShowOnlyFailures);
    // Ignores what the user's desktop asks of Qt programs: without a screen, a theme plugin may end the program.
    qunsetenv("QT_QPA_PLATFORMTHEME");
    std::string name = "quorvel-cli";
    std::string option = "-platform";
    std::string platform = "offscreen";
    std::array<char*, 4> arguments = {name.data(), option.data(), platform.data(), nullptr};
    int count = 3;
    const QApplication application(count, arguments.data());
    return WriteReportPdf(pdf, record, file, isFull ? CReportMode::Full : CReportMode::Specification);
}
