#include "cli/commands/report_command.h"

#include "cli/commands/file_input.h"
#include "cli/commands/file_options.h"
#include "cli/commands/pdf_report.h"
#include "cli/exit_status.h"
#include "cli/messages.h"
#include "cli/output/console.h"
#include "cli/output/outputs.h"
#include "cli/usage_error.h"
#include "signal/signal_loader.h"

#include <string>
#include <string_view>
#include <vector>

CExitStatus RunReport(const std::vector<std::string>& arguments, CConsole& console) {
    const CReportOptions options = ParseReportOptions(arguments);
    if (!CanWritePdfReport()) {
        throw CUsageError(cli_message::kNoReports);
    }
    RefuseOverwriting(options.pdf, options.file);
    if (!LoadUdsOrComplain(options.file, console).IsLoaded()) return CExitStatus::Input;
    COutputs outputs(console);
    constexpr std::string_view kWhat = cli_message::kPdfReport;
    outputs.Attempt(kWhat, options.pdf, [&] {
        outputs.Record(kWhat, options.pdf, WritePdfReport(options.pdf, options.file, options.isFull));
    });
    return outputs.HasFailed() ? CExitStatus::Output : CExitStatus::Good;
}
