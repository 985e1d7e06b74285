#include "signal/data_status.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace ks {
namespace {

struct CStatusWord {
    std::string_view accepted;
    std::string_view stored;
};

/// Words that stay as they are, "MODIFIED" or "TRUNCATED", need no row.
constexpr std::array kStatusWords{
    CStatusWord{"AM", "AS MEASURED"},        CStatusWord{"CM", "COMPUTED"},
    CStatusWord{"CF", "CHANNEL FAILED"},     CStatusWord{"SF", "SYSTEM FAILED"},
    CStatusWord{"MN", "MEANINGLESS"},        CStatusWord{"NO", "NO DATA"},
    CStatusWord{"QD", "QUESTIONABLE DATA"},  CStatusWord{"SC", "SCALING FACTOR"},
    CStatusWord{"SCALED", "SCALING FACTOR"}, CStatusWord{"UN", "NOT KNOW"},
};

char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::string CanonicalDataStatus(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperAscii);
    const auto* row = std::find_if(kStatusWords.begin(), kStatusWords.end(),
                                   [&](const CStatusWord& word) { return word.accepted == upper; });
    return row == kStatusWords.end() ? upper : std::string(row->stored);
}

}  // namespace ks
