#pragma once

#include <string>
#include <string_view>

/// Appends UTF-8 `text` to `html` so that a browser shows exactly it: `&`, `<`, `>` and `"` as entities, characters
/// beyond ASCII as decimal references, each malformed sequence as the replacement character, "&#65533;". The result is
/// ASCII.
void AppendEscaped(std::string& html, std::string_view text);
