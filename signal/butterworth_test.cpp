#include "signal/butterworth.h"

#include "files/error.h"
#include "signal/channel_class.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace ks {
namespace {

using testing::Each;
using testing::ElementsAreArray;
using testing::ThrowsMessage;

constexpr double kPi = std::numbers::pi;
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

std::vector<double> Filtered(std::vector<double> data, double timeStepS, double frequencyHz) {
    FilterInPlace(data, timeStepS, frequencyHz);
    return data;
}

// The section's coefficients.

/// Gain of the section at `hz`, from its coefficients.
std::complex<double> Response(const CFilterSection& section, double timeStepS, double hz) {
    const std::complex<double> delay = std::polar(1.0, -2.0 * kPi * hz * timeStepS);
    return (section.a0 + section.a1 * delay + section.a2 * delay * delay) /
           (1.0 - section.b1 * delay - section.b2 * delay * delay);
}

/// Gain of the whole filter at `hz` in closed form: the bilinear transform maps a frequency f to tan(pi f T), and both
/// runs of a second-order Butterworth section together have the gain 1 / (1 + (frequency / corner)^4).
double ClosedFormGain(double timeStepS, double frequencyHz, double hz) {
    const double corner = std::tan(6.2831853 * 1.2465 * frequencyHz * timeStepS / 2.0);
    return 1.0 / (1.0 + std::pow(std::tan(kPi * hz * timeStepS) / corner, 4.0));
}

TEST(ButterworthSection, HasTheSquaredGainOfTheClosedForm) {
    for (const double frequencyHz : {100.0, 300.0, 1000.0, 1666.66666667}) {
        const CFilterSection section = ButterworthSection(5e-5, frequencyHz);
        for (double hz = 1.0; hz < 9000.0; hz *= 1.3) {
            EXPECT_NEAR(std::norm(Response(section, 5e-5, hz)), ClosedFormGain(5e-5, frequencyHz, hz), 1e-11) << hz;
        }
    }
}

TEST(ButterworthSection, HasGainOneAtFrequencyZero) {
    EXPECT_NEAR(std::abs(Response(ButterworthSection(1e-4, 100.0), 1e-4, 0.0)), 1.0, 1e-12);
    EXPECT_NEAR(std::abs(Response(ButterworthSection(1e-3, 300.0), 1e-3, 0.0)), 1.0, 1e-12);
}

TEST(ButterworthSection, IsStable) {
    for (double frequencyHz = 1.0; frequencyHz < 3875.0; frequencyHz += 25.0) {
        const CFilterSection section = ButterworthSection(1e-4, frequencyHz);
        EXPECT_LT(std::abs(section.b2), 1.0) << frequencyHz;
        EXPECT_LT(std::abs(section.b1), 1.0 - section.b2) << frequencyHz;
    }
}

// Tail lengths.

struct TailRow {
    std::string name;
    double timeStepS, frequencyHz;
    std::int32_t length;
};

class TailLength : public testing::TestWithParam<TailRow> {};

TEST_P(TailLength, IsTenMillisecondsOrOnePeriod) {
    EXPECT_EQ(FilterTailLength(GetParam().timeStepS, GetParam().frequencyHz), GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(Rows, TailLength,
                         testing::Values(TailRow{"TenMilliseconds", 1e-4, 100.0, 100},   //
                                         TailRow{"Class60", 1e-4, 100.0000000002, 100},  //
                                         TailRow{"OnePeriodOf50Hz", 1e-4, 50.0, 200},    //
                                         TailRow{"Class180At1Khz", 1e-3, 300.0, 10},     //
                                         TailRow{"RoundedHalfUp", 0.004, 100.0, 3},      // 2.5
                                         TailRow{"RoundedDown", 0.00408, 100.0, 2},      // 2.45
                                         TailRow{"AtLeastOne", 1.0, 100.0, 1},           // 0.01
                                         TailRow{"SaturatedByTheStep", 1e-12, 100.0, kMost},
                                         TailRow{"SaturatedByThePeriod", 1e-3, 1e-12, kMost},
                                         TailRow{"SaturatedAtInfinity", 1e-310, 1e-310, kMost}),
                         [](const auto& row) { return row.param.name; });

// The whole filter against a plain one.

/// The formulas written out, in the order that the results' last digits depend on.
CFilterSection PlainSection(double T, double F) {
    const double wd = 6.2831853 * 1.2465 * F;
    const double wa = std::sin(wd * T / 2.0) / std::cos(wd * T / 2.0);
    const double D = 1.0 + std::sqrt(2.0) * wa + wa * wa;
    CFilterSection section;
    section.a0 = wa * wa / D;
    section.a1 = 2.0 * section.a0;
    section.a2 = section.a0;
    section.b1 = -2.0 * (wa * wa - 1.0) / D;
    section.b2 = (-1.0 + std::sqrt(2.0) * wa - wa * wa) / D;
    return section;
}

/// Coefficients in extended precision from the Butterworth poles, wa e^(+-3 pi i / 4), moved by the bilinear transform.
struct PoleSection {
    long double a0, a1, a2, b1, b2;
};
PoleSection SectionFromPoles(double timeStepS, double frequencyHz) {
    const long double wa = std::tan(6.2831853L * 1.2465L * static_cast<long double>(frequencyHz) *
                                    static_cast<long double>(timeStepS) / 2.0L);
    const std::complex<long double> s = std::polar(wa, 0.75L * std::numbers::pi_v<long double>);
    const std::complex<long double> z = (1.0L + s) / (1.0L - s);
    const long double b1 = 2.0L * z.real();
    const long double b2 = -std::norm(z);
    const long double a0 = (1.0L - b1 - b2) / 4.0L;
    return {a0, 2.0L * a0, a0, b1, b2};
}

/// Runs the section over `inputs`, the first two of which only set the state, with both first outputs `settled`.
template <class Real, class Section>
std::vector<Real> PlainRun(const Section& s, const std::vector<Real>& inputs, Real settled) {
    std::vector<Real> out{settled, settled};
    for (std::size_t n = 2; n < inputs.size(); ++n) {
        out.push_back(s.a1 * inputs[n - 1] + s.a0 * inputs[n] + s.a2 * inputs[n - 2] + s.b1 * out[n - 1] +
                      s.b2 * out[n - 2]);
    }
    return out;
}

template <class Real>
Real FarMean(const std::vector<Real>& data, std::size_t tail) {
    Real sum = 0;
    const std::size_t half = tail / 2;
    for (std::size_t k = half + 1; k <= tail; ++k) sum += data[k];
    return sum / static_cast<Real>(tail - half);
}

/// The filter with both tails stored in front of the data.
template <class Real, class Section>
std::vector<Real> PlainFilter(const Section& section, std::vector<Real> data, std::size_t tail) {
    for (const bool isForward : {true, false}) {
        const Real twice = 2 * data[0];
        std::vector<Real> inputs{twice - data[tail], twice - data[isForward ? tail - 1 : tail + 1]};
        for (int k = static_cast<int>(tail) - (isForward ? 2 : 4); k >= 1; --k) {
            inputs.push_back(twice - data[static_cast<std::size_t>(k)]);
        }
        inputs.insert(inputs.end(), data.begin(), data.end());
        const std::vector<Real> out = PlainRun(section, inputs, twice - FarMean(data, tail));
        std::copy(out.end() - static_cast<std::ptrdiff_t>(data.size()), out.end(), data.begin());
        std::reverse(data.begin(), data.end());
    }
    return data;
}

struct FilterRow {
    std::string name;
    std::size_t length;
    double timeStepS, frequencyHz;
    std::size_t tail;
};

class AgainstPlainFilter : public testing::TestWithParam<FilterRow> {
protected:
    /// A random walk, so that it has energy at all frequencies and no special ends.
    static std::vector<double> Noise(std::size_t length) {
        std::mt19937 random(static_cast<std::uint32_t>(length));
        std::uniform_real_distribution<double> step(-1.0, 1.0);
        std::vector<double> data;
        double value = 3.0;
        for (std::size_t i = 0; i < length; ++i) data.push_back(value += step(random));
        return data;
    }
};

TEST_P(AgainstPlainFilter, AgreesToTheLastDigitInTheSameArithmetic) {
    const FilterRow& row = GetParam();
    const std::vector<double> data = Noise(row.length);

    EXPECT_THAT(Filtered(data, row.timeStepS, row.frequencyHz),
                ElementsAreArray(PlainFilter(PlainSection(row.timeStepS, row.frequencyHz), data, row.tail)));
}

TEST_P(AgainstPlainFilter, AgreesInExtendedPrecision) {
    const FilterRow& row = GetParam();
    const std::vector<double> data = Noise(row.length);
    const std::vector<double> filtered = Filtered(data, row.timeStepS, row.frequencyHz);
    const std::vector<long double> expected = PlainFilter(SectionFromPoles(row.timeStepS, row.frequencyHz),
                                                          std::vector<long double>(data.begin(), data.end()), row.tail);

    for (std::size_t i = 0; i < data.size(); ++i) {
        EXPECT_NEAR(filtered[i], static_cast<double>(expected[i]), 1e-9) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Tails, AgainstPlainFilter,
    testing::Values(FilterRow{"Class60", 2001, 1e-4, 100.0, 100}, FilterRow{"Class180", 501, 1e-4, 300.0, 100},
                    FilterRow{"Class1000", 501, 5e-5, 1666.66666667, 200}, FilterRow{"OnePeriod", 701, 1e-4, 50.0, 200},
                    FilterRow{"OddTail", 101, 0.01 / 7.0, 100.0, 7}, FilterRow{"Tail5", 101, 0.002, 100.0, 5},
                    FilterRow{"Tail4", 101, 0.0025, 100.0, 4}, FilterRow{"Tail3", 101, 0.004, 80.0, 3},
                    FilterRow{"ShortTail8", 10, 1e-3, 300.0, 8}, FilterRow{"ShortTail2", 4, 1e-3, 300.0, 2},
                    FilterRow{"ShortTail1", 3, 1e-3, 300.0, 1}),
    [](const auto& row) { return row.param.name; });

// The whole filter against closed forms.

struct SineRow {
    std::string name;
    double timeStepS, frequencyHz, hz;
};

class LongSine : public testing::TestWithParam<SineRow> {};

TEST_P(LongSine, IsScaledByTheClosedFormGainWithoutPhase) {
    const SineRow& row = GetParam();
    std::vector<double> data;
    for (int i = 0; i < 40001; ++i) data.push_back(std::sin(2.0 * kPi * row.hz * row.timeStepS * i + 0.4));
    const std::vector<double> filtered = Filtered(data, row.timeStepS, row.frequencyHz);
    const double gain = ClosedFormGain(row.timeStepS, row.frequencyHz, row.hz);

    // Far from both ends, where what they set off has died away.
    for (std::size_t i = 18000; i < 22000; ++i) EXPECT_NEAR(filtered[i], gain * data[i], 1e-10) << i;
}

INSTANTIATE_TEST_SUITE_P(
    Frequencies, LongSine,
    testing::Values(SineRow{"Class60Low", 1e-4, 100.0, 10.0}, SineRow{"Class60Class", 1e-4, 100.0, 60.0},
                    SineRow{"Class60Filter", 1e-4, 100.0, 100.0}, SineRow{"Class60Above", 1e-4, 100.0, 237.0},
                    SineRow{"Class180Filter", 1e-4, 300.0, 300.0}, SineRow{"Class180Above", 1e-4, 300.0, 1300.0},
                    SineRow{"Class600Filter", 1e-4, 1000.0, 1000.0},
                    SineRow{"Class1000Filter", 5e-5, 1666.66666667, 1666.0},
                    SineRow{"NearNyquist", 1e-4, 3875.0, 3000.0}),
    [](const auto& row) { return row.param.name; });

/// SAE J211-1, figure of the frequency response: dB limits at the class number, at 1.65 times it, and an octave higher
/// (falling between 9 and 24 dB per octave from there on).
struct CorridorRow {
    std::string name;
    std::int32_t cfc;
    double factor, lowDb, highDb;
};

class Corridor : public testing::TestWithParam<CorridorRow> {};

TEST_P(Corridor, HoldsTheGain) {
    const CorridorRow& row = GetParam();
    const double timeStepS = 1.0 / (20.0 * row.cfc);
    const double hz = row.cfc * row.factor;
    std::vector<double> data;
    for (int i = 0; i < 8001; ++i) data.push_back(std::cos(2.0 * kPi * hz * timeStepS * (i - 4000)));
    const std::vector<double> filtered = Filtered(data, timeStepS, FilterFrequencyOf(row.cfc));
    const double gainDb = 20.0 * std::log10(filtered[4000] / data[4000]);

    EXPECT_GE(gainDb, row.lowDb);
    EXPECT_LE(gainDb, row.highDb);
}

std::vector<CorridorRow> CorridorRows() {
    std::vector<CorridorRow> rows;
    for (const std::int32_t cfc : {60, 180, 600, 1000}) {
        const std::string name = "Class" + std::to_string(cfc);
        rows.push_back({name + "Low", cfc, 0.05, -0.5, 0.5});
        rows.push_back({name + "ClassNumber", cfc, 1.0, -1.0, 0.5});
        rows.push_back({name + "Corner", cfc, 1.65, -4.0, 0.5});
        rows.push_back({name + "OctaveAbove", cfc, 3.3, -4.0 - 24.0, 0.5 - 9.0});
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(SaeJ211, Corridor, testing::ValuesIn(CorridorRows()),
                         [](const auto& row) { return row.param.name; });

TEST(FilterInPlace, KeepsAConstant) {
    EXPECT_THAT(Filtered(std::vector<double>(500, 7.25), 1e-4, 100.0), Each(testing::DoubleNear(7.25, 1e-11)));
}

TEST(FilterInPlace, KeepsAStraightLineUpToTheRaggedEndTail) {
    // The point reflection continues the line and the section's delays in both directions cancel, but the end
    // tail skips samples, and the outputs before both tails are means: the middle is untouched by all that.
    std::vector<double> data;
    for (int i = 0; i < 4001; ++i) data.push_back(0.01 * i - 3.0);
    const std::vector<double> filtered = Filtered(data, 1e-4, 100.0);

    for (std::size_t i = 1500; i < 2500; ++i) EXPECT_NEAR(filtered[i], data[i], 1e-9) << i;
}

TEST(FilterInPlace, SpreadsAnImpulseEvenlyToBothSidesWithSumOne) {
    std::vector<double> data(4001, 0.0);
    data[2000] = 1.0;
    const std::vector<double> filtered = Filtered(data, 1e-4, 100.0);
    double sum = 0.0;
    for (const double value : filtered) sum += value;

    EXPECT_NEAR(sum, 1.0, 1e-12);
    EXPECT_EQ(std::max_element(filtered.begin(), filtered.end()) - filtered.begin(), 2000);
    for (std::size_t k = 1; k <= 2000; ++k) EXPECT_NEAR(filtered[2000 - k], filtered[2000 + k], 1e-14) << k;
}

TEST(FilterInPlace, SpreadsAnImpulseAsTheInverseTransformOfTheGain) {
    // The response to an impulse is (1 / pi) times the integral of gain(w) cos(w k) for w from 0 to pi; the rectangle
    // rule over a whole period is exact to rounding for so smooth a function.
    std::vector<double> data(4001, 0.0);
    data[2000] = 1.0;
    const std::vector<double> filtered = Filtered(data, 1e-4, 300.0);
    constexpr int kSteps = 8192;
    for (const int k : {0, 1, 2, 5, 10, 20, 40}) {
        double sum = 0.0;
        for (int j = 0; j < kSteps; ++j) {
            const double turns = (j + 0.5) / (2.0 * kSteps);
            sum += ClosedFormGain(1e-4, 300.0, turns / 1e-4) * std::cos(2.0 * kPi * turns * k);
        }
        EXPECT_NEAR(filtered[static_cast<std::size_t>(2000 + k)], sum / kSteps, 1e-12) << k;
    }
}

TEST(FilterInPlace, TurnsAStepIntoOneThatIsItsOwnPointReflection) {
    std::vector<double> data(4000, 0.0);
    std::fill(data.begin() + 2000, data.end(), 1.0);
    const std::vector<double> filtered = Filtered(data, 1e-4, 100.0);

    for (std::size_t k = 0; k < 2000; ++k) EXPECT_NEAR(filtered[1999 - k] + filtered[2000 + k], 1.0, 1e-12) << k;
    EXPECT_NEAR(filtered[1000], 0.0, 1e-12);
    EXPECT_NEAR(filtered[3000], 1.0, 1e-12);
}

// What it leaves alone and what it refuses.

TEST(FilterInPlace, LeavesTheDataAboveItsHighestFrequency) {
    // 0.775 of the Nyquist frequency of 1 Hz.
    const std::vector<double> data{1.0, 5.0, -2.0, 4.0, 0.0, 3.0};
    EXPECT_THAT(Filtered(data, 0.5, std::nextafter(0.775, 1.0)), ElementsAreArray(data));
    EXPECT_NE(Filtered(data, 0.5, 0.775), data);
}

TEST(FilterInPlace, LeavesOneAndTwoSamplesWithAShortTail) {
    for (const std::vector<double>& data : {std::vector{4.0}, std::vector{4.0, 9.0}}) {
        std::vector<double> copy = data;
        EXPECT_EQ(FilterInPlace(copy, 1e-3, 300.0), CFilterTail::Short);
        EXPECT_EQ(copy, data);
    }
}

TEST(FilterInPlace, TellsAShortTail) {
    std::vector<double> twelve(12, 1.0);
    EXPECT_EQ(FilterInPlace(twelve, 1e-3, 300.0), CFilterTail::Full) << "10 samples wanted, 10 there";
    std::vector<double> eleven(11, 1.0);
    EXPECT_EQ(FilterInPlace(eleven, 1e-3, 300.0), CFilterTail::Short);
    std::vector<double> tooFast(3, 1.0);
    EXPECT_EQ(FilterInPlace(tooFast, 1e-3, 499.0), CFilterTail::Full) << "nothing is done, so no tail is short";
}

TEST(FilterInPlace, TakesTheLongestTailOfATinyFrequencyWithoutOverflow) {
    std::vector<double> data(20, 2.0);
    EXPECT_EQ(FilterInPlace(data, 1e-3, 1e-300), CFilterTail::Short);
    EXPECT_THAT(data, Each(testing::DoubleNear(2.0, 1e-12)));
}

TEST(FilterInPlace, SpreadsWhatIsNotFinite) {
    std::vector<double> data(100, 1.0);
    data[50] = std::numeric_limits<double>::infinity();
    EXPECT_THAT(Filtered(data, 1e-3, 100.0), Each(testing::IsNan()));
}

TEST(FilterInPlace, RefusesInTheOrderDataStepFrequency) {
    const auto filter = [](const std::vector<double>& data, double timeStepS, double frequencyHz) {
        return [=] { Filtered(data, timeStepS, frequencyHz); };
    };
    EXPECT_THAT(filter({}, 0.0, 0.0), ThrowsMessage<CError>("Nonpositive number of Data Points"));
    EXPECT_THAT(filter({1.0}, 0.0, 0.0), ThrowsMessage<CError>("Nonpositive time step"));
    EXPECT_THAT(filter({1.0}, -1e-4, 100.0), ThrowsMessage<CError>("Nonpositive time step"));
    EXPECT_THAT(filter({1.0}, 1e-4, 0.0), ThrowsMessage<CError>("Nonpositive Cutoff Frequency"));
    EXPECT_THAT(filter({1.0}, 1e-4, -100.0), ThrowsMessage<CError>("Nonpositive Cutoff Frequency"));
}

}  // namespace
}  // namespace ks
