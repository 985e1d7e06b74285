#include "cli/commands/export_command.h"

#include "cli/commands/file_input.h"
#include "cli/commands/file_options.h"
#include "cli/exit_status.h"
#include "cli/messages.h"
#include "cli/output/console.h"
#include "cli/output/outputs.h"
#include "files/error.h"
#include "signal/ascii_export.h"
#include "signal/signal_loader.h"

#include <string>
#include <vector>

CExitStatus RunExport(const std::vector<std::string>& arguments, CConsole& console) {
    const CExportOptions options = ParseExportOptions(arguments);
    RefuseOverwriting(options.out, options.file);
    const ks::CLoadedSignal loaded = LoadUdsOrComplain(options.file, console);
    if (!loaded.IsLoaded()) return CExitStatus::Input;
    COutputs outputs(console);
    try {
        outputs.Write(cli_message::kAsciiFile, options.out,
                      [&] { return ks::AsciiPoints(loaded.record, options.form); });
    } catch (const ks::CError& error) {
        console.Complain(error.what());
        console.Complain(cli_message::NotExported(options.file));
        return CExitStatus::Input;
    }
    outputs.Finish();
    return outputs.HasFailed() ? CExitStatus::Output : CExitStatus::Good;
}
