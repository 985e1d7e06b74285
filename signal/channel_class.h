#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace ks {

/// The class number of data whose channel frequency class is not known.
inline constexpr std::int32_t kUnknownChannelClass = 1001;

/// The channel frequency classes of SAE J211, ascending.
inline constexpr std::array<std::int32_t, 4> kChannelClasses{60, 180, 600, 1000};

/// Whether `cfc` is one of them.
bool IsChannelClass(std::int32_t cfc);

/// The classes as a text, for example "60, 180, 600 or 1000" with ", " between them and " or " before the last.
std::string ChannelClassList(std::string_view between, std::string_view beforeLast);

/// Filter frequency in Hz of a channel frequency class: its number times 1.66666666667.
double FilterFrequencyOf(std::int32_t cfc);

/// The class that recorded filter frequencies indicate: that of the cutoff, or of the prefilter when the cutoff is 0.
/// The windows, ends excluded, lie around the classes' 3 dB frequencies of 100, 300, 1000 and 1650 Hz.
/// @return one of kChannelClasses, or kUnknownChannelClass
std::int32_t ClassifyRecordedFrequencies(double cutoffHz, double prefilterHz);

/// The class of data just filtered at `frequencyHz`, or `otherwise` when the frequency belongs to no class.
std::int32_t ClassOfFilter(double frequencyHz, std::int32_t otherwise);

}  // namespace ks
