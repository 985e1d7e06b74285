#include "signal/channel_class.h"

#include "signal/whole_number.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace ks {
namespace {

struct CFrequencyWindow {
    double low, high;  ///< Hz, excluded
    std::int32_t cfc;
};

constexpr std::array kRecordedWindows{
    CFrequencyWindow{90.0, 110.0, 60},
    CFrequencyWindow{280.0, 320.0, 180},
    CFrequencyWindow{980.0, 1020.0, 600},
    CFrequencyWindow{1630.0, 1700.0, 1000},
};

struct CClassWindow {
    std::int32_t low, high;  ///< rounded class numbers, included
    std::int32_t cfc;
};

constexpr std::array kClassWindows{
    CClassWindow{55, 65, 60},
    CClassWindow{170, 190, 180},
    CClassWindow{580, 610, 600},
    CClassWindow{980, 1020, 1000},
};

}  // namespace

bool IsChannelClass(std::int32_t cfc) {
    return std::ranges::find(kChannelClasses, cfc) != kChannelClasses.end();
}

std::string ChannelClassList(std::string_view between, std::string_view beforeLast) {
    std::string list;
    for (const std::int32_t cfc : kChannelClasses) {
        if (cfc != kChannelClasses.front()) list += cfc == kChannelClasses.back() ? beforeLast : between;
        list += std::to_string(cfc);
    }
    return list;
}

double FilterFrequencyOf(std::int32_t cfc) {
    return cfc * 1.66666666667;
}

std::int32_t ClassifyRecordedFrequencies(double cutoffHz, double prefilterHz) {
    const double f = cutoffHz != 0.0 ? cutoffHz : prefilterHz;
    const auto* window = std::find_if(kRecordedWindows.begin(), kRecordedWindows.end(),
                                      [&](const CFrequencyWindow& w) { return w.low < f && f < w.high; });
    return window == kRecordedWindows.end() ? kUnknownChannelClass : window->cfc;
}

std::int32_t ClassOfFilter(double frequencyHz, std::int32_t otherwise) {
    const std::int32_t c = SaturatedWholeNumber(frequencyHz * 0.6);
    const auto* window = std::find_if(kClassWindows.begin(), kClassWindows.end(),
                                      [&](const CClassWindow& w) { return w.low <= c && c <= w.high; });
    return window == kClassWindows.end() ? otherwise : window->cfc;
}

}  // namespace ks
