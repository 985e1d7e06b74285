#include "cli/exit_status.h"
#include "cli/output/console.h"
#include "cli/program.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
// windows.h before shellapi.h, which needs it.
#include <shellapi.h>
#include <windows.h>
#else
#include <csignal>
#endif

namespace {

#ifdef _WIN32
// The plain argv is in the ANSI code page, which cannot name every file.
std::vector<std::string> Arguments(int, char**) {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        const int size = WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, nullptr, 0, nullptr, nullptr);
        std::string text(static_cast<std::size_t>(size), '\0');
        WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, text.data(), size, nullptr, nullptr);
        text.pop_back();  // the terminating zero
        arguments.push_back(text);
    }
    LocalFree(wide);
    return arguments;
}

void PrepareProcess() {
    _setmode(_fileno(stdout), _O_BINARY);  // CSV line ends are CR LF already
    SetConsoleOutputCP(CP_UTF8);
}
#else
std::vector<std::string> Arguments(int argc, char** argv) {
    return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

// A closed pipe and a file beyond the size limit are outputs that could not be written; the others are still written.
void PrepareProcess() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}
#endif

}  // namespace

int main(int argc, char** argv) {
    try {
        PrepareProcess();
        CConsole console(stdout, stderr);
        return static_cast<int>(RunProgram(Arguments(argc, argv), console));
    } catch (const std::exception&) {
        return static_cast<int>(CExitStatus::Input);
    }
}
