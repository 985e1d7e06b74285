#include "compare/ratings/parameters.h"

#include "compare/ratings/cora.h"
#include "compare/ratings/iso18571.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>

namespace ratings {
namespace {

using CIso = CIso18571Options;

constexpr std::array kIsoParameters = {
    CRatingParameter<CIso>{"corridor-inner", "half-width of the inner corridor, share of the peak",
                           &CIso::corridorInner},
    CRatingParameter<CIso>{"corridor-outer", "half-width of the outer corridor, share of the peak",
                           &CIso::corridorOuter},
    CRatingParameter<CIso>{"corridor-exponent", "exponent of the corridor score", &CIso::corridorExponent},
    CRatingParameter<CIso>{"largest-shift", "shift with the phase score 0, share of the samples",
                           &CIso::largestShiftShare},
    CRatingParameter<CIso>{"phase-exponent", "exponent of the phase score", &CIso::phaseExponent},
    CRatingParameter<CIso>{"largest-magnitude-error", "error with the magnitude score 0", &CIso::largestMagnitudeError},
    CRatingParameter<CIso>{"magnitude-exponent", "exponent of the magnitude score", &CIso::magnitudeExponent},
    CRatingParameter<CIso>{"warping-band", "half-width of the warping band, share of the samples", &CIso::warpingShare},
    CRatingParameter<CIso>{"largest-slope-error", "error with the slope score 0", &CIso::largestSlopeError},
    CRatingParameter<CIso>{"slope-exponent", "exponent of the slope score", &CIso::slopeExponent},
    CRatingParameter<CIso>{"corridor-weight", "weight of Z in R", &CIso::corridorWeight},
    CRatingParameter<CIso>{"phase-weight", "weight of EP in R", &CIso::phaseWeight},
    CRatingParameter<CIso>{"magnitude-weight", "weight of EM in R", &CIso::magnitudeWeight},
    CRatingParameter<CIso>{"slope-weight", "weight of ES in R", &CIso::slopeWeight},
};

constexpr std::array kCoraParameters = {
    CRatingParameter<CCoraOptions>{"A_THRES", "share of the peak that starts the interval",
                                   &CCoraOptions::startThreshold},
    CRatingParameter<CCoraOptions>{"B_THRES", "share of the peak that ends it", &CCoraOptions::endThreshold},
    CRatingParameter<CCoraOptions>{"A_EVAL", "share of its length added at both sides", &CCoraOptions::widening},
    CRatingParameter<CCoraOptions>{"B_DELTA_END", "share of the peak within which an end plateau stays",
                                   &CCoraOptions::endPlateau},
    CRatingParameter<CCoraOptions>{"T_MIN", "fixed start of the interval, in seconds", &CCoraOptions::startS},
    CRatingParameter<CCoraOptions>{"T_MAX", "fixed end of the interval, in seconds", &CCoraOptions::endS},
    CRatingParameter<CCoraOptions>{"a_0", "half-width of the inner corridor, share of the peak",
                                   &CCoraOptions::corridorInner},
    CRatingParameter<CCoraOptions>{"b_0", "half-width of the outer corridor, share of the peak",
                                   &CCoraOptions::corridorOuter},
    CRatingParameter<CCoraOptions>{"K", "exponent of the corridor score", &CCoraOptions::corridorExponent},
    CRatingParameter<CCoraOptions>{"D_MIN", "share of the interval up to which a delay costs nothing",
                                   &CCoraOptions::leastDelay},
    CRatingParameter<CCoraOptions>{"D_MAX", "share from which the phase score is 0", &CCoraOptions::largestDelay},
    CRatingParameter<CCoraOptions>{"INT_MIN", "share of the interval that must overlap", &CCoraOptions::leastOverlap},
    CRatingParameter<CCoraOptions>{"K_V", "exponent of the shape score", &CCoraOptions::shapeExponent},
    CRatingParameter<CCoraOptions>{"K_G", "exponent of the size score", &CCoraOptions::sizeExponent},
    CRatingParameter<CCoraOptions>{"K_P", "exponent of the phase score", &CCoraOptions::phaseExponent},
    CRatingParameter<CCoraOptions>{"G_V", "weight of the shape score", &CCoraOptions::shapeWeight},
    CRatingParameter<CCoraOptions>{"G_G", "weight of the size score", &CCoraOptions::sizeWeight},
    CRatingParameter<CCoraOptions>{"G_P", "weight of the phase score", &CCoraOptions::phaseWeight},
    CRatingParameter<CCoraOptions>{"G_1", "weight of the corridor score in the total", &CCoraOptions::corridorWeight},
    CRatingParameter<CCoraOptions>{"G_2", "weight of the cross correlation in the total",
                                   &CCoraOptions::crossCorrelationWeight},
};

char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

template <>
std::span<const CRatingParameter<CIso18571Options>> Parameters() {
    return kIsoParameters;
}

template <>
std::span<const CRatingParameter<CCoraOptions>> Parameters() {
    return kCoraParameters;
}

bool IsSameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, LowerCase, LowerCase);
}

void parameters_detail::Store(int& member, double value) {
    constexpr double kMost = 1000.0;  // a power that size already rounds every share below 1 to nearly 0
    const bool isAccepted = value >= 1.0 && value <= kMost && value == std::floor(value);
    member = isAccepted ? static_cast<int>(value) : 0;
}

}  // namespace ratings
