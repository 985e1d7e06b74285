#pragma once

#include "cli/output/console.h"
#include "cli/output/spool.h"
#include "files/replacing_file.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The path that means standard output.
inline constexpr const char* kStandardOutput = "-";

/// Writes the outputs of a command. Each is tried even if earlier ones failed; every failure is one sentence on
/// standard error.
class COutputs {
public:
    explicit COutputs(CConsole& console) : m_console(console) {}

    /// Puts `text` into the file at `path`, or prints it when that is "-". `what` names it in a sentence, for example
    /// cli_message::kHtmlReport.
    void Write(std::string_view what, const std::string& path, std::string_view text);
    /// The same for a text that is made here, within Attempt.
    void Write(std::string_view what, const std::string& path, const std::function<std::string()>& make);
    /// The same for a text in pieces, which are never put together in memory.
    void WritePieces(std::string_view what, const std::string& path, std::span<const std::string> pieces);
    /// The same for pieces that `make` puts into the sink that it is given, once.
    void WritePieces(std::string_view what, const std::string& path, const std::function<void(const TextSink&)>& make);
    /// Makes and writes an output; too little memory for it is a failure with its own sentence.
    void Attempt(std::string_view what, const std::string& path, const std::function<void()>& work);
    /// Runs `work`; too little memory for it is a failure with this sentence, and the result is then false.
    bool Attempt(std::string_view sentence, const std::function<void()>& work);
    /// Records how a file was written elsewhere.
    void Record(std::string_view what, const std::string& path, ks::CWriteResult result);
    /// Names the files that no output may replace: a measurement may exist only once.
    void Protect(std::vector<std::string> inputs) { m_inputs = std::move(inputs); }
    /// Whether `path` leads to a protected file.
    [[nodiscard]] bool Protects(const std::string& path) const;
    /// The same; if so, it is a failure with its sentence.
    bool IsInput(const std::string& path);
    /// Makes the folder at `path` with its parents. False if it does not exist afterward.
    bool MakeFolder(const std::string& path);
    /// A sentence about an output that was written and can be used.
    void Warn(const std::string& sentence) { m_console.Complain(sentence); }
    /// A failure with its own sentence.
    void Fail(const std::string& sentence);
    /// Flushes standard output.
    void Finish();

    /// Whether anything could not be written.
    [[nodiscard]] bool HasFailed() const { return m_hasFailed; }

private:
    CConsole& m_console;
    std::vector<std::string> m_inputs;
    bool m_hasFailed = false;
};

/// `name` in the folder at `folder`.
std::string PathIn(const std::string& folder, const std::string& name);
