#include "files/error.h"
#include "signal/data.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace ks {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

/// Samples of 1 + 2 t at the multiples of `timeStep`, with a Z that operations must clear and odd descriptors.
CData Ramp(double timeStep, std::int32_t first, std::int32_t last) {
    CData data;
    data.Setdelt(timeStep);
    data.SetNFP(first);
    data.SetNLP(last);
    std::vector<double> y;
    for (std::int32_t i = first; i <= last; ++i) y.push_back(1.0 + 2.0 * (timeStep * i));
    const std::size_t count = y.size();
    data.SetData({}, std::move(y), std::vector<double>(count, 5.0));
    data.SetDataStatus("AM");
    return data;
}

/// A record with any axis, numbered from 0.
CData Over(std::vector<double> x) {
    CData data;
    data.SetNLP(static_cast<std::int32_t>(x.size()) - 1);
    std::vector<double> y(x.size(), 1.0);
    data.SetData(std::move(x), std::move(y));
    return data;
}

/// Runs a call that must fail and returns its sentence; the record must not change.
template <class Call>
std::string Refusal(CData& data, Call call) {
    const CData before = data;
    std::string text = "nothing was thrown";
    try {
        call(data);
    } catch (const CError& error) {
        text = error.what();
    }
    EXPECT_EQ(data.GetX(), before.GetX());
    EXPECT_EQ(data.GetY(), before.GetY());
    EXPECT_EQ(data.GetZ(), before.GetZ());
    EXPECT_EQ(data.GetNFP(), before.GetNFP());
    EXPECT_EQ(data.GetNLP(), before.GetNLP());
    EXPECT_EQ(data.Getdelt(), before.Getdelt());
    EXPECT_EQ(data.GetStartTime(), before.GetStartTime());
    EXPECT_EQ(data.GetEndTime(), before.GetEndTime());
    EXPECT_EQ(data.GetDataStatus(), before.GetDataStatus());
    EXPECT_EQ(data.GetYUNITS(), before.GetYUNITS());
    EXPECT_EQ(data.GetYQuantity(), before.GetYQuantity());
    EXPECT_EQ(data.IsModified(), before.IsModified());
    return text;
}

std::string ResampleRefusal(CData data, double dt) {
    return Refusal(data, [&](CData& record) { record.Resample(dt); });
}
std::string IntegrateRefusal(CData data) {
    return Refusal(data, [](CData& record) { record.Integrate(); });
}
std::string TimeRefusal(CData data, double start, double stop) {
    return Refusal(data, [&](CData& record) { record.TruncateByTime(start, stop); });
}
std::string IndexRefusal(CData data, std::int32_t start, std::int32_t stop) {
    return Refusal(data, [&](CData& record) { record.TruncateByIndex(start, stop); });
}

// Resample.

TEST(Resample, GivesTheMultiplesOfTheRequestedStep) {
    CData data = Ramp(0.0005, 0, 20);
    EXPECT_TRUE(data.Resample(0.001));

    EXPECT_EQ(data.GetNFP(), 0);
    EXPECT_EQ(data.GetNLP(), 10);
    EXPECT_EQ(data.Getdelt(), 0.001);
    ASSERT_THAT(data.GetX(), SizeIs(11));
    for (std::size_t i = 0; i < 11; ++i) {
        EXPECT_EQ(data.GetX()[i], 0.001 * static_cast<double>(i));
        EXPECT_NEAR(data.GetY()[i], 1.0 + 0.002 * static_cast<double>(i), 1e-15);
    }
}

TEST(Resample, BringsLimitsUpToDateAndClearsZ) {
    CData data = Ramp(0.0005, 0, 20);
    data.Resample(0.001);

    EXPECT_THAT(data.GetZ(), ElementsAre(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(data.GetZMax(), 0.0);
    EXPECT_EQ(data.GetStartTime(), 0.0);
    EXPECT_EQ(data.GetEndTime(), 10 * 0.001);
    EXPECT_EQ(data.GetXMax(), 0.001 * 10);
    EXPECT_TRUE(data.IsModified());
    EXPECT_EQ(data.GetDataStatus(), "AS MEASURED");
}

TEST(Resample, ClearsZAlsoWhenTheLengthStays) {
    CData data = Ramp(0.001, 0, 10);
    data.Resample(0.001);

    EXPECT_THAT(data.GetZ(), SizeIs(11));
    EXPECT_THAT(data.GetZ(), Each(0.0));
}

TEST(Resample, ToItsOwnStepLosesTheFirstSampleBeforeTimeZero) {
    CData data = Ramp(0.001, -10, 20);
    data.Resample(0.001);

    EXPECT_EQ(data.GetNFP(), -9);
    EXPECT_EQ(data.GetNLP(), 20);
    EXPECT_THAT(data.GetY(), SizeIs(30));
}

TEST(Resample, IsExactForALineAtAFinerStep) {
    CData data = Ramp(0.01, -100, 100);
    data.Resample(0.0007);

    for (std::size_t i = 0; i < data.GetPointCount(); ++i) {
        EXPECT_NEAR(data.GetY()[i], 1.0 + 2.0 * data.GetX()[i], 1e-14) << i;
    }
}

TEST(Resample, RefusesAStepThatIsNotPositive) {
    EXPECT_EQ(ResampleRefusal(Ramp(0.001, 0, 10), 0.0), "Requested Time step <= 0");
    EXPECT_EQ(ResampleRefusal(Ramp(0.001, 0, 10), -1.0), "Requested Time step <= 0");
    EXPECT_EQ(ResampleRefusal({}, 0.0), "Requested Time step <= 0") << "checked first";
}

TEST(Resample, RefusesAnEmptyRecord) {
    EXPECT_EQ(ResampleRefusal({}, 0.001), "Not enough data points");
}

TEST(Resample, RefusesAnAxisThatFalls) {
    EXPECT_EQ(ResampleRefusal(Over({0.0, 0.002, 0.001}), 0.001), "X axis data is not monotonically increasing");
    CData falling = Over({0.0, 0.002, 0.001});
    falling.SetNLP(0);
    EXPECT_EQ(ResampleRefusal(falling, 0.001), "X axis data is not monotonically increasing")
        << "checked before the count";
}

TEST(Resample, AllowsRepeatedAbscissas) {
    EXPECT_TRUE(Over({0.0, 0.001, 0.001, 0.002}).Resample(0.001));
}

TEST(Resample, RefusesPointNumbersThatAreBothZero) {
    CData data = Over({0.0, 0.001, 0.002});
    data.SetNLP(0);
    EXPECT_EQ(ResampleRefusal(data, 0.001), "Error Interpolating Data");
}

TEST(Resample, RefusesWhatCannotBeNumbered) {
    EXPECT_EQ(ResampleRefusal(Ramp(0.001, 0, 10), 10.0), "Error Interpolating Data") << "step too long";
    EXPECT_EQ(ResampleRefusal(Ramp(0.001, 0, 10), 1e-12), "Error Interpolating Data") << "m beyond 32 bits";
    EXPECT_EQ(ResampleRefusal(Ramp(0.001, 0, 10), 1e-11), "Error Interpolating Data") << "a thousand million points";
    EXPECT_EQ(ResampleRefusal(Ramp(0.001, 0, 10), kNaN), "Error Interpolating Data");
    EXPECT_EQ(ResampleRefusal(Ramp(0.001, 0, 10), kInfinity), "Error Interpolating Data");
    CData last = Ramp(0.001, 0, 10);
    last.SetNFP(kMost);
    last.SetNLP(kMost);
    EXPECT_EQ(ResampleRefusal(last, 0.001), "Error Interpolating Data") << "L would be beyond 32 bits";
}

TEST(Resample, RefusesWhenBothNewPointNumbersAreZero) {
    // F = min(trunc(0.1 + 0.01), 1 - 1), L = max(trunc(0.5 + 0.01), -1 + 1).
    CData data;
    data.SetNFP(-1);
    data.SetNLP(1);
    data.SetData({0.1, 0.3, 0.5}, {1.0, 2.0, 3.0});
    EXPECT_EQ(ResampleRefusal(data, 1.0), "No Y Signal Data");
}

// Integrate.

CData Acceleration(std::int32_t first, std::int32_t last) {
    CData data = Ramp(0.001, first, last);
    data.SetData(std::vector<double>(data.GetPointCount(), 1.0));
    data.SetYUNITS("G'S");
    data.SetYTYPE("ACCELERATION");
    data.SetINIVEL(50.0);
    data.SetDIMSYS("MET");
    return data;
}

TEST(Integrate, TurnsConstantGravitiesIntoAVelocityRamp) {
    CData data = Acceleration(0, 100);
    EXPECT_TRUE(data.Integrate());

    EXPECT_EQ(data.GetY().front(), 50.0);
    EXPECT_NEAR(data.GetY().back(), 50.0 + 3.530394, 1e-12);
    EXPECT_EQ(data.GetYUNITS(), "KILOMETERS/HOUR");
    EXPECT_EQ(data.GetYQuantity(), "VELOCITY");
    EXPECT_EQ(data.GetYTYPE(), "ACCELERATION") << "the header's word stays";
    EXPECT_EQ(data.GetDataStatus(), "AS MEASURED");
    EXPECT_TRUE(data.IsModified());
    EXPECT_THAT(data.GetZ(), Each(0.0));
    EXPECT_EQ(data.GetYMin(), 50.0);
    EXPECT_EQ(data.GetXMax(), 0.1);
}

TEST(Integrate, TwiceGivesTheDisplacement) {
    CData data = Acceleration(0, 100);
    data.Integrate();
    data.Integrate();

    // x(t) = 277.77778 (50 t + 35.30394 t^2 / 2), exact for the trapezoid rule over a line.
    EXPECT_EQ(data.GetY().front(), 0.0);
    EXPECT_NEAR(data.GetY().back(), 277.77778 * (50.0 * 0.1 + 35.30394 * 0.01 / 2.0), 1e-9);
    EXPECT_EQ(data.GetYUNITS(), "MILLIMETERS");
    EXPECT_EQ(data.GetYQuantity(), "DISPLACEMENT");
}

TEST(Integrate, StartsAtTimeZeroAndRunsBothWays) {
    CData data = Acceleration(-20, 80);
    data.Integrate();

    EXPECT_EQ(data.GetY()[20], 50.0);
    for (std::size_t i = 1; i <= 20; ++i) EXPECT_LT(data.GetY()[i - 1], data.GetY()[i]);
    EXPECT_NEAR(data.GetY()[0], 50.0 - 0.02 * 35.30394, 1e-12);
    EXPECT_NEAR(data.GetY()[100], 50.0 + 0.08 * 35.30394, 1e-12);
}

TEST(Integrate, ClampsAnAnchorAfterTheLastSample) {
    CData data = Acceleration(-20, 80);
    data.SetNFP(-1000);
    data.Integrate();
    EXPECT_EQ(data.GetY().back(), 50.0);
    EXPECT_NEAR(data.GetY().front(), 50.0 - 0.1 * 35.30394, 1e-12);

    CData least = Acceleration(0, 100);
    least.SetNFP(kLeast);
    least.Integrate();
    EXPECT_EQ(least.GetY().back(), 50.0);
}

TEST(Integrate, OfAForceOverAWayIsAnEnergy) {
    CData data = Ramp(1.0, 0, 10);
    data.SetXUNITS("MILLIMETERS");
    data.SetYUNITS("NEWTONS");
    data.Integrate();

    EXPECT_NEAR(data.GetY().back(), 0.001 * (10.0 + 100.0), 1e-14);
    EXPECT_EQ(data.GetYUNITS(), "JOULES");
    EXPECT_EQ(data.GetYQuantity(), "ENERGY");
}

TEST(Integrate, OfUnknownUnitsCarriesTheCompositeWords) {
    CData data = Ramp(0.001, 0, 10);
    data.SetYUNITS("VOLTS");
    data.Integrate();
    EXPECT_EQ(data.GetYUNITS(), "UNKNOWN x SECONDS");
    EXPECT_EQ(data.GetYQuantity(), "UNKNOWN x TIME");
}

TEST(Integrate, RefusesACountOfThree) {
    EXPECT_EQ(IntegrateRefusal(Acceleration(0, 2)), "Too few data points to compute an Integral");
    EXPECT_EQ(IntegrateRefusal({}), "Too few data points to compute an Integral");
    EXPECT_TRUE(Acceleration(0, 3).Integrate());
}

TEST(Integrate, RefusesEmptyArrays) {
    CData data;
    data.SetNLP(10);
    EXPECT_EQ(IntegrateRefusal(data), "X or Y data is empty.");
    data.Setdelt(1.0);
    data.GenerateTime();
    EXPECT_EQ(IntegrateRefusal(data), "X or Y data is empty.") << "X alone";
}

TEST(Integrate, RefusesArraysOfDifferentLengths) {
    CData data = Acceleration(0, 10);
    data.SetNLP(20);
    data.GenerateTime();
    EXPECT_EQ(IntegrateRefusal(data), "The number of data (X and Y) points are not same.");
}

TEST(Integrate, CoversAllStoredSamplesWhateverTheCount) {
    CData data = Acceleration(0, 100);
    data.SetNLP(5);
    data.Integrate();
    EXPECT_NEAR(data.GetY().back(), 50.0 + 3.530394, 1e-12);

    CData more = Acceleration(0, 10);
    more.SetNLP(kMost);
    EXPECT_TRUE(more.Integrate());
}

// TruncateByTime.

TEST(TruncateByTime, KeepsFromStartUpToButNotStop) {
    CData data = Ramp(0.001, 0, 100);
    EXPECT_TRUE(data.TruncateByTime(0.0, 0.05));

    EXPECT_THAT(data.GetY(), SizeIs(50));
    EXPECT_EQ(data.GetX().front(), 0.0);
    EXPECT_EQ(data.GetX().back(), 0.001 * 49);
    EXPECT_EQ(data.GetNFP(), 0);
    EXPECT_EQ(data.GetNLP(), 49);
    EXPECT_EQ(data.GetDataStatus(), "TRUNCATED");
    EXPECT_THAT(data.GetZ(), SizeIs(50));
    EXPECT_THAT(data.GetZ(), Each(0.0));
    EXPECT_TRUE(data.IsModified());
    EXPECT_EQ(data.GetEndTime(), 49 * 0.001);
    EXPECT_EQ(data.GetXMax(), 0.001 * 49);
}

TEST(TruncateByTime, CopiesNoValues) {
    CData data;
    data.SetNLP(4);
    data.SetData({0.0, 1.0, 2.0, 3.0, 4.0}, {5.0, 6.0, 7.0, 8.0, 9.0});
    const double* const x = data.GetX().data();
    const double* const y = data.GetY().data();
    data.TruncateByTime(1.0, 3.0);
    EXPECT_EQ(data.GetX().data(), x + 1);
    EXPECT_EQ(data.GetY().data(), y + 1);
    EXPECT_THAT(data.GetY(), ElementsAre(6.0, 7.0));
    EXPECT_EQ(data.GetYMax(), 7.0);
}

TEST(TruncateByTime, NeverKeepsTheLastSample) {
    CData data = Ramp(0.001, 0, 100);
    data.TruncateByTime(-1.0, 1.0);

    EXPECT_THAT(data.GetY(), SizeIs(100));
    EXPECT_EQ(data.GetX().back(), 0.001 * 99);
}

TEST(TruncateByTime, NumbersFromTheRequestedStartNotTheFirstSample) {
    CData data = Ramp(0.001, 0, 100);
    data.TruncateByTime(-0.5, 0.0105);

    EXPECT_EQ(data.GetX().front(), 0.0);
    EXPECT_THAT(data.GetY(), SizeIs(11));
    EXPECT_EQ(data.GetNFP(), -500);
    EXPECT_EQ(data.GetNLP(), -490);
}

TEST(TruncateByTime, NumbersFromZeroWithoutATimeStep) {
    CData data = Over({0.0, 1.0, 2.0, 3.0});
    data.TruncateByTime(1.0, 3.0);

    EXPECT_THAT(data.GetX(), ElementsAre(1.0, 2.0));
    EXPECT_EQ(data.GetNFP(), 0);
    EXPECT_EQ(data.GetNLP(), 1);
}

TEST(TruncateByTime, SaturatesThePointNumbers) {
    CData data = Over({1.0, 1e300, 2e300, 3e300});
    data.Setdelt(1.0);
    data.TruncateByTime(1e300, 3e300);
    EXPECT_EQ(data.GetNFP(), kMost);
    EXPECT_EQ(data.GetNLP(), kMost);

    CData early = Ramp(0.001, 0, 10);
    early.TruncateByTime(-kInfinity, 1.0);
    EXPECT_EQ(early.GetNFP(), kLeast);
    EXPECT_EQ(early.GetNLP(), kLeast + 9);
}

TEST(TruncateByTime, RefusesAStopThatIsNotAfterTheStart) {
    EXPECT_EQ(TimeRefusal(Ramp(0.001, 0, 10), 0.005, 0.005),
              "Stop time (0.005) is before or equals Start Time (0.005)");
    EXPECT_EQ(TimeRefusal({}, 2.0, 1.0), "Stop time (1) is before or equals Start Time (2)");
}

TEST(TruncateByTime, RefusesAWindowWithoutSamples) {
    EXPECT_EQ(TimeRefusal(Ramp(0.001, 0, 10), 5.0, 6.0), "No X or Y Signal Data");
    EXPECT_EQ(TimeRefusal(Ramp(0.001, 0, 10), -6.0, -5.0), "No X or Y Signal Data");
    EXPECT_EQ(TimeRefusal(Ramp(0.001, 0, 10), 0.01, 1.0), "No X or Y Signal Data") << "only the last sample";
    EXPECT_EQ(TimeRefusal(Ramp(0.001, 0, 10), kNaN, 1.0), "No X or Y Signal Data");
    EXPECT_EQ(TimeRefusal(Ramp(0.001, 0, 10), 0.0, kNaN), "No X or Y Signal Data");
    EXPECT_EQ(TimeRefusal({}, 0.0, 1.0), "No X or Y Signal Data");
}

TEST(TruncateByTime, IsBoundByTheCountAndByTheArrays) {
    CData fewer = Ramp(0.001, 0, 10);
    fewer.SetNLP(4);
    fewer.TruncateByTime(0.0, 1.0);
    EXPECT_THAT(fewer.GetY(), SizeIs(4));

    CData more = Ramp(0.001, 0, 10);
    more.SetNLP(1000);
    more.TruncateByTime(0.0, 1.0);
    EXPECT_THAT(more.GetY(), SizeIs(10));

    CData longerX = Ramp(0.001, 0, 10);
    longerX.SetNLP(1000);
    longerX.GenerateTime();
    longerX.TruncateByTime(0.0, 1.0);
    EXPECT_THAT(longerX.GetY(), SizeIs(10));
    EXPECT_THAT(longerX.GetX(), SizeIs(10));
}

// TruncateByIndex.

TEST(TruncateByIndex, KeepsBothEnds) {
    CData data = Ramp(0.001, -10, 20);
    EXPECT_TRUE(data.TruncateByIndex(-2, 3));

    EXPECT_THAT(data.GetX(), ElementsAre(0.001 * -2, 0.001 * -1, 0.0, 0.001, 0.001 * 2, 0.001 * 3));
    EXPECT_THAT(data.GetY(), SizeIs(6));
    EXPECT_EQ(data.GetNFP(), -2);
    EXPECT_EQ(data.GetNLP(), 3);
    EXPECT_EQ(data.GetCount(), 6);
    EXPECT_EQ(data.GetDataStatus(), "TRUNCATED");
    EXPECT_THAT(data.GetZ(), Each(0.0));
    EXPECT_TRUE(data.IsModified());
    EXPECT_EQ(data.GetStartTime(), -0.002);
}

TEST(TruncateByIndex, MayKeepEverything) {
    CData data = Ramp(0.001, -10, 20);
    data.TruncateByIndex(-10, 20);
    EXPECT_THAT(data.GetY(), SizeIs(31));
    EXPECT_THAT(data.GetZ(), Each(0.0)) << "of the same length as before";
}

TEST(TruncateByIndex, RefusesAStartNotBeforeTheStop) {
    EXPECT_EQ(IndexRefusal(Ramp(0.001, 0, 20), 10, 10), "Start Index (10)is >= Stop Index (10)");
    EXPECT_EQ(IndexRefusal({}, 7, -3), "Start Index (7)is >= Stop Index (-3)");
}

TEST(TruncateByIndex, RefusesPointsOutsideTheRecord) {
    const std::string message = "Unable to provide requested stop/start indices";
    EXPECT_EQ(IndexRefusal(Ramp(0.001, 5, 20), 4, 10), message);
    EXPECT_EQ(IndexRefusal(Ramp(0.001, 5, 20), 5, 22), message);
    EXPECT_EQ(IndexRefusal(Ramp(0.001, 5, 20), 5, 21), message) << "one past the last sample";
    EXPECT_EQ(IndexRefusal(Ramp(0.001, 5, 20), 30, 31), message);
    EXPECT_EQ(IndexRefusal({}, 0, 1), message);
}

TEST(TruncateByIndex, CountsIn64Bits) {
    const std::string message = "Unable to provide requested stop/start indices";
    EXPECT_EQ(IndexRefusal(Ramp(0.001, 5, 20), kLeast, kMost), message);
    EXPECT_EQ(IndexRefusal(Ramp(0.001, -5, 20), kMost - 1, kMost), message);
}

TEST(TruncateByIndex, RefusesWhatTheArraysDoNotHold) {
    const std::string message = "Unable to provide requested stop/start indices";
    CData shortY = Ramp(0.001, 0, 20);
    shortY.SetNLP(40);
    EXPECT_EQ(IndexRefusal(shortY, 0, 21), message);
    shortY.GenerateTime();  // 41 X, 21 Y
    EXPECT_EQ(IndexRefusal(shortY, 0, 30), message);

    CData shortX = Ramp(0.001, 0, 20);
    shortX.SetNLP(4);
    shortX.GenerateTime();  // 5 X, 21 Y
    shortX.SetNLP(20);
    EXPECT_EQ(IndexRefusal(shortX, 0, 10), message);
}

TEST(Operations, EndWithCurrentLimitsAfterAFieldWasSetAlone) {
    CData data = Ramp(0.001, 0, 20);
    data.SetNLP(19);
    data.TruncateByIndex(1, 19);
    EXPECT_EQ(data.GetStartTime(), 0.001);
    EXPECT_EQ(data.GetEndTime(), 19 * 0.001);
}

}  // namespace
}  // namespace ks
