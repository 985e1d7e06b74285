#include "cli/commands/show_command.h"

#include "cli/commands/file_input.h"
#include "cli/commands/file_options.h"
#include "cli/exit_status.h"
#include "cli/join.h"
#include "cli/output/console.h"
#include "cli/output/header_json.h"
#include "cli/output/header_text.h"
#include "cli/output/outputs.h"
#include "signal/signal_loader.h"

#include <string>
#include <string_view>
#include <vector>

namespace {

// One file at a time, so that the points of a long list need not fit into memory together.
bool ShowFiles(const CShowOptions& options, CConsole& console) {
    bool isGood = true;
    std::string_view gap;
    CHeaderJson json;
    for (const std::string& path : options.files) {
        const ks::CLoadedSignal loaded = LoadUdsOrComplain(path, console);
        if (!loaded.IsLoaded()) {
            isGood = false;
            json.AddError(path, loaded.complaints.front());
            continue;
        }
        if (options.isJson) {
            json.AddFile(path, loaded.record);
        } else {
            console.Print(Join({gap, HeaderReport(path, loaded.record)}));
            gap = "\n";
        }
    }
    if (options.isJson) console.Print(json.Finish());
    return isGood;
}

}  // namespace

CExitStatus RunShow(const std::vector<std::string>& arguments, CConsole& console) {
    const CShowOptions options = ParseShowOptions(arguments);
    const bool isGood = ShowFiles(options, console);
    COutputs outputs(console);
    outputs.Finish();
    if (outputs.HasFailed()) {
        return CExitStatus::Output;
    }
    return isGood ? CExitStatus::Good : CExitStatus::Input;
}
