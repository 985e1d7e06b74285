#include "signal/truncate.h"

#include "files/error.h"
#include "signal/column.h"
#include "signal/messages.h"
#include "signal/whole_number.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ks {

namespace {

/// The last sample never counts.
std::size_t WindowBound(std::size_t length, std::int32_t count) {
    const std::size_t known = std::min(length, static_cast<std::size_t>(std::max(count, 0)));
    return known == 0 ? 0 : known - 1;
}

/// The first index of `begin` ... `end` - 1 for which `isBefore` does not hold, or `end`; once it does not hold, it
/// holds for none that follows.
template <class IsBefore>
std::size_t FirstNot(std::size_t begin, std::size_t end, IsBefore isBefore) {
    while (begin < end) {
        const std::size_t middle = begin + (end - begin) / 2;
        if (isBefore(middle)) {
            begin = middle + 1;
        } else {
            end = middle;
        }
    }
    return begin;
}

}  // namespace

CIndexRange SamplesInWindow(std::span<const double> x, double start, double stop, std::int32_t count) {
    const std::size_t bound = WindowBound(x.size(), count);
    CIndexRange range;
    while (range.begin < bound && !(x[range.begin] >= start)) ++range.begin;
    range.end = range.begin;
    while (range.end < bound && x[range.end] < stop) ++range.end;
    return range;
}

CIndexRange SamplesInWindow(const CColumn& x, double start, double stop, std::int32_t count) {
    if (!x.IsAscendingByRule()) return SamplesInWindow(x.Values(), start, stop, count);
    const std::size_t bound = WindowBound(x.size(), count);
    CIndexRange range;
    range.begin = FirstNot(0, bound, [&](std::size_t i) { return !(x[i] >= start); });
    range.end = FirstNot(range.begin, bound, [&](std::size_t i) { return x[i] < stop; });
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
