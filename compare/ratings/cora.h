#pragma once

#include "compare/ratings/samples.h"
#include "compare/ratings/value.h"

#include <optional>
#include <string_view>

namespace ratings {

/// Parameters of the CORA-like score, under their usual names in the comments. Values are comparable only between
/// scores of equal parameters, so always show all of them with the value. Defaults of the interval, K and G_1 are those
/// of a vendor's help page; the others are to be confirmed against the CORA manual.
struct CCoraOptions {
    // Interval of evaluation.
    double startThreshold = 0.03;  ///< A_THRES: share of the peak with which the interval starts; 0 to 1
    double endThreshold = 0.075;   ///< B_THRES: share of the peak with which it ends; 0 to 1
    double widening = 0.01;        ///< A_EVAL: share of its length added at both sides; >= 0
    double endPlateau = 0.2;       ///< B_DELTA_END: share of the peak that an end plateau stays within; 0 turns it off
    std::optional<double> startS{};  ///< fixed times in seconds; they override what the thresholds give
    std::optional<double> endS{};
    // Corridor.
    double corridorInner = 0.05;  ///< a_0: half-width within which the score is 1; 0 <= a_0 < b_0 <= 1
    double corridorOuter = 0.50;  ///< b_0: half-width beyond which it is 0
    double corridorExponent = 2;  ///< K, > 0
    // Cross correlation.
    double leastDelay = 0.01;    ///< D_MIN: share of the interval up to which a delay costs nothing
    double largestDelay = 0.12;  ///< D_MAX: share from which the phase score is 0; D_MIN < D_MAX <= 1
    double leastOverlap = 0.80;  ///< INT_MIN: share of the interval that must overlap; in (0, 1]
    double shapeExponent = 10;   ///< K_V, > 0
    double sizeExponent = 1;     ///< K_G, > 0
    double phaseExponent = 1;    ///< K_P, > 0
    // Weights.
    double shapeWeight = 0.50;            ///< G_V; these three are not negative and add up to 1
    double sizeWeight = 0.25;             ///< G_G
    double phaseWeight = 0.25;            ///< G_P
    double corridorWeight = 0.5;          ///< G_1; these two are not negative and add up to 1
    double crossCorrelationWeight = 0.5;  ///< G_2

    bool operator==(const CCoraOptions&) const = default;
};

/// What is wrong with the options, as a sentence; no value when nothing is.
std::optional<std::string_view> FaultOf(const CCoraOptions& options);

/// Scores from 0 to 1, 1 is perfect.
struct CCora {
    CValue corridor;          ///< C1
    CValue shape;             ///< V, also called progression
    CValue size;              ///< G
    CValue phase;             ///< P
    CValue crossCorrelation;  ///< C2
    CValue total;             ///< C
    CValue lag;               ///< whole number of samples, positive when the computed signal comes late
    CValue startS, endS;      ///< times of the interval's first and last sample, in seconds
    bool isModified = false;  ///< a parameter is not at its default
};

/// A score built like CORA's. With m the reference, c the computed signal:
///
/// - Interval, with Y = max |m|: from the first sample with |m| >= A_THRES Y to the last with |m| >= B_THRES Y. Where
///   that is the record's last sample, the end moves back to the last sample that is further than B_DELTA_END Y from
///   the final value, if one follows the start. Then both sides are widened by A_EVAL of the length, cut to the data.
/// - Corridor: as the corridor of ISO/TS 18571 on the interval, Y taken there, exponent K.
/// - Cross correlation: parts of the interval at least ceil(INT_MIN n) samples long, K = sum m c / sqrt(sum m^2
///   sum c^2) without means; the largest K, the smallest lag on ties, late before early (FindBestLag). V =
///   ((K + 1) / 2)^K_V; G = min(Sm / Sc, Sc / Sm)^K_G, sums of squares of the parts; P = 1 below D_MIN T, 0 beyond
///   D_MAX T, else ((D_MAX T - |lag| dt) / ((D_MAX - D_MIN) T))^K_P, T the interval's length.
/// - C2 = G_V V + G_G G + G_P P, C = G_1 C1 + G_2 C2.
///
/// Not available: everything for a reference of zero or an interval below 2 samples; all but the corridor where one of
/// the parts is zero at every lag. Corridors from several references (a_sigma, b_sigma) are not offered.
/// The structure follows two vendors' manuals; to be confirmed against the CORA manual. No limit is part of it.
///
/// @throws ks::CError for options that are refused; std::bad_alloc
CCora Cora(const CSamples& samples, const CTimeBase& time, const CCoraOptions& options = {});

/// All values not available for that reason.
CCora UnavailableCora(std::string_view reason, const CCoraOptions& options);

}  // namespace ratings
