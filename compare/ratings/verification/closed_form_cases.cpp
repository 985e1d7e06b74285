#include "compare/ratings/verification/closed_form_cases.h"

#include "compare/ratings/anova.h"
#include "compare/ratings/cora.h"
#include "compare/ratings/iso18571.h"
#include "compare/ratings/knowles_gear.h"
#include "compare/ratings/magnitude_phase.h"
#include "compare/ratings/samples.h"
#include "compare/ratings/single_values.h"
#include "compare/ratings/verification/iso_formula_cases.h"
#include "compare/ratings/verification/reference_case.h"
#include "compare/ratings/verification/signals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ratings {
namespace {

using std::numbers::pi;

constexpr std::string_view kWaveText = "m = 10 sin(0.05 i) exp(-0.004 i)";

CReferenceCase ClosedForm(std::string name, std::string signals) {
    return {std::move(name), std::move(signals), CCaseSource::ClosedForm};
}

// A family of three: magnitude, phase and both combined.
struct CExpectedErrors {
    double magnitude, phase, combined;
};

void ExpectErrors(CReferenceCase& referenceCase, const std::string& family, const CExpectedErrors& expected,
                  const CMagnitudePhase& errors) {
    referenceCase.Expect(family + " M", expected.magnitude, errors.magnitude, kClosedForm);
    referenceCase.Expect(family + " P", expected.phase, errors.phase, kClosedForm);
    referenceCase.Expect(family + " C", expected.combined, errors.combined, kClosedForm);
}

// c = k m: the magnitude is off by k - 1, the phase not at all.
void ExpectGainOfErrors(CReferenceCase& referenceCase, double gain, const CSamples& samples) {
    const CExpectedErrors expected{gain - 1.0, 0.0, std::abs(gain - 1.0)};
    ExpectErrors(referenceCase, "Sprague-Geers", expected, SpragueGeers(samples));
    ExpectErrors(referenceCase, "Geers", expected, Geers(samples));
    ExpectErrors(referenceCase, "Geers CSA", expected, GeersCsa(samples));
    const double q = (gain * gain - 1.0) / gain;
    const double russell = std::copysign(std::log10(1.0 + std::abs(q)), q);
    ExpectErrors(referenceCase, "Russell", {russell, 0.0, std::sqrt(pi / 4.0) * std::abs(russell)}, Russell(samples));
}

void ExpectGainOfTimed(CReferenceCase& referenceCase, double gain, const CSamples& samples) {
    const CTimeBase time;
    const double off = std::abs(gain - 1.0);
    const CKnowlesGear knowlesGear = KnowlesGear(samples, time);
    referenceCase.Expect("Knowles-Gear M", off, knowlesGear.magnitude, kClosedForm);
    referenceCase.Expect("Knowles-Gear TOA", 0.0, knowlesGear.arrival, kClosedForm);
    referenceCase.Expect("Knowles-Gear C", off * std::sqrt(10.0 / 12.0), knowlesGear.combined, kClosedForm);
    const CCora cora = Cora(samples, time);
    referenceCase.Expect("CORA shape", 1.0, cora.shape, kClosedForm);
    referenceCase.Expect("CORA size", std::min(gain * gain, 1.0 / (gain * gain)), cora.size, kClosedForm);
    referenceCase.Expect("CORA phase", 1.0, cora.phase, kClosedForm);
    referenceCase.Expect("ISO ES", 1.0 - off / 2.0, ScoreIso18571(samples).es, kClosedForm);
}

void ExpectGainOfValues(CReferenceCase& referenceCase, double gain, const CSamples& samples) {
    const double off = std::abs(gain - 1.0);
    const CSingleValues values = SingleValues(samples);
    referenceCase.Expect("NRMSE (RMS)", off, values.nrmseRms, kClosedForm);
    referenceCase.Expect("Pearson", 1.0, values.pearson, kClosedForm);
    referenceCase.Expect("NARD", 1.0, values.nard, kClosedForm);
    referenceCase.Expect("Theil", off / (gain + 1.0), values.theil, kClosedForm);
    referenceCase.Expect("Whang", off / (gain + 1.0), values.whang, kClosedForm);
    referenceCase.Expect("Zilliacus", off, values.zilliacus, kClosedForm);
    referenceCase.Expect("RSS", off, values.rss, kClosedForm);
    referenceCase.Expect("WIFac", std::min(gain, 1.0 / gain), values.wifac, kClosedForm);
}

CReferenceCase Gain(double gain, const std::string& text) {
    CReferenceCase referenceCase =
        ClosedForm("gain " + text, "N = 300, t = 0.0001 i: " + std::string(kWaveText) + ", c = " + text + " m");
    const CPairOfSignals pair = WithGain(Wave(300), gain);
    ExpectGainOfErrors(referenceCase, gain, pair.View());
    ExpectGainOfTimed(referenceCase, gain, pair.View());
    ExpectGainOfValues(referenceCase, gain, pair.View());
    return referenceCase;
}

CReferenceCase OppositeSign() {
    CReferenceCase referenceCase = ClosedForm("opposite sign", "N = 300: " + std::string(kWaveText) + ", c = -m");
    const CPairOfSignals pair = WithGain(Wave(300), -1.0);
    ExpectErrors(referenceCase, "Sprague-Geers", {0.0, 1.0, 1.0}, SpragueGeers(pair.View()));
    ExpectErrors(referenceCase, "Geers", {0.0, 2.0, 2.0}, Geers(pair.View()));
    ExpectErrors(referenceCase, "Geers CSA", {0.0, 0.0, 0.0}, GeersCsa(pair.View()));
    ExpectErrors(referenceCase, "Russell", {0.0, 1.0, std::sqrt(pi / 4.0)}, Russell(pair.View()));
    const CSingleValues values = SingleValues(pair.View());
    referenceCase.Expect("Pearson", -1.0, values.pearson, kClosedForm);
    referenceCase.Expect("NARD", -1.0, values.nard, kClosedForm);
    referenceCase.Expect("Theil", 1.0, values.theil, kClosedForm);
    referenceCase.Expect("Whang", 1.0, values.whang, kClosedForm);
    referenceCase.Expect("WIFac", 0.0, values.wifac, kClosedForm);
    return referenceCase;
}

// With the ends counted half, the sums over 600 steps are those of whole periods, and r is cos(delay).
CReferenceCase DelayedSine(double delay, const std::string& name, const std::string& text) {
    const auto sine = [](double late) { return [late](double i) { return std::sin(2.0 * pi * i / 200.0 - late); }; };
    CReferenceCase referenceCase = ClosedForm(name, "N = 601: m = sin(pi i/100), c = sin(pi i/100 - " + text + ")");
    const CPairOfSignals pair = MakePair(601, sine(0.0), sine(delay));
    ExpectErrors(referenceCase, "Sprague-Geers", {0.0, delay / pi, delay / pi}, SpragueGeers(pair.View()));
    const double phase = 1.0 - std::cos(delay);
    ExpectErrors(referenceCase, "Geers", {0.0, phase, phase}, Geers(pair.View()));
    ExpectErrors(referenceCase, "Russell", {0.0, delay / pi, std::sqrt(pi / 4.0) * delay / pi}, Russell(pair.View()));
    return referenceCase;
}

// Only the phase score falls, in proportion to the delay, to 0 at a fifth of the samples.
CReferenceCase DelayedPulse(double referenceDelay, double computedDelay, const std::string& name) {
    const double lag = computedDelay - referenceDelay;
    const std::string shown = std::to_string(static_cast<int>(lag));
    CReferenceCase referenceCase = ClosedForm(
        name, "N = 500: m = 50 sin(pi i/100) for 100 samples within zeros, c = m delayed by " + shown + " samples");
    const CPairOfSignals pair{Pulse(500, 0.3, referenceDelay), Pulse(500, 0.3, computedDelay)};
    const CIso18571Scores scores = ScoreIso18571(pair.View());
    referenceCase.Expect("ISO EP", 1.0 - std::abs(lag) / 100.0, scores.ep, kClosedForm);
    referenceCase.Expect("ISO EM", 1.0, scores.em, kClosedForm);
    referenceCase.Expect("ISO ES", 1.0, scores.es, kClosedForm);
    referenceCase.Expect("ISO lag", lag, static_cast<double>(scores.lag), kWholeNumber);
    return referenceCase;
}

// Every sample is off by the same share of the peak.
CReferenceCase Offset(double share, double corridor, const std::string& text) {
    CReferenceCase referenceCase =
        ClosedForm("offset " + text, "N = 400: " + std::string(kWaveText) + ", c = m + " + text + " max|m|");
    const std::vector<double> reference = Wave(400);
    const CPairOfSignals pair = WithGain(reference, 1.0, share * LargestMagnitude(reference));
    const CIso18571Scores scores = ScoreIso18571(pair.View());
    referenceCase.Expect("ISO Z", corridor, scores.z, kClosedForm);
    referenceCase.Expect("ISO EP", 1.0, scores.ep, kClosedForm);
    referenceCase.Expect("ISO ES", 1.0, scores.es, kClosedForm);
    const CAnova anova = Anova(pair.View());
    referenceCase.Expect("ANOVA mean", -share, anova.mean, kClosedForm);
    referenceCase.Expect("ANOVA s", 0.0, anova.standardDeviation, kClosedForm);
    referenceCase.Expect("Pearson", 1.0, SingleValues(pair.View()).pearson, kClosedForm);
    return referenceCase;
}

// e = 0.25/10 of the largest error 0.5; the other scores are perfect.
CReferenceCase CloseConstants() {
    CReferenceCase referenceCase = ClosedForm("constants 10, 10.25", "N = 100: m = 10, c = 10.25");
    const CIso18571Scores scores = ScoreIso18571(WithGain(std::vector<double>(100, 10.0), 1.0, 0.25).View());
    ExpectScores(referenceCase, {.99, 1.0, 1.0, .95, 1.0}, scores, kClosedForm);
    return referenceCase;
}

CReferenceCase AlternatingResidual() {
    CReferenceCase referenceCase =
        ClosedForm("alternating residual", "N = 100: m = 0 but for -4 at i = 50, c = m + 0.4 (-1)^i");
    CPairOfSignals pair{std::vector<double>(100, 0.0), {}};
    pair.reference[50] = -4.0;
    pair.computed = pair.reference;
    for (std::size_t i = 0; i < 100; ++i) pair.computed[i] += i % 2 == 0 ? 0.4 : -0.4;
    const CAnova anova = Anova(pair.View());
    referenceCase.Expect("ANOVA mean", 0.0, anova.mean, kClosedForm);
    referenceCase.Expect("ANOVA s", 0.1 * std::sqrt(100.0 / 99.0), anova.standardDeviation, kClosedForm);
    referenceCase.Expect("ANOVA t", 0.0, anova.t, kClosedForm);
    return referenceCase;
}

// Residuals 1/2, 0, -1/4 of the peak: mean 1/12; squares about it 25/144 + 1/144 + 16/144, halved.
CReferenceCase ThreeResiduals() {
    CReferenceCase referenceCase = ClosedForm("three residuals", "m = 4, 2, 1; c = 2, 2, 2");
    const CAnova anova = Anova({std::array{4.0, 2.0, 1.0}, std::array{2.0, 2.0, 2.0}});
    const double deviation = std::sqrt(21.0 / 144.0);
    referenceCase.Expect("ANOVA mean", 1.0 / 12.0, anova.mean, kClosedForm);
    referenceCase.Expect("ANOVA s", deviation, anova.standardDeviation, kClosedForm);
    referenceCase.Expect("ANOVA t", std::numbers::sqrt3 / 12.0 / deviation, anova.t, kClosedForm);
    return referenceCase;
}

// e = 1, 0, -2: sums of squares 5, of m 20, of c 9, of m about its mean 8, of c about its mean 2/3. In WIFac u is
// 1, 4, 16 with weights 1/2, 1, 1/2, and 1, 0, 1/2 are missing.
CReferenceCase ThreeSamples() {
    CReferenceCase referenceCase = ClosedForm("three samples", "m = 0, 2, 4; c = 1, 2, 2");
    const CSingleValues values = SingleValues({std::array{0.0, 2.0, 4.0}, std::array{1.0, 2.0, 2.0}});
    const double rms = std::sqrt(5.0 / 3.0);
    referenceCase.Expect("RMS", rms, values.rms, kClosedForm);
    referenceCase.Expect("NRMSE (peak)", rms / 4.0, values.nrmsePeak, kClosedForm);
    referenceCase.Expect("NRMSE (range)", rms / 4.0, values.nrmseRange, kClosedForm);
    referenceCase.Expect("NRMSE (RMS)", 0.5, values.nrmseRms, kClosedForm);
    referenceCase.Expect("Pearson", 2.0 / std::sqrt(16.0 / 3.0), values.pearson, kClosedForm);
    referenceCase.Expect("NARD", 12.0 / std::sqrt(180.0), values.nard, kClosedForm);
    referenceCase.Expect("R2", 3.0 / 8.0, values.r2, kClosedForm);
    referenceCase.Expect("regression", std::sqrt(7.0 / 12.0), values.regression, kClosedForm);
    referenceCase.Expect("Theil", std::sqrt(5.0) / (std::sqrt(20.0) + 3.0), values.theil, kClosedForm);
    referenceCase.Expect("Whang", 3.0 / 11.0, values.whang, kClosedForm);
    referenceCase.Expect("Zilliacus", 0.5, values.zilliacus, kClosedForm);
    referenceCase.Expect("RSS", 0.5, values.rss, kClosedForm);
    referenceCase.Expect("WIFac", 1.0 - std::sqrt(2.5 / 12.5), values.wifac, kClosedForm);
    return referenceCase;
}

// A delay of 6.5 % of the interval is in the middle between D_MIN = 1 % and D_MAX = 12 %.
CReferenceCase CoraDelay() {
    CReferenceCase referenceCase =
        ClosedForm("CORA delay",
                   "N = 1001, t = 0.001 i: m = 50 sin(pi i/200) for 200 samples within zeros, c = m delayed by 65 "
                   "samples; interval fixed to 0 ... 1 s");
    CCoraOptions options;
    options.startS = 0.0;
    options.endS = 1.0;
    const CPairOfSignals pair{Pulse(1001, 0.4), Pulse(1001, 0.4, 65)};
    const CCora cora = Cora(pair.View(), {0.0, 0.001}, options);
    referenceCase.Expect("CORA shape", 1.0, cora.shape, kClosedForm);
    referenceCase.Expect("CORA size", 1.0, cora.size, kClosedForm);
    referenceCase.Expect("CORA phase", 0.5, cora.phase, kClosedForm);
    referenceCase.Expect("CORA C2", 0.875, cora.crossCorrelation, kClosedForm);
    referenceCase.Expect("CORA lag", 65.0, cora.lag, kWholeNumber);
    return referenceCase;
}

}  // namespace

std::vector<CReferenceCase> ClosedFormCases() {
    return {Gain(1.2, "1.2"),
            Gain(0.8, "0.8"),
            OppositeSign(),
            DelayedSine(pi / 3.0, "sine 60 deg late", "pi/3"),
            DelayedSine(pi / 2.0, "sine 90 deg late", "pi/2"),
            DelayedPulse(0.0, 50.0, "pulse late"),
            DelayedPulse(50.0, 0.0, "pulse early"),
            DelayedPulse(0.0, 100.0, "pulse at the limit"),
            Offset(0.04, 1.0, "0.04"),
            Offset(0.3, std::pow(0.2 / 0.45, 2), "0.3"),
            Offset(0.51, 0.0, "0.51"),
            CloseConstants(),
            AlternatingResidual(),
            ThreeResiduals(),
            ThreeSamples(),
            CoraDelay()};
}

}  // namespace ratings
