#include "signal/data.h"

#include "files/error.h"
#include "files/points.h"
#include "files/uds_fields.h"
#include "signal/data_fields.h"
#include "signal/nsignal.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

namespace ks {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::ThrowsMessage;

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

/// A record with a time step and point numbers, without samples.
CData Numbered(double timeStep, std::int32_t first, std::int32_t last) {
    CData data;
    data.Setdelt(timeStep);
    data.SetNFP(first);
    data.SetNLP(last);
    return data;
}

/// A record of three samples with Z.
CData Filled() {
    CData data;
    data.SetData({1.0, 2.0, 3.0}, {4.0, 6.0, 5.0}, {9.0, 8.0, 7.0});
    return data;
}

TEST(Data, IsEmptyAndUnclassedAfterConstruction) {
    const CData data;

    EXPECT_THAT(data.GetX(), IsEmpty());
    EXPECT_THAT(data.GetY(), IsEmpty());
    EXPECT_THAT(data.GetZ(), IsEmpty());
    EXPECT_EQ(data.GetPointCount(), 0U);
    EXPECT_EQ(data.GetCount(), 0);
    EXPECT_EQ(data.GetXMax(), 0.0);
    EXPECT_EQ(data.GetXMin(), 0.0);
    EXPECT_EQ(data.GetYMax(), 0.0);
    EXPECT_EQ(data.GetYMin(), 0.0);
    EXPECT_EQ(data.GetZMax(), 0.0);
    EXPECT_EQ(data.GetZMin(), 0.0);
    EXPECT_EQ(data.GetStartTime(), 0.0);
    EXPECT_EQ(data.GetEndTime(), 0.0);
    EXPECT_EQ(data.GetDataStatus(), "");
    EXPECT_EQ(data.GetYQuantity(), "");
    EXPECT_EQ(data.GetSourcePath(), "");
    EXPECT_EQ(data.GetSourceFormat(), "");
    EXPECT_EQ(data.GetFileType(), "");
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(data.GetFurtherReal(i), 0.0);
    EXPECT_EQ(data.GetCFCClass(), 1001);
    EXPECT_FALSE(data.IsModified());
    EXPECT_FALSE(data.HasSecondComponent());
    EXPECT_EQ(data.Getdelt(), 0.0);
}

TEST(Data, HasTheHeadersDefaultsAfterConstruction) {
    const CData data;

    EXPECT_EQ(data.GetXTYPE(), "TIME");
    EXPECT_EQ(data.GetXUNITS(), "SECONDS");
    EXPECT_EQ(data.GetFILEID(), "UDS-1992");
}

TEST(Data, ClassTreeIsCopyableWithVirtualDestructors) {
    EXPECT_TRUE((std::is_base_of_v<CUDSFields, CDataFields>));
    EXPECT_TRUE((std::is_base_of_v<CDataFields, CData>));
    EXPECT_TRUE((std::is_base_of_v<CData, CNSignal>));
    EXPECT_TRUE(std::has_virtual_destructor_v<CNSignal>);
    EXPECT_TRUE(std::is_copy_assignable_v<CNSignal>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<CData>);
}

TEST(Data, ACopySharesNothingWithItsOriginal) {
    CData original = Filled();
    original.SetTITLE("first");
    original.SetFurtherReal(3, 12.0);
    CData copy = original;
    original.SetPoint(1, 20.0, -50.0);
    original.SetTITLE("second");

    EXPECT_THAT(copy.GetX(), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(copy.GetY(), ElementsAre(4.0, 6.0, 5.0));
    EXPECT_THAT(copy.GetZ(), ElementsAre(9.0, 8.0, 7.0));
    EXPECT_EQ(copy.GetYMin(), 4.0);
    EXPECT_EQ(copy.GetTITLE(), "first");
    EXPECT_EQ(copy.GetFurtherReal(3), 12.0);
}

TEST(Data, ACopyHasTheSameArraysUntilOneChanges) {
    CData original = Filled();
    CData copy = original;
    EXPECT_EQ(copy.GetY().data(), original.GetY().data());
    copy.SetPoint(0, 10.0, 20.0);
    EXPECT_NE(copy.GetY().data(), original.GetY().data());
    EXPECT_THAT(original.GetY(), ElementsAre(4.0, 6.0, 5.0));
    EXPECT_EQ(original.GetYMax(), 6.0);
    EXPECT_EQ(copy.GetYMax(), 20.0);
}

TEST(Data, SelfAssignmentChangesNothing) {
    CNSignal signal;
    signal.SetData({1.0, 2.0}, {3.0, 4.0});
    signal.AddWarning("a warning");
    const CNSignal& itself = signal;
    signal = itself;

    EXPECT_THAT(signal.GetX(), ElementsAre(1.0, 2.0));
    EXPECT_THAT(signal.GetY(), ElementsAre(3.0, 4.0));
    EXPECT_THAT(signal.GetWarnings(), ElementsAre("a warning"));
}

// SetData with X.

TEST(SetData, StoresThreeArraysAndTheirLimits) {
    CData data = Filled();

    EXPECT_THAT(data.GetX(), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(data.GetY(), ElementsAre(4.0, 6.0, 5.0));
    EXPECT_THAT(data.GetZ(), ElementsAre(9.0, 8.0, 7.0));
    EXPECT_EQ(data.GetXMin(), 1.0);
    EXPECT_EQ(data.GetXMax(), 3.0);
    EXPECT_EQ(data.GetYMin(), 4.0);
    EXPECT_EQ(data.GetYMax(), 6.0);
    EXPECT_EQ(data.GetZMin(), 7.0);
    EXPECT_EQ(data.GetZMax(), 9.0);
    EXPECT_FALSE(data.IsModified());
}

TEST(SetData, FillsAMissingZWithZeros) {
    CData data;
    data.SetData({1.0, 2.0}, {3.0, 4.0});

    EXPECT_THAT(data.GetZ(), ElementsAre(0.0, 0.0));
}

TEST(SetData, KeepsAStoredZOfTheSameLength) {
    CData data = Filled();
    data.SetData({0.0, 1.0, 2.0}, {0.0, 0.0, 0.0});

    EXPECT_THAT(data.GetZ(), ElementsAre(9.0, 8.0, 7.0));
}

TEST(SetData, ReplacesAStoredZOfAnotherLengthByZeros) {
    CData data = Filled();
    data.SetData({0.0, 1.0}, {5.0, 5.0});

    EXPECT_THAT(data.GetZ(), ElementsAre(0.0, 0.0));
}

TEST(SetData, DoesNotCopyWhatItIsGiven) {
    std::vector<double> x(1000, 1.0);
    std::vector<double> y(1000, 2.0);
    const double* const xBlock = x.data();
    const double* const yBlock = y.data();
    CData data;
    data.SetData(std::move(x), std::move(y));

    EXPECT_EQ(data.GetX().data(), xBlock);
    EXPECT_EQ(data.GetY().data(), yBlock);
}

TEST(SetData, RefusesLengthsThatDiffer) {
    CData data;
    EXPECT_THAT([&] { data.SetData({1.0, 2.0}, {3.0}); }, ThrowsMessage<CError>("x != y signal data"));
    EXPECT_THAT([&] { data.SetData({1.0, 2.0}, {3.0}, {4.0}); }, ThrowsMessage<CError>("x != y != z signal data"));
    EXPECT_THAT([&] { data.SetData({1.0, 2.0}, {3.0, 4.0}, {5.0}); }, ThrowsMessage<CError>("x != y != z signal data"));
}

TEST(SetData, RefusesADifferingXWithTheLongSentenceWhereZIsKept) {
    CData data = Filled();
    EXPECT_THAT([&] { data.SetData({1.0, 2.0}, {3.0, 4.0, 5.0}); }, ThrowsMessage<CError>("x != y != z signal data"));
}

TEST(SetData, RefusesAnEmptyYWhereNoneIsStored) {
    CData data;
    EXPECT_THAT([&] { data.SetData({1.0}, {}); }, ThrowsMessage<CError>("No Y Signal Data"));
    EXPECT_THAT([&] { data.SetData({1.0}, {}, {1.0}); }, ThrowsMessage<CError>("No Y Signal Data"));
}

TEST(SetData, RefusesAnEmptyYAlsoWhereOneIsStored) {
    CData data = Filled();
    EXPECT_THAT([&] { data.SetData({1.0, 2.0, 3.0}, {}); }, ThrowsMessage<CError>("x != y signal data"));
    EXPECT_THAT(data.GetY(), IsEmpty()) << "replaced before the failure";
    data = Filled();
    EXPECT_THAT([&] { data.SetData({1.0}, {}, {1.0}); }, ThrowsMessage<CError>("x != y != z signal data"));
}

TEST(SetData, RefusesThreeEmptyArrays) {
    CData data = Filled();
    EXPECT_THAT([&] { data.SetData({}, {}, {}); }, ThrowsMessage<CError>("No X, Y or Z Siganl Data."));
    EXPECT_THAT(data.GetY(), SizeIs(3));
}

TEST(SetData, RefusesEmptyArraysInItsShortFormsFirst) {
    CData data = Filled();
    EXPECT_THAT([&] { data.SetData({}, {}); }, ThrowsMessage<CError>("No X or Y Signal Data"));
    EXPECT_THAT([&] { data.SetData(std::vector<double>{}); }, ThrowsMessage<CError>("No Y Signal Data"));
    EXPECT_THAT(data.GetY(), SizeIs(3));
}

// SetData without X.

TEST(SetData, BuildsAMissingXFromThePointNumbers) {
    CData data = Numbered(0.001, -10, 89);
    data.SetData(std::vector<double>(100, 1.0));

    ASSERT_THAT(data.GetX(), SizeIs(100));
    for (std::size_t i = 0; i < 100; ++i) EXPECT_EQ(data.GetX()[i], 0.001 * (static_cast<double>(i) - 10.0));
    EXPECT_THAT(data.GetZ(), Each(0.0));
    EXPECT_EQ(data.GetXMin(), -0.010);
    EXPECT_EQ(data.GetXMax(), 0.089);
}

TEST(SetData, RefusesAYUnlikeTheBuiltX) {
    CData data = Numbered(0.001, -10, 89);
    EXPECT_THAT([&] { data.SetData(std::vector<double>(99)); }, ThrowsMessage<CError>("X and Y Counts are different"));
    EXPECT_THAT(data.GetX(), SizeIs(100)) << "built before the failure";
}

TEST(SetData, RefusesToBuildXWithoutPointNumbers) {
    CData data = Numbered(0.001, 0, 0);
    EXPECT_THAT(
        [&] {
            data.SetData({1.0, 2.0});
        },
        ThrowsMessage<CError>("No x signal data, NFP and NLP are zero.\nSet x signal data or set NFP and NLP"));
}

TEST(SetData, RefusesToBuildXWithoutATimeStep) {
    CData data = Numbered(0.0, 0, 1);
    EXPECT_THAT([&] { data.SetData({1.0, 2.0}); }, ThrowsMessage<CError>("No x signal data and delt is zero."));
}

TEST(SetData, ChecksTheTimeStepBeforeThePointNumbers) {
    CData data = Numbered(0.0, 0, 0);
    EXPECT_THAT([&] { data.SetData({1.0, 2.0}); }, ThrowsMessage<CError>("No x signal data and delt is zero."));
}

TEST(SetData, RefusesCrossedPointNumbersForMissingX) {
    CData data = Numbered(0.001, 5, 4);
    EXPECT_THAT([&] { data.SetData({1.0, 2.0}); }, ThrowsMessage<CError>("X and Y Counts are different"));
}

TEST(SetData, ReportsAMissingYAfterAMissingX) {
    CData data = Numbered(0.001, 0, 1);
    EXPECT_THAT([&] { data.SetData({}, {}, {1.0}); }, ThrowsMessage<CError>("No Y Signal Data"));
    EXPECT_THAT(data.GetX(), SizeIs(2));
}

TEST(SetData, KeepsAStoredXWithAndWithoutATimeStep) {
    CData data = Filled();
    data.SetData({7.0, 7.0, 7.0});
    EXPECT_THAT(data.GetX(), ElementsAre(1.0, 2.0, 3.0));

    data.Setdelt(0.5);
    data.SetData({8.0, 8.0, 8.0});
    EXPECT_THAT(data.GetX(), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(data.GetZ(), ElementsAre(9.0, 8.0, 7.0));
}

TEST(SetData, RefusesAYUnlikeTheKeptX) {
    CData data = Filled();
    EXPECT_THAT([&] { data.SetData({7.0, 7.0}); }, ThrowsMessage<CError>("x != y signal data"));
}

// Points.

TEST(SetPoints, TakesTheCoordinatesInOrder) {
    CData data;
    data.SetPoints(MakePointList({{1.0, 2.0}, {3.0, 1.0}, {5.0, 6.0}}));

    EXPECT_THAT(data.GetX(), ElementsAre(1.0, 2.0));
    EXPECT_THAT(data.GetY(), ElementsAre(3.0, 1.0));
    EXPECT_THAT(data.GetZ(), ElementsAre(5.0, 6.0));
    EXPECT_EQ(data.GetYMax(), 3.0);
    EXPECT_EQ(data.GetZMin(), 5.0);
}

TEST(SetPoints, TakesColumnsWithoutACopy) {
    CPointColumns columns{{1.0, 2.0}, {3.0, 1.0}, {}};
    const double* const block = columns.y.data();
    CData data;
    data.SetPoints(std::move(columns));

    EXPECT_EQ(data.GetY().data(), block);
    EXPECT_THAT(data.GetZ(), ElementsAre(0.0, 0.0));
    EXPECT_EQ(data.GetYMin(), 1.0);
}

TEST(SetPoints, RefusesAnEmptyListAndKeepsTheRecord) {
    CData data = Filled();
    EXPECT_THAT([&] { data.SetPoints(CPointList{}); }, ThrowsMessage<CError>("No Information."));
    EXPECT_THAT([&] { data.SetPoints(CPointColumns{}); }, ThrowsMessage<CError>("No Information."));
    EXPECT_THAT(data.GetY(), SizeIs(3));
}

TEST(SetPoints, RefusesColumnsOfDifferentLengths) {
    CData data;
    EXPECT_THAT(
        [&] {
            data.SetPoints(CPointColumns{{1.0}, {1.0, 2.0}, {}});
        },
        ThrowsMessage<CError>("x != y != z signal data"));
}

TEST(SetPoint, OverwritesOneSampleAndTheLimitsFollow) {
    CData data = Filled();
    data.SetPoint(1, 10.0, -2.0);

    EXPECT_THAT(data.GetX(), ElementsAre(1.0, 10.0, 3.0));
    EXPECT_THAT(data.GetY(), ElementsAre(4.0, -2.0, 5.0));
    EXPECT_EQ(data.GetXMax(), 10.0);
    EXPECT_EQ(data.GetYMin(), -2.0);
    EXPECT_EQ(data.GetYMax(), 5.0) << "the largest value was overwritten";
}

TEST(SetPoint, LeavesTheLimitsReadableFromSeveralThreads) {
    constexpr std::size_t kCount = 2000;
    std::vector<double> y(kCount);
    for (std::size_t i = 0; i < kCount; ++i) y[i] = static_cast<double>(i);
    CData data;
    data.SetData(y, y);
    data.SetPoint(kCount - 1, -1.0, -1.0);
    const CData& shared = data;

    std::atomic<int> wrong = 0;
    const auto read = [&] {
        for (int i = 0; i < 200; ++i) {
            const bool isRight = shared.GetYMax() == kCount - 2 && shared.GetYMin() == -1.0 &&
                                 shared.GetXMax() == kCount - 2 && shared.GetXMin() == -1.0;
            if (!isRight) ++wrong;
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) threads.emplace_back(read);
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
}

TEST(SetPoint, OfAWholeCurveTakesTimeInProportionToIt) {
    constexpr std::size_t kCount = 200000;
    const std::vector<double> zeros(kCount);
    CData data;
    data.SetData(zeros, zeros);
    for (std::size_t i = 0; i < kCount; ++i) data.SetPoint(i, static_cast<double>(i), -static_cast<double>(i));
    data.UpdateLimits();
    EXPECT_EQ(data.GetXMax(), kCount - 1.0);
    EXPECT_EQ(data.GetYMin(), 1.0 - kCount);
}

TEST(SetPoint, RefusesAnIndexOutside) {
    CData data = Filled();
    const auto message = ThrowsMessage<std::runtime_error>(" Index Out of Bounds...");
    EXPECT_THAT([&] { data.SetPoint(3, 0.0, 0.0); }, message);
    EXPECT_THAT([] { CData().SetPoint(0, 0.0, 0.0); }, message);
}

TEST(SetPoint, RefusesAnIndexOutsideTheShorterArray) {
    CData data = Filled();
    data.Setdelt(1.0);
    data.SetNLP(9);
    data.GenerateTime();  // ten X, three Y
    EXPECT_THAT([&] { data.SetPoint(3, 0.0, 0.0); }, ThrowsMessage<std::runtime_error>(" Index Out of Bounds..."));
}

// Derived values.

TEST(Count, FollowsThePointNumbersAtOnce) {
    EXPECT_EQ(Numbered(1.0, 5, 4).GetCount(), 0);
    EXPECT_EQ(Numbered(1.0, 7, 7).GetCount(), 1);
    EXPECT_EQ(Numbered(1.0, kLeast, kMost).GetCount(), kMost);

    CData data = Filled();
    EXPECT_EQ(data.GetCount(), 0) << "both numbers are 0, whatever the arrays hold";
    EXPECT_EQ(data.GetPointCount(), 3U);
}

TEST(UpdateLimits, ComputesTheTimesFromThePointNumbers) {
    CData data = Numbered(0.5, -4, 6);
    data.UpdateLimits();

    EXPECT_EQ(data.GetStartTime(), -2.0);
    EXPECT_EQ(data.GetEndTime(), 3.0);
}

TEST(UpdateLimits, KeepsTheExtremaOfAnArrayThatBecameEmpty) {
    CData data = Filled();
    EXPECT_THROW(data.SetData({1.0, 2.0, 3.0}, {}), CError);
    data.UpdateLimits();

    EXPECT_EQ(data.GetYMin(), 4.0);
    EXPECT_EQ(data.GetYMax(), 6.0);
}

TEST(UpdateLimits, MakesTheExtremaFollowAnXThatWasGenerated) {
    CData data = Filled();
    data.Setdelt(0.25);
    data.SetNLP(2);
    data.GenerateTime();
    EXPECT_EQ(data.GetXMin(), 1.0);
    EXPECT_EQ(data.GetXMax(), 3.0);
    data.UpdateLimits();
    EXPECT_EQ(data.GetXMin(), 0.0);
    EXPECT_EQ(data.GetXMax(), 0.5);
}

TEST(UpdateLimits, MakesTheExtremaFollowAfterAFailure) {
    CData data = Filled();
    EXPECT_THROW(data.SetData({10.0, 20.0}, {30.0, 40.0, 50.0}), CError);
    EXPECT_EQ(data.GetXMax(), 3.0);
    EXPECT_EQ(data.GetYMax(), 6.0);
    data.UpdateLimits();
    EXPECT_EQ(data.GetXMax(), 20.0);
    EXPECT_EQ(data.GetYMax(), 50.0);
}

TEST(UpdateLimits, FindsTheExtremaAgainWhenAnEmptyArrayIsFilled) {
    CData data = Filled();
    EXPECT_THROW(data.SetData({1.0, 2.0, 3.0}, {}), CError);
    data.UpdateLimits();
    data.SetData({1.0, 2.0, 3.0}, {7.0, 8.0, 9.0});
    EXPECT_EQ(data.GetYMin(), 7.0);
}

TEST(GenerateTime, ReplacesXByTheMultiplesOfTheTimeStep) {
    CData data = Filled();
    data.Setdelt(0.25);
    data.SetNFP(-1);
    data.SetNLP(1);
    data.GenerateTime();

    EXPECT_THAT(data.GetX(), ElementsAre(-0.25, 0.0, 0.25));
}

TEST(GenerateTime, EmptiesXWithoutPoints) {
    CData data = Filled();
    data.Setdelt(0.25);
    data.GenerateTime();

    EXPECT_THAT(data.GetX(), IsEmpty());
}

TEST(Data, StoresTheStatusInItsLongForm) {
    CData data;
    data.SetDataStatus("am");
    EXPECT_EQ(data.GetDataStatus(), "AS MEASURED");
    data.SetDataStatus("");
    EXPECT_EQ(data.GetDataStatus(), "");
}

}  // namespace
}  // namespace ks
