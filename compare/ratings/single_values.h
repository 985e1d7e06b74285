#pragma once

#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"

namespace ratings {

/// Single values of agreement. m is the reference, c the computed signal, e = c - m, n samples, plain sums. No units
/// except for the RMS error. In brackets what is perfect, and when a value is not available.
struct CSingleValues {
    CValue rms;         ///< sqrt(sum e^2 / n), in units of Y [0]
    CValue nrmsePeak;   ///< RMS / max |m| [0; reference zero]
    CValue nrmseRange;  ///< RMS / (max m - min m) [0; reference constant]
    CValue nrmseRms;    ///< RMS / sqrt(sum m^2 / n) [0; reference zero]
    CValue pearson;     ///< correlation about the means, -1 to 1 [1; either constant]
    CValue nard;        ///< sum m c / sqrt(sum m^2 sum c^2), -1 to 1 [1; either zero]
    CValue r2;          ///< 1 - sum e^2 / sum (m - mean m)^2, may be negative [1; reference constant]
    /// sqrt(1 - (n - 1) / n * sum e^2 / sum (m - mean m)^2) [1; reference constant, negative root]
    /// Within 1e-12 of 0 the square counts as 0.
    CValue regression;
    CValue theil;      ///< sqrt(sum e^2) / (sqrt(sum m^2) + sqrt(sum c^2)), 0 to 1 [0; both zero]
    CValue whang;      ///< sum |e| / (sum |m| + sum |c|), 0 to 1 [0; both zero]
    CValue zilliacus;  ///< sum |e| / sum |m| [0; reference zero]
    CValue rss;        ///< sqrt(sum e^2) / sqrt(sum m^2) [0; reference zero]
    /// 1 - sqrt(sum w u (1 - max(0, m c) / u)^2 / sum w u), u = max(m^2, c^2), w trapezoid weights, 0 to 1 [1; both
    /// zero counts as 1]
    CValue wifac;
};

/// Sources: Whang and Zilliacus an abstract of 1994, WIFac a vendor's page of formulas; the others are textbook
/// formulas, to be confirmed where a guideline asks for one by name.
CSingleValues SingleValues(const CSamples& samples);

}  // namespace ratings
