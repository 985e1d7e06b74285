#include "cli/help_text.h"

#include "cli/output/display_text.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t kTermIndent = 2;
constexpr std::size_t kTextIndent = 6;

// Text of a manual page: no character acts as a command, and options keep their hyphens when copied.
std::string Roff(std::string_view text) {
    std::string roff;
    if (!text.empty() && (text.front() == '.' || text.front() == '\'')) {
        roff += "\\&";
    }
    for (const char c : text) {
        if (c == '\\') {
            roff += "\\e";
        } else if (c == '-') {
            roff += "\\-";
        } else {
            roff += c;
        }
    }
    return roff;
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return upper;
}

// The NAME line of a manual page is "name - what it does", without a capital.
std::string LowerFirst(std::string text) {
    if (!text.empty()) {
        text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    }
    return text;
}

void AppendRoffSection(std::string& man, const CHelpSection& section, std::string_view macro) {
    man += std::string(macro) + " \"" + Roff(section.title) + "\"\n";
    for (const CHelpEntry& entry : section.entries) {
        man += entry.term.empty() ? std::string(".PP\n") : ".TP\n.B " + Roff(entry.term) + "\n";
        man += Roff(entry.text) + "\n";
    }
}

void AppendUsage(std::string& man, const CHelpPage& page) {
    for (const std::string& usage : page.usage) {
        man += ".PP\n" + Roff(usage) + "\n";
    }
}

}  // namespace

std::string PlainSection(const CHelpSection& section, std::size_t width) {
    std::string text = "\n" + section.title + ":\n";
    for (const CHelpEntry& entry : section.entries) {
        if (!entry.term.empty()) {
            text += std::string(kTermIndent, ' ') + entry.term + "\n";
        }
        AppendWrapped(text, entry.text, entry.term.empty() ? kTermIndent : kTextIndent, width);
    }
    return text;
}

std::string PlainHelp(const CHelpPage& page, std::size_t width) {
    std::string help;
    AppendWrapped(help, page.summary + ".", 0, width);
    help += "\nUsage:\n";
    for (const std::string& usage : page.usage) {
        AppendWrapped(help, usage, kTermIndent, width);
    }
    for (const CHelpSection& section : page.sections) help += PlainSection(section, width);
    return help;
}

std::string ManPage(const CHelpPage& program, const std::vector<CHelpPage>& commands, std::string_view version) {
    // No date, so that every build of a version gives the same page.
    std::string man =
        ".TH " + UpperCase(Roff(program.name)) + " 1 \"\" \"Quorvel " + std::string(version) + "\" \"User Commands\"\n";
    man += ".SH NAME\n" + Roff(program.name) + " \\- " + LowerFirst(Roff(program.summary)) + "\n";
    man += ".SH SYNOPSIS\n";
    AppendUsage(man, program);
    for (const CHelpPage& command : commands) {
        man += ".SH \"" + UpperCase(Roff(command.name)) + "\"\n" + Roff(command.summary) + ".\n";
        AppendUsage(man, command);
        for (const CHelpSection& section : command.sections) {
            AppendRoffSection(man, section, ".SS");
        }
    }
    for (CHelpSection section : program.sections) {
        section.title = UpperCase(section.title);
        AppendRoffSection(man, section, ".SH");
    }
    return man;
}
