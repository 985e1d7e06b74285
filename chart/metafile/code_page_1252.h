#pragma once

#include <optional>
#include <string>
#include <string_view>

/// A text in code page 1252, the letters of western Windows programs; no value when it lacks a character.
std::optional<std::string> CodePage1252(std::u16string_view text);
