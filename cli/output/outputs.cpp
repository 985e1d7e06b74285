#include "cli/output/outputs.h"

#include "cli/messages.h"
#include "cli/output/spool.h"
#include "files/native_path.h"
#include "files/replacing_file.h"
#include "files/same_file.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <new>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

void COutputs::Write(std::string_view what, const std::string& path, std::string_view text) {
    if (path == kStandardOutput) {
        m_console.Print(text);
        return;
    }
    Record(what, path, ks::WriteFile(path, text));
}

void COutputs::Write(std::string_view what, const std::string& path, const std::function<std::string()>& make) {
    Attempt(what, path, [&] { Write(what, path, make()); });
}

void COutputs::WritePieces(std::string_view what, const std::string& path, std::span<const std::string> pieces) {
    WritePieces(what, path, [pieces](const TextSink& put) {
        for (const std::string& piece : pieces) put(piece);
    });
}

void COutputs::WritePieces(std::string_view what, const std::string& path,
                           const std::function<void(const TextSink&)>& make) {
    if (path == kStandardOutput) {
        make([this](std::string_view text) { m_console.Print(text); });
        return;
    }
    const ks::FileMaker putAll = [&make](ks::CFileSink& sink) {
        make([&sink](std::string_view text) { sink.Put(text); });
    };
    Record(what, path, ks::WriteFile(path, putAll));
}

void COutputs::Attempt(std::string_view what, const std::string& path, const std::function<void()>& work) {
    Attempt(cli_message::NoMemoryToWrite(what, path), work);
}

bool COutputs::Attempt(std::string_view sentence, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        Fail(std::string(sentence));
    } catch (const std::length_error&) {  // more than any memory holds
        Fail(std::string(sentence));
    }
    return false;
}

void COutputs::Record(std::string_view what, const std::string& path, ks::CWriteResult result) {
    switch (result) {
        case ks::CWriteResult::Written:
            return;
        case ks::CWriteResult::NotOpened:
            Fail(cli_message::NotOpenedForWriting(what, path));
            return;
        case ks::CWriteResult::NotCompleted:
            Fail(cli_message::NotCompleted(what, path));
            return;
        case ks::CWriteResult::Damaged:
            Fail(cli_message::FileDamaged(what, path));
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
    Fail(cli_message::InputOverwritten(path));
    return true;
}

bool COutputs::MakeFolder(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directories(ks::NativePath(path), error);
    if (!error && std::filesystem::is_directory(ks::NativePath(path), error)) {
        return true;
    }
    Fail(cli_message::FolderNotMade(path));
    return false;
}

void COutputs::Fail(const std::string& sentence) {
    m_console.Complain(sentence);
    m_hasFailed = true;
}

void COutputs::Finish() {
    std::string reason;
    if (!m_console.FinishOutput(reason)) {
        Fail(cli_message::StandardOutputFailed(reason));
    }
}

std::string PathIn(const std::string& folder, const std::string& name) {
    return ks::Utf8Path(ks::NativePath(folder) / ks::NativePath(name));
}
