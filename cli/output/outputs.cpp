#include "cli/output/outputs.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <system_error>

#include "files/native_path.h"
#include "files/same_file.h"

void COutputs::Write(std::string_view what, const std::string& path, std::string_view text) {
    if (path == kStandardOutput) {
        m_console.Print(text);
        return;
    }
    Note(what, path, ks::WriteFile(path, text));
}

void COutputs::Write(std::string_view what, const std::string& path, const std::function<std::string()>& make) {
    Attempt(what, path, [&] { Write(what, path, make()); });
}

void COutputs::Attempt(std::string_view what, const std::string& path, const std::function<void()>& work) {
    try {
        work();
    } catch (const std::bad_alloc&) {
        Fail(std::string(what) + " could not be written; there is not enough memory: " + path);
    } catch (const std::length_error&) {  // more than any memory holds
        Fail(std::string(what) + " could not be written; there is not enough memory: " + path);
    }
}

void COutputs::Note(std::string_view what, const std::string& path, ks::CWriteResult result) {
    switch (result) {
        case ks::CWriteResult::Written:
            return;
        case ks::CWriteResult::NotOpened:
            Fail(std::string(what) + " could not be written; the file cannot be opened for writing: " + path);
            return;
        case ks::CWriteResult::NotCompleted:
            Fail(std::string(what) + " could not be written in full: " + path);
            return;
    }
}

bool COutputs::Protects(const std::string& path) const {
    return std::ranges::any_of(m_inputs, [&path](const std::string& input) { return ks::WouldReplace(path, input); });
}

bool COutputs::IsInput(const std::string& path) {
    if (!Protects(path)) {
        return false;
    }
    Fail("An output would overwrite an input: " + path);
    return true;
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
    return ks::Utf8Path(ks::NativePath(folder) / ks::NativePath(name));
}
