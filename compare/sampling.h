#pragma once

#include "signal/nsignal.h"

#include <cstddef>

/// How a curve is sampled: what preparation may change without changing what was measured.
struct CSampling {
    std::size_t points = 0;  ///< number of Y values
    double first = 0.0;      ///< smallest and largest X, in X units; 0 without points
    double last = 0.0;
    double step = 0.0;  ///< time step in X units; 0 for points without a fixed one
};

/// Takes no time that grows with the record.
CSampling SamplingOf(const ks::CNSignal& record);

/// Whether the times of both curves have no span in common: one ends before, or just when, the other starts. Of a curve
/// at a single instant only whether that lies outside the other. False when either has no points, and for two curves of
/// the same range.
bool HaveNoCommonTime(const CSampling& a, const CSampling& b);
