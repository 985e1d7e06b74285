#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

/// Standard output of the program, for results, and standard error, for complaints and progress.
class CConsole {
public:
    /// Both streams must outlive the object. Color and progress need a terminal; the environment variables NO_COLOR,
    /// TERM and COLUMNS apply.
    CConsole(std::FILE* out, std::FILE* err);
    CConsole(const CConsole&) = delete;
    CConsole& operator=(const CConsole&) = delete;
    ~CConsole();

    /// Prints results on standard output. FinishOutput reports what could not be written.
    void Print(std::string_view text);
    /// Flushes the output. False when anything printed so far could not be written, with the system's reason in
    /// `reason`.
    [[nodiscard]] bool FinishOutput(std::string& reason);

    /// One complaint on standard error, followed by a line feed; it may have several lines.
    void Complain(std::string_view text);
    /// Prints all of them; equal ones appear once, in place of the first, followed by how often: "(2 times)". Both
    /// readers of signal files say the same about a missing file.
    void ComplainAll(const std::vector<std::string>& texts);
    /// The same as Complain without the program's name in front, for what is not a complaint.
    void PrintLine(std::string_view text);

    /// Shows `text` instead of the last progress line; does nothing unless standard error is a terminal.
    void ShowProgress(std::string_view text);
    void EraseProgress();

    /// Whether results may be colored.
    [[nodiscard]] bool HasColor() const { return m_hasColor; }
    /// Columns of the terminal that standard output goes to; else COLUMNS, else 80.
    [[nodiscard]] std::size_t Width() const { return m_width; }

private:
    std::FILE* m_out;
    std::FILE* m_err;
    std::size_t m_width;
    std::size_t m_errorWidth;
    int m_outError = 0;
    bool m_hasOutFailed = false;
    bool m_hasColor;
    bool m_isErrorTerminal;
    bool m_isProgressShown = false;
};
