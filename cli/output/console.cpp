#include "cli/output/console.h"

#include "cli/messages.h"
#include "cli/output/display_text.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

#ifdef _WIN32
#include <io.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace {

constexpr std::size_t kUsualWidth = 80;
constexpr std::size_t kLeastWidth = 40;
constexpr std::size_t kMostWidth = 1000;

#ifdef _WIN32
bool IsTerminal(std::FILE* stream) {
    return _isatty(_fileno(stream)) != 0;
}
std::size_t TerminalWidth(std::FILE*) {
    return 0;
}
#else
bool IsTerminal(std::FILE* stream) {
    return isatty(fileno(stream)) != 0;
}

std::size_t TerminalWidth(std::FILE* stream) {
    winsize size{};
    const bool isKnown = ioctl(fileno(stream), TIOCGWINSZ, &size) == 0;  // NOLINT(*-vararg): the system's interface
    return isKnown ? size.ws_col : 0;
}
#endif

std::string_view Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

std::size_t WidthFromEnvironment() {
    const std::string_view text = Environment("COLUMNS");
    std::size_t width = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), width);
    return result.ec == std::errc() && result.ptr == text.data() + text.size() ? width : 0;
}

std::size_t WidthOf(std::FILE* stream) {
    const std::size_t known = IsTerminal(stream) ? TerminalWidth(stream) : 0;
    const std::size_t width = known != 0 ? known : WidthFromEnvironment();
    return width == 0 ? kUsualWidth : std::clamp(width, kLeastWidth, kMostWidth);
}

// NO_COLOR counts when it is set to anything but an empty text; see no-color.org.
bool IsColorAllowed(std::FILE* stream) {
    return IsTerminal(stream) && Environment("NO_COLOR").empty() && Environment("TERM") != "dumb";
}

void Put(std::FILE* stream, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stream);
}

}  // namespace

CConsole::CConsole(std::FILE* out, std::FILE* err)
    : m_out(out),
      m_err(err),
      m_width(WidthOf(out)),
      m_errorWidth(WidthOf(err)),
      m_hasColor(IsColorAllowed(out)),
      m_isErrorTerminal(IsTerminal(err)) {}

CConsole::~CConsole() {
    EraseProgress();
}

void CConsole::Print(std::string_view text) {
    EraseProgress();
    if (m_hasOutFailed || text.empty()) {
        return;
    }
    if (std::fwrite(text.data(), 1, text.size(), m_out) != text.size()) {
        m_outError = errno;
        m_hasOutFailed = true;
    }
}

bool CConsole::FinishOutput(std::string& reason) {
    if (!m_hasOutFailed && std::fflush(m_out) != 0) {
        m_outError = errno;
        m_hasOutFailed = true;
    }
    if (m_hasOutFailed) {
        reason = std::generic_category().message(m_outError);
    }
    return !m_hasOutFailed;
}

void CConsole::Complain(std::string_view text) {
    PrintLine("quorvel-cli: " + std::string(text));
}

void CConsole::ComplainAll(const std::vector<std::string>& texts) {
    std::unordered_map<std::string_view, std::size_t> timesOf;
    for (const std::string& text : texts) ++timesOf[text];
    for (const std::string& text : texts) {
        const std::size_t times = std::exchange(timesOf[text], 0);  // reported where it first occurs
        if (times == 1) Complain(text);
        if (times > 1) Complain(cli_message::Repeated(text, times));
    }
}

void CConsole::PrintLine(std::string_view text) {
    EraseProgress();
    // A log or a pipe gets the unchanged bytes, so that a file name in a message stays correct.
    Put(m_err, m_isErrorTerminal ? DisplayText(text, true) : std::string(text));
    Put(m_err, "\n");
    std::fflush(m_err);
}

void CConsole::ShowProgress(std::string_view text) {
    if (!m_isErrorTerminal) {
        return;
    }
    // Leaves one column free: a full line would wrap and could not be erased.
    Put(m_err, "\r\x1b[K" + ElideFront(DisplayText(text), m_errorWidth - 1));
    std::fflush(m_err);
    m_isProgressShown = true;
}

void CConsole::EraseProgress() {
    if (m_isProgressShown) {
        Put(m_err, "\r\x1b[K");
        std::fflush(m_err);
        m_isProgressShown = false;
    }
}
