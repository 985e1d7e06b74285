#include "compare/html_text.h"

#include "files/utf8.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace {

void AppendAscii(std::string& html, char character) {
    switch (character) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        default:
            html += character;
    }
}

}  // namespace

void AppendEscaped(std::string& html, std::string_view text) {
    while (!text.empty()) {
        const ks::CUtf8Character first = ks::FirstUtf8Character(text);
        if (first.codePoint < 0x80) {
            AppendAscii(html, text.front());
        } else {
            html += "&#" + std::to_string(static_cast<std::uint32_t>(first.codePoint)) + ";";
        }
        text.remove_prefix(first.byteCount);
    }
}
