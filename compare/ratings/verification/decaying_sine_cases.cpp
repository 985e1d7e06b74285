#include "compare/ratings/verification/decaying_sine_cases.h"

#include "compare/ratings/knowles_gear.h"
#include "compare/ratings/magnitude_phase.h"
#include "compare/ratings/verification/reference_case.h"
#include "compare/ratings/verification/signals.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ratings {
namespace {

struct CSineCase {
    std::string_view name;
    std::string_view computed;  // how c differs from m
    double startS, gain;
    double m, p, c;  // Sprague-Geers
    double russellM, russellC;
    double knowlesGearM, toa, knowlesGearC;
};

constexpr std::array<CSineCase, 5> kCases = {{
    {"sine x 1.2", "c = 1.2 m", .14, 1.2, .2, 0, .2, .1357, .1202, .2, 0, .1826},
    {"sine x 0.8", "c = 0.8 m", .14, .8, -.2, 0, .2, -.1614, .1430, .2, 0, .1826},
    {"sine late", "c starts at 0.24", .24, 1, -.0048, .1953, .1954, -.0041, .1731, 0, .6830, .2788},
    {"sine early", "c starts at 0.04", .04, 1, .0014, .1953, .1953, .0012, .1731, 0, .6830, .2788},
    {"sine late x 1.2", "c = 1.2 times that from 0.24", .24, 1.2, .1943, .1953, .2755, .1326, .2092, .2, .6830, .3333},
}};

CReferenceCase ShortWindow(const CSineCase& row) {
    CReferenceCase referenceCase{
        std::string(row.name),
        "N = 101, t = 0.02 i: m = exp(-u) sin(2 pi u), u = t - 0.14 > 0, else 0; " + std::string(row.computed),
        CCaseSource::Definition};
    const CPairOfSignals pair{DecayingSine(.14), DecayingSine(row.startS, row.gain)};
    const CMagnitudePhase spragueGeers = SpragueGeers(pair.View());
    referenceCase.Expect("Sprague-Geers M", row.m, spragueGeers.magnitude, kFourDigits);
    referenceCase.Expect("Sprague-Geers P", row.p, spragueGeers.phase, kFourDigits);
    referenceCase.Expect("Sprague-Geers C", row.c, spragueGeers.combined, kFourDigits);
    const CMagnitudePhase russell = Russell(pair.View());
    referenceCase.Expect("Russell M", row.russellM, russell.magnitude, kFourDigits);
    referenceCase.Expect("Russell P", row.p, russell.phase, kFourDigits);
    referenceCase.Expect("Russell C", row.russellC, russell.combined, kFourDigits);
    const CKnowlesGear knowlesGear = KnowlesGear(pair.View(), {0.0, 0.02});
    referenceCase.Expect("Knowles-Gear M", row.knowlesGearM, knowlesGear.magnitude, kFourDigits);
    referenceCase.Expect("Knowles-Gear TOA", row.toa, knowlesGear.arrival, kFourDigits);
    referenceCase.Expect("Knowles-Gear C", row.knowlesGearC, knowlesGear.combined, kFourDigits);
    return referenceCase;
}

// In an endless window, with w = 2 pi and d the delay:
//     r = e^-d (cos(w d) / 2 - (2 cos(w d) - 2 w sin(w d)) / (4 + 4 w^2)) / (2 I), I = 1/4 - 1 / (4 + 4 w^2),
//     P = acos(r) / pi = 0.1958147 for d = 0.1, and M = 0.
// Trapezoids of 0.0002 s differ from the integrals by 3e-8 in P.
CReferenceCase LongWindow(std::string name, double start, const std::string& text) {
    constexpr std::size_t kCount = 100'001;
    const auto sine = [](double startIndex) {
        return [startIndex](double i) { return DecayingSineAt(0.0002 * (i - startIndex)); };
    };
    CReferenceCase referenceCase{std::move(name), "N = 100001, t = 0.0002 i: m as in sine late, c starts at " + text,
                                 CCaseSource::ClosedForm};
    const CMagnitudePhase errors = SpragueGeers(MakePair(kCount, sine(700.0), sine(start)).View());
    referenceCase.Expect("Sprague-Geers M", 0.0, errors.magnitude, kSevenDigits);
    referenceCase.Expect("Sprague-Geers P", .1958147, errors.phase, kSevenDigits);
    return referenceCase;
}

}  // namespace

std::vector<CReferenceCase> DecayingSineCases() {
    std::vector<CReferenceCase> cases;
    cases.reserve(kCases.size() + 2);
    for (const CSineCase& row : kCases) cases.push_back(ShortWindow(row));
    cases.push_back(LongWindow("long sine late", 1200.0, "0.24"));
    cases.push_back(LongWindow("long sine early", 200.0, "0.04"));
    return cases;
}

}  // namespace ratings
