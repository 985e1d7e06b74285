#pragma once

#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"

namespace ratings {

// Errors of magnitude, phase and both combined. 0 is perfect everywhere; no units. With m the reference, c the
// computed signal and trapezoid weights w (the step cancels):
//
//     Smm = sum w m^2,  Scc = sum w c^2,  Smc = sum w m c,  g = sqrt(Scc / Smm),  r = Smc / sqrt(Smm Scc)
//
//                     magnitude M                          phase P         combined C
//     Sprague-Geers   g - 1                                acos(r) / pi    sqrt(M^2 + P^2)
//     Geers           g - 1                                1 - r           sqrt(M^2 + P^2)
//     Geers CSA       g - 1                                1 - |r|         sqrt(M^2 + P^2), sign of Smc
//     Russell         sign(q) log10(1 + |q|), q = g - 1/g  acos(r) / pi    sqrt(pi / 4 (M^2 + P^2))
//
// M is positive when the computed signal is larger. P of Sprague-Geers and Russell is from 0 to 1, 0.5 for
// uncorrelated signals, 1 for opposite ones. M does not change with a shift in time, P not with a gain. Russell is
// symmetric in the two signals. A Smc of exactly 0 counts as positive for Geers CSA.
//
// Not available: everything for a reference of zero; for a computed signal of zero all but M = -1, with Russell all.
//
// Sources: Sprague-Geers a published paper on seat models, Russell two public codes that agree; Geers and Geers CSA
// are to be confirmed against their papers.

/// The three errors of one metric.
struct CMagnitudePhase {
    CValue magnitude, phase, combined;
};

/// The sums that the metrics are made of, for published cases that give nothing else.
struct CProductSums {
    double referenceSquares = 0.0;  ///< Smm, >= 0
    double computedSquares = 0.0;   ///< Scc, >= 0
    double products = 0.0;          ///< Smc
};

CMagnitudePhase SpragueGeers(const CSamples& samples);
CMagnitudePhase SpragueGeers(const CProductSums& sums);
CMagnitudePhase Geers(const CSamples& samples);
CMagnitudePhase GeersCsa(const CSamples& samples);
CMagnitudePhase Russell(const CSamples& samples);

}  // namespace ratings
