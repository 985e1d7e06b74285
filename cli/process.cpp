#include "cli/process.h"

#include "files/native_path.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#ifdef _WIN32
#include <windows.h>
// windows.h before process.h
#include <process.h>
#else
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

#ifdef _WIN32

namespace {

fs::path OwnPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

/// An argument as the C runtime of the started program takes it apart.
std::wstring Quoted(const std::string& argument) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : ks::NativePath(argument).native()) {
        if (c == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted.push_back(c);
    }
    quoted.append(backslashes, L'\\');
    return quoted + L"\"";
}

}  // namespace

std::string SiblingProgram(const std::string& name) {
    const fs::path own = OwnPath();
    return own.empty() ? std::string() : ks::Utf8Path(own.parent_path() / (name + ".exe"));
}

bool IsProgram(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(ks::NativePath(path), error);
}

std::optional<int> Execute(const std::vector<std::string>& command) {
    std::vector<std::wstring> texts;
    for (const std::string& argument : command) texts.push_back(Quoted(argument));
    std::vector<const wchar_t*> arguments;
    for (const std::wstring& text : texts) arguments.push_back(text.c_str());
    arguments.push_back(nullptr);
    const intptr_t status = _wspawnv(_P_WAIT, ks::NativePath(command.front()).c_str(), arguments.data());
    return status == -1 ? std::nullopt : std::optional(static_cast<int>(status));
}

#else

namespace {

std::optional<int> WaitFor(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0) {
        if (errno != EINTR) return std::nullopt;
    }
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

}  // namespace

std::string SiblingProgram(const std::string& name) {
    std::error_code error;
    const fs::path own = fs::read_symlink("/proc/self/exe", error);
    return error ? std::string() : ks::Utf8Path(own.parent_path() / name);
}

bool IsProgram(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(ks::NativePath(path), error) && ::access(path.c_str(), X_OK) == 0;
}

std::optional<int> Execute(const std::vector<std::string>& command) {
    std::vector<std::string> texts = command;
    std::vector<char*> arguments;
    arguments.reserve(texts.size() + 1);
    for (std::string& text : texts) arguments.push_back(text.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (::posix_spawn(&process, texts.front().c_str(), nullptr, nullptr, arguments.data(), environ) != 0) {
        return std::nullopt;
    }
    return WaitFor(process);
}

#endif
