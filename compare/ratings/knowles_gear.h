#pragma once

#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"

#include <optional>
#include <string_view>

namespace ratings {

/// Parameters of Knowles-Gear; defaults to be confirmed against the paper.
struct CKnowlesGearOptions {
    double arrivalShare = 0.05;   ///< share of a signal's own peak whose first crossing is its arrival; in (0, 1]
    double weightExponent = 1.0;  ///< of |m| / max |m| in the weight; >= 0
};

/// What is wrong with the options, as a sentence; no value when nothing is.
std::optional<std::string_view> FaultOf(const CKnowlesGearOptions& options);

/// All unsigned, no units, 0 is perfect.
struct CKnowlesGear {
    CValue magnitude;
    CValue arrival;  ///< error of the time of arrival
    CValue combined;
    CValue referenceArrivalS, computedArrivalS;  ///< times of arrival, in seconds
};

/// Errors of magnitude and of time of arrival by Knowles and Gear, made for shock records that start at the event.
///
/// A signal arrives when its magnitude first reaches 5 % of its own peak, on straight lines between the samples. With
/// the computed signal moved so that both arrive together, c~(t) = c(t + TOAc - TOAm) on straight lines, samples
/// without data left out, and Q = (|m| / max |m|)^p times the trapezoid weight:
///
///     M = sqrt(sum Q (c~ - m)^2 / sum Q m^2),  T = |TOAc - TOAm| / |TOAm|,  C = sqrt((10 M^2 + 2 T^2) / 12)
///
/// T depends on where time starts: it is not available, nor C, where the reference arrives at time 0. Nothing is
/// available for a signal that is zero throughout. No limit of acceptance is known. All of it is to be confirmed
/// against the paper.
///
/// @throws ks::CError for options that are refused
CKnowlesGear KnowlesGear(const CSamples& samples, const CTimeBase& time, const CKnowlesGearOptions& options = {});

/// All values not available for that reason.
CKnowlesGear UnavailableKnowlesGear(std::string_view reason);

}  // namespace ratings
