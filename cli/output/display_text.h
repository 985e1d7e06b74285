#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// `text` made safe for a terminal: "?" for each control character, U+FFFD for each byte that is not UTF-8. A file name
/// can hold anything, terminal commands included. Line feeds stay when `shouldKeepLineFeeds` is set.
std::string DisplayText(std::string_view text, bool shouldKeepLineFeeds = false);

/// Columns that `text` (UTF-8) takes on a terminal: East Asian wide characters take two, combining marks none, each
/// byte that is not UTF-8 one.
std::size_t DisplayWidth(std::string_view text);

/// Appends `text` to `target` in lines of at most `width` columns, each indented by `indent` and ended by a line feed;
/// a word longer than that has a line of its own.
void AppendWrapped(std::string& target, std::string_view text, std::size_t indent, std::size_t width);

/// `text` cut at its front to at most `width` columns, with "..." where it was cut; the end of a path tells more than
/// its start. A width below 4 gives a cut without dots.
std::string ElideFront(std::string_view text, std::size_t width);
