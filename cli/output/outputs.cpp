#include "cli/output/outputs.h"

#include <filesystem>
#include <system_error>

#include "files/native_path.h"
#include "files/same_file.h"

namespace {

std::string Utf8(const std::filesystem::path& path) {
#ifdef _WIN32
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
#else
    return path.string();
#endif
}

}  // namespace

void COutputs::Write(std::string_view what, const std::string& path, std::string_view text) {
    if (path == kStandardOutput) {
        m_console.Print(text);
        return;
    }
    Note(what, path, ks::WriteFile(path, text));
}

void COutputs::Note(std::string_view what, const std::string& path, ks::WriteResult result) {
    switch (result) {
        case ks::WriteResult::Written:
            return;
        case ks::WriteResult::NotOpened:
            Fail(std::string(what) + " could not be written; the file cannot be opened for writing: " + path);
            return;
        case ks::WriteResult::NotCompleted:
            Fail(std::string(what) + " could not be written in full: " + path);
            return;
    }
}

bool COutputs::IsInput(const std::string& path) {
    for (const std::string& input : m_inputs) {
        if (ks::WouldReplace(path, input)) {
            Fail("An output would overwrite an input: " + path);
            return true;
        }
    }
    return false;
}

bool COutputs::MakeFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(ks::NativePath(path), error);
    if (!error && std::filesystem::is_directory(ks::NativePath(path), error)) {
        return true;
    }
    Fail("The folder could not be made: " + path);
    return false;
}

void COutputs::Fail(const std::string& sentence) {
    m_console.Complain(sentence);
    m_failed = true;
}

void COutputs::Finish() {
    std::string reason;
    if (!m_console.FinishOutput(reason)) {
        Fail("Standard output could not be written: " + reason);
    }
}

std::string PathIn(const std::string& folder, const std::string& name) {
    return Utf8(ks::NativePath(folder) / name);
}
