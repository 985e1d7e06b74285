#include "chart/metafile/code_page_1252.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace {

// Bytes 0x80 to 0x9F; 0 where the code page has no character. Below and above it agrees with Latin-1.
constexpr std::array<char16_t, 32> kMiddle{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                           0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
constexpr unsigned kMiddleStart = 0x80;
constexpr char16_t kMinusSign = 0x2212;  // of some locales' numbers

std::optional<char> Byte(char16_t character) {
    if (character < kMiddleStart || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
    if (character == kMinusSign) return '-';
    const auto found = std::find(kMiddle.begin(), kMiddle.end(), character);
    if (found == kMiddle.end()) return std::nullopt;
    return static_cast<char>(kMiddleStart + static_cast<unsigned>(found - kMiddle.begin()));
}

}  // namespace

std::optional<std::string> CodePage1252(std::u16string_view text) {
    std::string bytes;
    for (const char16_t character : text) {
        const std::optional<char> byte = Byte(character);
        if (!byte) return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}
