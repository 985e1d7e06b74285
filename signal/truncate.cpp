#include "signal/truncate.h"

#include "files/error.h"
#include "signal/messages.h"
#include "signal/whole_number.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ks {

CIndexRange SamplesInWindow(std::span<const double> x, double start, double stop, std::int32_t count) {
    const std::size_t known = std::min(x.size(), static_cast<std::size_t>(std::max(count, 0)));
    const std::size_t bound = known == 0 ? 0 : known - 1;
    CIndexRange range;
    while (range.begin < bound && !(x[range.begin] >= start)) ++range.begin;
    range.end = range.begin;
    while (range.end < bound && x[range.end] < stop) ++range.end;
    return range;
}

std::int32_t FirstPointAt(double start, double timeStep) {
    return timeStep > 0.0 ? SaturatedWholeNumber(start / timeStep) : 0;
}

CIndexRange SamplesBetween(std::int64_t first, std::int64_t last, std::int64_t count, std::size_t length) {
    if (last <= first) throw CError(signal_message::kStopIndexNotAfterStart);
    const auto held = static_cast<std::int64_t>(length);
    if (first < 0 || last >= count || last >= held) throw CError(signal_message::kIndicesOutOfRange);
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(last) + 1};
}

}  // namespace ks
