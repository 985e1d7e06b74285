#include "app/command_info.h"

#include "files/hit_list.h"
#include "files/number_text.h"
#include "signal/channel_class.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace {

using CInfo = CMyCommandInfo;

class CWord {
public:
    std::string_view text;
    void (*apply)(CInfo& info);
};

constexpr auto kWords = std::to_array<CWord>({
    {"CFC1K", [](CInfo& info) { info.channelClass = 1000; }},
    {"NOSAE", [](CInfo& info) { info.isSaeFilterOn = false; }},
    {"XYZ",
     [](CInfo& info) {
         info.hasComponents = true;
         info.axisMode = 2;
     }},
    {"RESULTANT", [](CInfo& info) { info.hasComponents = false; }},
    {"WIN15", [](CInfo& info) { info.windowLength = 15.0F; }},
    {"WIN36", [](CInfo& info) { info.windowLength = 36.0F; }},
    {"NOWIN", [](CInfo& info) { info.windowLength = 0.0F; }},
    {"SFC", [](CInfo& info) { info.axisMode = 3; }},
    {"3D", [](CInfo& info) { info.axisMode = 1; }},
    {"RES", [](CInfo& info) { info.axisMode = 0; }},
    {"V10", [](CInfo& info) { info.vNumber = 10; }},
    {"V9", [](CInfo& info) { info.vNumber = 9; }},
    {"V8", [](CInfo& info) { info.vNumber = 8; }},
    {"V7", [](CInfo& info) { info.vNumber = 7; }},
    {"V6", [](CInfo& info) { info.vNumber = 6; }},
    {"LEFTSIDE", [](CInfo& info) { info.isLeftSide = true; }},  // never reached: "L" is tested before the words
    {"RIGHTSIDE", [](CInfo& info) { info.isLeftSide = false; }},
    {"A_HIC", [](CInfo& info) { info.texts[4] = "HIC"; }},
});

constexpr std::string_view kCriticalValue = "CRITICAL_VALUE";

char UpperLetter(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

std::string UpperText(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperLetter);
    return upper;
}

const CWord* FindWord(std::string_view upper) {
    const auto* const found =
        std::find_if(std::begin(kWords), std::end(kWords), [&](const CWord& word) { return word.text == upper; });
    return found == std::end(kWords) ? nullptr : found;
}

/// The channel class that a word such as "CFC60" names; 0 for any other word.
std::int32_t ClassOfWord(std::string_view upper) {
    for (const std::int32_t channelClass : ks::kChannelClasses) {
        if (upper == "CFC" + std::to_string(channelClass)) return channelClass;
    }
    return 0;
}

/// Whether a text that could also be a path is a switch: one of the rows, spelled in full.
bool IsKnownSwitch(std::string_view text) {
    const std::string upper = UpperText(text);
    return upper == "L" || upper == "O" || upper.starts_with(kCriticalValue) || FindWord(upper) != nullptr ||
           ClassOfWord(upper) != 0;
}

/// The number at the start of `text`, after white space; 0 when there is none. A number that is too large becomes
/// infinite, one that is too small becomes 0.
double LeadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    return ks::ReadLeadingNumber(text).value;
}

}  // namespace

void CMyCommandInfo::Parse(std::span<const std::string> arguments) {
    for (const std::string& argument : arguments) ParseArgument(argument);
}

void CMyCommandInfo::ParseArgument(std::string_view argument) {
    if (IsSwitch(argument)) {
        TakeSwitch(argument.substr(1));
    } else {
        TakePlain(argument);
    }
}

bool CMyCommandInfo::IsSwitch(std::string_view argument) const {
    if (argument.starts_with('-')) return true;
    if (!argument.starts_with('/')) return false;
    if (m_slashRule == CSlashRule::AlwaysSwitch) return true;
    const std::string_view rest = argument.substr(1);
    return rest.find('/') == std::string_view::npos && IsKnownSwitch(rest);
}

void CMyCommandInfo::TakeSwitch(std::string_view text) {
    if (text.empty()) return;
    const char first = UpperLetter(text.front());
    if (first == 'L' && text.size() == 1) {
        isListFileExpected = true;
        return;
    }
    if (first == 'L') {
        // The whole text comes first: a list file whose name begins with "L" may follow the dash.
        if (!AppendListFile(std::string(text))) AppendListFile(std::string(text.substr(1)));
        return;
    }
    if (first == 'O') isOutputRequested = true;

    const std::string upper = UpperText(text);
    if (const CWord* const word = FindWord(upper)) {
        word->apply(*this);
    } else if (const std::int32_t named = ClassOfWord(upper)) {
        channelClass = named;
    } else if (upper.starts_with(kCriticalValue)) {
        criticalValue = LeadingNumber(text.substr(kCriticalValue.size()));
    }
}

void CMyCommandInfo::TakePlain(std::string_view text) {
    if (!isListFileExpected) {
        files.emplace_back(text);
        return;
    }
    isListFileExpected = false;
    AppendListFile(std::string(text));
}

bool CMyCommandInfo::AppendListFile(const std::string& path) {
    const auto lines = ks::ReadHitList(path);
    if (!lines) return false;
    files.insert(files.end(), lines->begin(), lines->end());
    return true;
}
