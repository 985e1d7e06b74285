#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// One entry of a help section: a term with its explanation, or, without a term, a paragraph.
struct CHelpEntry {
    std::string term;
    std::string text;
};

struct CHelpSection {
    std::string title;  ///< sentence case, for example "Exit status"
    std::vector<CHelpEntry> entries;
};

/// The help of the program or of one of its commands; `--help` and the manual page are made from it.
struct CHelpPage {
    std::string name;     ///< as typed, for example "quorvel-cli compare"
    std::string summary;  ///< one line, without a period
    std::vector<std::string> usage;
    std::vector<CHelpSection> sections;
};

/// An empty line, the title and the entries as plain text of at most `width` columns.
std::string PlainSection(const CHelpSection& section, std::size_t width = 80);

/// The page as plain text of at most `width` columns, for `--help`.
std::string PlainHelp(const CHelpPage& page, std::size_t width = 80);

/// The manual page of section 1 in man(7) macros: name and usage of the program, a section for each command, then the
/// sections of the program.
std::string ManPage(const CHelpPage& program, const std::vector<CHelpPage>& commands, std::string_view version);
