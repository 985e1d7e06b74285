#include "signal/nsignal.h"

#include "files/error.h"
#include "signal/butterworth.h"
#include "signal/column.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace ks {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

const std::string kShortTail = "BWFILT tail length < 10 ms, does not satisfy SAE J211 reccomendation";
const std::string kOverlap = "WARNING - Filter causes overlap distortion with previous filtering";

/// A time signal in seconds with something to filter in it.
CNSignal Wave(double timeStep, std::int32_t count) {
    CNSignal signal;
    signal.Setdelt(timeStep);
    signal.SetNLP(count - 1);
    std::vector<double> y;
    for (std::int32_t i = 0; i < count; ++i) y.push_back(10.0 + 3.0 * (i % 2) + 0.1 * (i % 7));
    signal.SetData(std::move(y));
    return signal;
}

TEST(Warnings, AreKeptInOrder) {
    CNSignal signal;
    signal.AddWarning("one");
    signal.AddWarning("two");
    EXPECT_THAT(signal.GetWarnings(), ElementsAre("one", "two"));
}

TEST(FilterCFC, FiltersAtTheClassFrequency) {
    CNSignal signal = Wave(1e-4, 2000);
    std::vector<double> expected = signal.GetY().ToVector();
    FilterInPlace(expected, 1e-4, 60.0 * 1.66666666667);
    const CColumn x = signal.GetX();
    EXPECT_TRUE(signal.FilterCFC(60));

    EXPECT_EQ(signal.GetY(), expected);
    EXPECT_EQ(signal.GetX(), x);
    EXPECT_EQ(signal.GetFCUT(), 60.0 * 1.66666666667);
    EXPECT_EQ(signal.GetFSTP(), 2.5 * (60.0 * 1.66666666667));
    EXPECT_EQ(signal.GetCFCClass(), 60);
    EXPECT_EQ(signal.GetDataStatus(), "FILTERED");
    EXPECT_TRUE(signal.IsModified());
    EXPECT_THAT(signal.GetWarnings(), IsEmpty());
}

TEST(FilterCFC, WorksInPlaceWhereNoOtherRecordHasTheValues) {
    CNSignal signal = Wave(1e-4, 2000);
    const double* const block = signal.GetY().data();
    signal.FilterCFC(60);
    EXPECT_EQ(signal.GetY().data(), block);
}

TEST(FilterCFC, LeavesTheValuesOfACopy) {
    CNSignal signal = Wave(1e-4, 2000);
    const CNSignal copy = signal;
    const std::vector<double> before = copy.GetY().ToVector();
    CNSignal alone = Wave(1e-4, 2000);
    signal.FilterCFC(60);
    alone.FilterCFC(60);
    EXPECT_EQ(copy.GetY(), before);
    EXPECT_EQ(signal.GetY(), alone.GetY());
    EXPECT_EQ(signal.GetYMax(), alone.GetYMax());
}

TEST(FilterCFC, KeepsSharingTheValuesAboveItsHighestFrequency) {
    CNSignal signal = Wave(0.0005, 2000);
    const CNSignal copy = signal;
    signal.FilterCFC(1000);
    EXPECT_EQ(signal.GetY().data(), copy.GetY().data());
}

TEST(FilterCFC, RefusesAnUnknownClassAndKeepsTheRecord) {
    CNSignal signal = Wave(1e-4, 200);
    const CColumn y = signal.GetY();
    const auto message = ThrowsMessage<CError>("BWfilt: Frequency Channel Class is not specified in SAE J211");
    for (const std::int32_t cfc : {100, 0, -60, 1001}) EXPECT_THAT([&] { signal.FilterCFC(cfc); }, message) << cfc;
    EXPECT_EQ(signal.GetY(), y);
    EXPECT_FALSE(signal.IsModified());
}

TEST(FilterCFC, DoesNothingAtTheClassOfTheDataOrAbove) {
    CNSignal signal = Wave(1e-4, 200);
    signal.SetCFCClass(180);
    const CColumn y = signal.GetY();
    EXPECT_TRUE(signal.FilterCFC(600));
    EXPECT_TRUE(signal.FilterCFC(180));

    EXPECT_EQ(signal.GetY(), y);
    EXPECT_EQ(signal.GetDataStatus(), "");
    EXPECT_FALSE(signal.IsModified());
    EXPECT_EQ(signal.GetFCUT(), 0.0);
}

TEST(FilterCFC, FiltersAgainAtALowerClass) {
    CNSignal signal = Wave(1e-4, 2000);
    signal.FilterCFC(180);
    const CColumn y = signal.GetY();
    signal.FilterCFC(60);

    EXPECT_NE(signal.GetY(), y);
    EXPECT_EQ(signal.GetCFCClass(), 60);
}

TEST(FilterCFC, LabelsTheRecordAlsoWhereTheFrequencyIsTooHigh) {
    CNSignal signal = Wave(0.0005, 200);
    signal.SetINJ1(900.0);
    const CColumn y = signal.GetY();
    EXPECT_TRUE(signal.FilterCFC(1000));

    EXPECT_EQ(signal.GetY(), y);
    EXPECT_EQ(signal.GetDataStatus(), "FILTERED");
    EXPECT_NEAR(signal.GetFCUT(), 1666.67, 0.005);
    EXPECT_NEAR(signal.GetFSTP(), 4166.67, 0.005);
    EXPECT_EQ(signal.GetCFCClass(), 1000);
    EXPECT_EQ(signal.GetINJ1(), 0.0);
    EXPECT_TRUE(signal.IsModified());
}

TEST(Filter, BringsTheLimitsUpToDate) {
    CNSignal signal = Wave(1e-4, 2000);
    signal.Filter(100.0);

    EXPECT_EQ(signal.GetYMax(), *std::max_element(signal.GetY().begin(), signal.GetY().end()));
    EXPECT_LT(signal.GetYMax(), 12.9);
}

TEST(Filter, ForgetsTheInjuryValuesExceptTheFifth) {
    CNSignal signal = Wave(1e-4, 200);
    signal.SetINJ1(1.0);
    signal.SetINJ2(2.0);
    signal.SetINJ3(3.0);
    signal.SetINJ4(4.0);
    signal.SetINJ5(5.0);
    signal.SetINJ6(6.0);
    for (std::size_t i = 0; i < 4; ++i) signal.SetFurtherReal(i, 7.0 + static_cast<double>(i));
    signal.Filter(100.0);

    EXPECT_EQ(signal.GetINJ1(), 0.0);
    EXPECT_EQ(signal.GetINJ2(), 0.0);
    EXPECT_EQ(signal.GetINJ3(), 0.0);
    EXPECT_EQ(signal.GetINJ4(), 0.0);
    EXPECT_EQ(signal.GetINJ5(), 5.0);
    EXPECT_EQ(signal.GetINJ6(), 0.0);
    EXPECT_EQ(signal.GetFurtherReal(0), 0.0);
    EXPECT_EQ(signal.GetFurtherReal(1), 8.0);
    EXPECT_EQ(signal.GetFurtherReal(2), 9.0);
    EXPECT_EQ(signal.GetFurtherReal(3), 10.0);
}

TEST(Filter, KeepsTheClassForAFrequencyOfNone) {
    CNSignal signal = Wave(1e-4, 2000);
    signal.SetCFCClass(600);
    signal.Filter(50.0);

    EXPECT_EQ(signal.GetCFCClass(), 600);
    EXPECT_EQ(signal.GetFCUT(), 50.0);
    EXPECT_EQ(signal.GetFSTP(), 125.0);
}

TEST(Filter, LeavesZ) {
    CNSignal signal = Wave(1e-4, 200);
    signal.SetColumns({}, signal.GetY(), CColumn(std::vector<double>(200, 4.0)));
    signal.Filter(100.0);
    EXPECT_THAT(signal.GetZ(), testing::Each(4.0));
}

// Warnings.

TEST(Filter, WarnsOfAnXThatIsNoTime) {
    CNSignal signal = Wave(1e-4, 2000);
    signal.SetXTYPE("DISPLACEMENT");
    const CColumn y = signal.GetY();
    signal.Filter(100.0);

    EXPECT_THAT(signal.GetWarnings(), ElementsAre("Data must have X Type TIME"));
    EXPECT_NE(signal.GetY(), y);
}

TEST(Filter, WarnsOfATimeNotInSeconds) {
    for (const char* units : {"SECOND", "MSEC", ""}) {
        CNSignal signal = Wave(1e-4, 2000);
        signal.SetXUNITS(units);
        const CColumn y = signal.GetY();
        signal.Filter(100.0);
        EXPECT_THAT(signal.GetWarnings(), ElementsAre("Time must be in seconds")) << units;
        EXPECT_NE(signal.GetY(), y);
    }
    CNSignal signal = Wave(1e-4, 2000);
    signal.SetXUNITS("SEC");
    signal.Filter(100.0);
    EXPECT_THAT(signal.GetWarnings(), IsEmpty());
}

TEST(Filter, WarnsOfAShortTail) {
    CNSignal enough = Wave(0.001, 50);
    enough.FilterCFC(180);
    EXPECT_THAT(enough.GetWarnings(), IsEmpty());

    CNSignal few = Wave(0.001, 10);
    const CColumn y = few.GetY();
    few.FilterCFC(180);
    EXPECT_THAT(few.GetWarnings(), ElementsAre(kShortTail));
    EXPECT_NE(few.GetY(), y);
}

TEST(Filter, LeavesOneSampleWithTheTailWarning) {
    CNSignal signal;
    signal.Setdelt(0.001);
    signal.SetData({0.0}, {4.0});
    EXPECT_TRUE(signal.FilterCFC(60));

    EXPECT_THAT(signal.GetY(), ElementsAre(4.0));
    EXPECT_THAT(signal.GetWarnings(), ElementsAre(kShortTail));
    EXPECT_EQ(signal.GetDataStatus(), "FILTERED");
}

TEST(Filter, WarnsOfOverlapWithThePrefilter) {
    CNSignal signal = Wave(1e-4, 2000);
    signal.SetPREFIL(1000.0);
    signal.FilterCFC(180);

    EXPECT_EQ(signal.GetDataStatus(), "DISTORTED");
    EXPECT_THAT(signal.GetWarnings(), ElementsAre(kOverlap));
    EXPECT_TRUE(signal.IsModified());
}

TEST(Filter, SeesNoOverlapAtTheHighClassesOrFarFromThePrefilter) {
    for (const std::int32_t cfc : {600, 1000}) {
        CNSignal signal = Wave(5e-5, 2000);
        signal.SetPREFIL(1.0);
        signal.FilterCFC(cfc);
        EXPECT_EQ(signal.GetDataStatus(), "FILTERED") << cfc;
        EXPECT_THAT(signal.GetWarnings(), IsEmpty()) << cfc;
    }
    CNSignal equal = Wave(1e-4, 2000);
    equal.SetPREFIL(1500.0);  // FSTP is 750, just not above half of it
    equal.Filter(300.0);
    EXPECT_EQ(equal.GetDataStatus(), "FILTERED");

    CNSignal none = Wave(1e-4, 2000);
    none.Filter(300.0);
    EXPECT_EQ(none.GetDataStatus(), "FILTERED");
}

TEST(Filter, WarnsInTheOrderOfItsSteps) {
    CNSignal signal = Wave(0.001, 10);
    signal.SetXTYPE("ANGLE");
    signal.SetXUNITS("DEGREES");
    signal.SetPREFIL(100.0);
    signal.FilterCFC(60);

    EXPECT_THAT(signal.GetWarnings(),
                ElementsAre("Data must have X Type TIME", "Time must be in seconds", kShortTail, kOverlap));
}

// Failures.

TEST(Filter, RefusesInTheOrderDataStepFrequencyAndKeepsTheRecord) {
    CNSignal signal;
    signal.SetXTYPE("ANGLE");
    EXPECT_THAT([&] { signal.Filter(0.0); }, ThrowsMessage<CError>("Nonpositive number of Data Points"));

    signal.SetData({0.0, 1.0, 2.0}, {1.0, 2.0, 3.0});
    EXPECT_THAT([&] { signal.FilterCFC(60); }, ThrowsMessage<CError>("Nonpositive time step"));
    signal.Setdelt(0.001);
    EXPECT_THAT([&] { signal.Filter(-1.0); }, ThrowsMessage<CError>("Nonpositive Cutoff Frequency"));

    EXPECT_THAT(signal.GetY(), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(signal.GetWarnings(), IsEmpty());
    EXPECT_EQ(signal.GetDataStatus(), "");
    EXPECT_EQ(signal.GetFCUT(), 0.0);
    EXPECT_FALSE(signal.IsModified());
}

TEST(BWFILT, FiltersAnyArrayInPlaceAndWarnsOnTheRecord) {
    CNSignal signal;
    std::vector<double> data(10, 1.0);
    data[5] = 3.0;
    std::vector<double> expected = data;
    FilterInPlace(expected, 0.001, 300.0);

    EXPECT_TRUE(signal.BWFILT(data, 0.001, 300.0));
    EXPECT_EQ(data, expected);
    EXPECT_THAT(signal.GetWarnings(), ElementsAre(kShortTail));
    EXPECT_FALSE(signal.IsModified());
}

TEST(Filter, TakesExtremeFrequenciesAndStepsWithoutOverflow) {
    for (const double timeStep : {1e-300, 1e-12, 1e300}) {
        for (const double frequencyHz : {1e-300, 1.0, 1e300}) {
            CNSignal signal = Wave(timeStep, 20);
            EXPECT_TRUE(signal.Filter(frequencyHz)) << timeStep << " " << frequencyHz;
            EXPECT_EQ(signal.GetCFCClass(), 1001);
        }
    }
}

}  // namespace
}  // namespace ks
