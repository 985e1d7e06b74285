#include "compare/sampling.h"

#include "signal/nsignal.h"

#include <algorithm>
#include <cstddef>

CSampling SamplingOf(const ks::CNSignal& record) {
    const std::size_t points = record.GetPointCount();
    if (points == 0) return {0, 0.0, 0.0, record.Getdelt()};
    return {points, record.GetXMin(), record.GetXMax(), record.Getdelt()};
}

bool HaveNoCommonTime(const CSampling& a, const CSampling& b) {
    if (a.points == 0 || b.points == 0) return false;
    if (a.first == b.first && a.last == b.last) return false;
    const double start = std::max(a.first, b.first);
    const double stop = std::min(a.last, b.last);
    const bool hasInstant = a.first == a.last || b.first == b.last;  // a sample alone may lie within the other signal
    return hasInstant ? start > stop : start >= stop;
}
