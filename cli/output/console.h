#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

/// Standard output and standard error of the program: results to the one, complaints and progress to the other.
class CConsole {
public:
    /// Both streams must outlive the object. Colour and progress need a terminal; the environment variables NO_COLOR,
    /// TERM and COLUMNS are looked at.
    CConsole(std::FILE* out, std::FILE* err);
    CConsole(const CConsole&) = delete;
    CConsole& operator=(const CConsole&) = delete;
    ~CConsole();

    /// Results for standard output. What cannot be written shows in FinishOutput.
    void Print(std::string_view text);
    /// Sends out what is buffered. False when anything printed so far could not be written, with the system's reason
    /// in `reason`.
    [[nodiscard]] bool FinishOutput(std::string& reason);

    /// One complaint on standard error, ended by a line feed; it may have several lines.
    void Complain(std::string_view text);
    /// All of them, each run of equal ones once and followed by how often: "(2 times)". Both readers of signal files
    /// say the same of a missing file.
    void ComplainAll(const std::vector<std::string>& texts);
    /// The same as Complain without the program's name in front, for what is no complaint.
    void Note(std::string_view text);

    /// Shows `text` in place of the progress line before; nothing unless standard error is a terminal.
    void ShowProgress(std::string_view text);
    void EraseProgress();

    /// Whether results may be coloured.
    bool Color() const { return m_color; }
    /// Columns of the terminal behind standard output; else COLUMNS, else 80.
    std::size_t Width() const { return m_width; }

private:
    std::FILE* m_out;
    std::FILE* m_err;
    std::size_t m_width;
    std::size_t m_errorWidth;
    int m_outError = 0;
    bool m_outFailed = false;
    bool m_color;
    bool m_errorTerminal;
    bool m_progressShown = false;
};
