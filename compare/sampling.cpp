#include "compare/sampling.h"

#include <algorithm>
#include <cstddef>
#include "signal/nsignal.h"

CSampling SamplingOf(const ks::CNSignal& record) {
    const std::size_t points = record.GetPointCount();
    if (points == 0) return {0, 0.0, 0.0, record.Getdelt()};
    return {points, record.GetXMin(), record.GetXMax(), record.Getdelt()};
}

bool HaveNoCommonTime(const CSampling& a, const CSampling& b) {
    if (a.points == 0 || b.points == 0) return false;
    if (a.first == b.first && a.last == b.last) return false;
    return std::max(a.first, b.first) >= std::min(a.last, b.last);
}
