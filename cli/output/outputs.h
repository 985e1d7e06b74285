#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/output/console.h"
#include "files/replacing_file.h"

/// The path that stands for standard output.
inline constexpr const char* kStandardOutput = "-";

/// Where the outputs of a command go. Each is tried, whatever became of the ones before; every failure is one sentence
/// on standard error.
class COutputs {
public:
    explicit COutputs(CConsole& console) : m_console(console) {}

    /// Puts `text` into the file at `path`, or prints it when that is "-". `what` names it in a sentence, for example
    /// "The HTML report".
    void Write(std::string_view what, const std::string& path, std::string_view text);
    /// The same for a text that is made here: where the memory for it does not suffice, that is the failure's sentence.
    void Write(std::string_view what, const std::string& path, const std::function<std::string()>& make);
    /// Takes note of how a file was written by other hands.
    void Note(std::string_view what, const std::string& path, ks::CWriteResult result);
    /// Names the files that no output may replace: a measurement may exist only once.
    void Protect(std::vector<std::string> inputs) { m_inputs = std::move(inputs); }
    /// Whether `path` leads to a protected file.
    bool Protects(const std::string& path) const;
    /// The same; it is then a failure with its sentence.
    bool IsInput(const std::string& path);
    /// Makes the folder at `path` with its parents. False when there is none afterwards.
    bool MakeFolder(const std::string& path);
    /// A sentence about an output that was written, and is of use.
    void Warn(const std::string& sentence) { m_console.Complain(sentence); }
    /// A failure with a sentence of its own.
    void Fail(const std::string& sentence);
    /// Sends out what went to standard output.
    void Finish();

    /// Whether anything could not be written.
    bool Failed() const { return m_failed; }

private:
    CConsole& m_console;
    std::vector<std::string> m_inputs;
    bool m_failed = false;
};

/// `name` in the folder at `folder`.
std::string PathIn(const std::string& folder, const std::string& name);
