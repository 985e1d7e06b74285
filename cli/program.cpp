#include "cli/program.h"

#include "cli/commands/compare_command.h"
#include "cli/commands/compare_help.h"
#include "cli/commands/convert_command.h"
#include "cli/commands/export_command.h"
#include "cli/commands/file_help.h"
#include "cli/commands/report_command.h"
#include "cli/commands/show_command.h"
#include "cli/commands/verify_command.h"
#include "cli/commands/verify_help.h"
#include "cli/exit_status.h"
#include "cli/help_text.h"
#include "cli/join.h"
#include "cli/messages.h"
#include "cli/output/console.h"
#include "cli/usage_error.h"

#include <algorithm>
#include <array>
#include <exception>
#include <initializer_list>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace {

const std::array<CSubcommand, 6> kCommands = {{
    {"compare", CompareHelp, RunCompare},
    {"show", ShowHelp, RunShow},
    {"export", ExportHelp, RunExport},
    {"convert", ConvertHelp, RunConvert},
    {"report", ReportHelp, RunReport},
    {"verify", VerifyHelp, RunVerify},
}};

constexpr const char* kVersion = QUORVEL_VERSION;

const CSubcommand* FindCommand(const std::string& name) {
    const auto* const found = std::find_if(kCommands.begin(), kCommands.end(),
                                           [&name](const CSubcommand& command) { return command.name == name; });
    return found == kCommands.end() ? nullptr : &*found;
}

// Whether one of `names` is among the options, that is, before "--".
bool Asks(const std::vector<std::string>& arguments, std::initializer_list<std::string_view> names) {
    const auto end = std::find(arguments.begin(), arguments.end(), "--");
    return std::find_first_of(arguments.begin(), end, names.begin(), names.end()) != end;
}

CHelpSection ExitStatusHelp() {
    return {"Exit status",
            {{"", "The first one in this list that applies:"},
             {"2", "Wrong usage, or a command that this build does not have; nothing was read or written."},
             {"4",
              "An output could not be written. The others were. Existing files stay unchanged, unless the message "
              "says that one is damaged."},
             {"3",
              "A signal, a hit list, the reference or a file of --annex could not be read, a point could not be "
              "exported, or the run collected an error message. All messages go to standard error."},
             {"1", "--fail-on-bad found a bad verdict, or a check of verify failed."},
             {"0", "Everything requested was done."}}};
}

CHelpSection EnvironmentHelp() {
    return {"Environment",
            {{"NO_COLOR",
              "When set and not empty, the table has no colors. Colors appear only on a terminal; every verdict "
              "is also a word."},
             {"COLUMNS", "Width of the table when standard output is not a terminal. Default: 80."}}};
}

// The help of a single command includes what all commands share; the manual page says that once.
std::string CommandHelp(const CSubcommand& command) {
    CHelpPage page = command.help();
    page.sections.push_back(ExitStatusHelp());
    page.sections.push_back(EnvironmentHelp());
    return PlainHelp(page);
}

std::string ManualPage() {
    std::vector<CHelpPage> commands;
    commands.reserve(kCommands.size());
    for (const CSubcommand& command : kCommands) {
        commands.push_back(command.help());
    }
    return ManPage(ProgramHelp(), commands, kVersion);
}

CExitStatus PrintAndFinish(CConsole& console, const std::string& text) {
    console.Print(text);
    std::string reason;
    if (!console.FinishOutput(reason)) {
        console.Complain(cli_message::StandardOutputFailed(reason));
        return CExitStatus::Output;
    }
    return CExitStatus::Good;
}

CExitStatus RunCommand(const CSubcommand& command, const std::vector<std::string>& arguments, CConsole& console) {
    if (Asks(arguments, {"--help", "-h"})) {
        return PrintAndFinish(console, CommandHelp(command));
    }
    if (Asks(arguments, {"--version"})) {
        return PrintAndFinish(console, "quorvel-cli " + std::string(kVersion) + "\n");
    }
    try {
        return command.run(arguments, console);
    } catch (const CUsageError& error) {
        console.Complain(error.what());
        console.PrintLine(cli_message::TryHelp(command.name));
        return CExitStatus::Usage;
    }
}

CExitStatus Dispatch(const std::vector<std::string>& arguments, CConsole& console) {
    const std::string first = arguments.empty() ? std::string() : arguments.front();
    if (const CSubcommand* const command = FindCommand(first)) {
        return RunCommand(*command, {arguments.begin() + 1, arguments.end()}, console);
    }
    if (first == "--help" || first == "-h") {
        return PrintAndFinish(console, PlainHelp(ProgramHelp()));
    }
    if (first == "--version") {
        return PrintAndFinish(console, "quorvel-cli " + std::string(kVersion) + "\n");
    }
    if (first == "--man") {  // the build makes the manual page with this
        return PrintAndFinish(console, ManualPage());
    }
    console.Complain(arguments.empty() ? std::string(cli_message::kNoCommand) : cli_message::UnknownCommand(first));
    console.PrintLine(cli_message::TryHelp({}));
    return CExitStatus::Usage;
}

}  // namespace

CHelpPage ProgramHelp() {
    CHelpSection commands{"Commands", {}};
    for (const CSubcommand& command : kCommands) {
        commands.entries.push_back(
            {command.name, Join({command.help().summary, ". See quorvel-cli ", command.name, " --help."})});
    }
    return {"quorvel-cli",
            "Compare crash-test signals and inspect their files from the command line",
            {"quorvel-cli COMMAND [OPTION]... FILE...", "quorvel-cli --help", "quorvel-cli --version"},
            {commands, ExitStatusHelp(), EnvironmentHelp()}};
}

CExitStatus RunProgram(const std::vector<std::string>& arguments, CConsole& console) {
    try {
        return Dispatch(arguments, console);
    } catch (const std::bad_alloc&) {
        console.Complain(cli_message::kNoMemory);
    } catch (const std::exception& error) {
        console.Complain(error.what());
    }
    return CExitStatus::Input;
}
