#include "cli/commands/report_command.h"

#include <string_view>

#include "cli/commands/file_input.h"
#include "cli/commands/file_options.h"
#include "cli/commands/pdf_report.h"
#include "cli/output/outputs.h"
#include "cli/usage_error.h"

CExitStatus RunReport(const std::vector<std::string>& arguments, CConsole& console) {
    const CReportOptions options = ParseReportOptions(arguments);
    if (!CanWritePdfReport()) {
        throw CUsageError("Reports need a build with the desktop program; this quorvel-cli was built without it.");
    }
    RefuseOverwriting(options.pdf, options.file);
    ks::CNSignal record;
    if (ComplaintOfReadingUds(options.file, console, record)) {
        return CExitStatus::Input;
    }
    COutputs outputs(console);
    constexpr std::string_view kWhat = "The report";
    outputs.Attempt(kWhat, options.pdf, [&] {
        outputs.Note(kWhat, options.pdf, WritePdfReport(options.pdf, record, options.file, options.full));
    });
    return outputs.Failed() ? CExitStatus::Output : CExitStatus::Good;
}
