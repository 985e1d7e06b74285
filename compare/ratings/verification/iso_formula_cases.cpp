#include "compare/ratings/verification/iso_formula_cases.h"

#include "compare/ratings/iso18571.h"
#include "compare/ratings/verification/reference_case.h"
#include "compare/ratings/verification/signals.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ratings {
namespace {

struct CFormulaCase {
    std::string_view name;
    std::string_view signals;
    CPairOfSignals (*make)();
    CExpectedScores expected;
    std::int64_t lag;
};

double Bell(double height, double middle, double width, double i) {
    const double u = (i * 1e-4 - middle) / width;
    return height * std::exp(-u * u);
}

double SineOverNine(double i) {
    return std::sin(i / 9.0);
}

double Zero(double /*i*/) {
    return 0.0;
}

constexpr std::array<CFormulaCase, 11> kCases = {{
    {"bell",
     "N = 1001, t = 0.0001 i: m = 100 exp(-((t - 0.04)/0.01)^2), c = 110 exp(-((t - 0.043)/0.012)^2)",
     [] {
         return MakePair(
             1001, [](double i) { return Bell(100, 0.04, 0.01, i); },
             [](double i) { return Bell(110, 0.043, 0.012, i); });
     },
     {.8752410, .8504222, .8501499, .9572989, .8679119},
     30},
    {"ring",
     "N = 600: m = sin(i/15) exp(-i/60), c = 0.8 sin((i - 6)/16) exp(-i/50)",
     [] {
         return MakePair(
             600, [](double i) { return std::sin(i / 15) * std::exp(-i / 60); },
             [](double i) { return 0.8 * std::sin((i - 6) / 16) * std::exp(-i / 50); });
     },
     {.4796667, .8817096, .1, 0, .5349143},
     108},
    {"steps",
     "N = 300: m = round(3 sin(i/7)), c = round(3 sin((i - 3)/7))",
     [] {
         return MakePair(
             300, [](double i) { return std::round(3 * std::sin(i / 7)); },
             [](double i) { return std::round(3 * std::sin((i - 3) / 7)); });
     },
     {.7342670, .3606676, .95, 1, 1},
     3},
    {"gain",
     "N = 1500: m = sin(0.002 i), c = 1.3 m",
     [] {
         return MakePair(
             1500, [](double i) { return std::sin(.002 * i); }, [](double i) { return 1.3 * std::sin(.002 * i); });
     },
     {.7130863, .4778627, 1, .7597060, .85},
     0},
    {"ramp",
     "N = 200: m = i, c = 1.5 i",
     [] {
         return MakePair(
             200, [](double i) { return i; }, [](double i) { return 1.5 * i; });
     },
     {.5965317, .4005021, 1, .4316541, .75},
     0},
    {"late",
     "N = 200: m = sin(i/9), c = sin((i - 45)/9)",
     [] { return MakePair(200, SineOverNine, [](double i) { return std::sin((i - 45) / 9); }); },
     {.5575760, .1063305, .7, .9005065, .9747127},
     -12},
    {"opposite",
     "N = 200: m = sin(i/9), c = -m",
     [] { return MakePair(200, SineOverNine, [](double i) { return -std::sin(i / 9); }); },
     {.4726138, .0700815, .3, .9378178, .9850880},
     28},
    {"constants 10, 13",
     "N = 200: m = 10, c = 13",
     [] {
         return MakePair(
             200, [](double) { return 10.0; }, [](double) { return 13.0; });
     },
     {.5590123, .1975309, 1, .4, 1},
     0},
    {"zero reference",
     "N = 200: m = 0, c = sin(i/9); the algorithm's scores, which a comparison does not show",
     [] { return MakePair(200, Zero, SineOverNine); },
     {.202, .005, 1, 0, 0},
     0},
    {"zero computed",
     "N = 200: m = sin(i/9), c = 0",
     [] { return MakePair(200, SineOverNine, Zero); },
     {.3546872, .1367180, 1, 0, .5},
     0},
    {"both zero",
     "N = 200: m = c = 0; the algorithm's scores, which a comparison does not show",
     [] { return MakePair(200, Zero, Zero); },
     {1, 1, 1, 1, 1},
     0},
}};

}  // namespace

void ExpectScores(CReferenceCase& referenceCase, const CExpectedScores& expected, const CIso18571Scores& scores,
                  const CPrecision& precision) {
    referenceCase.Expect("ISO R", expected.r, scores.r, precision);
    referenceCase.Expect("ISO Z", expected.z, scores.z, precision);
    referenceCase.Expect("ISO EP", expected.ep, scores.ep, precision);
    referenceCase.Expect("ISO EM", expected.em, scores.em, precision);
    referenceCase.Expect("ISO ES", expected.es, scores.es, precision);
}

std::vector<CReferenceCase> IsoFormulaCases(const CIso18571Options& options) {
    std::vector<CReferenceCase> cases;
    cases.reserve(kCases.size());
    for (const CFormulaCase& row : kCases) {
        CReferenceCase referenceCase{std::string(row.name), std::string(row.signals), CCaseSource::PublicScorer};
        const CIso18571Scores scores = ScoreIso18571(row.make().View(), options);
        ExpectScores(referenceCase, row.expected, scores, kSevenDigits);
        referenceCase.Expect("ISO lag", static_cast<double>(row.lag), static_cast<double>(scores.lag), kWholeNumber);
        cases.push_back(std::move(referenceCase));
    }
    return cases;
}

}  // namespace ratings
