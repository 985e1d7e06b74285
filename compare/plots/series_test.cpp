#include "compare/plots/series.h"

#include "files/error.h"
#include "signal/nsignal.h"
#include "tests/support/page_samples.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <optional>

namespace {

using testing::ElementsAre;

/// A record in which every descriptor differs from that of a new one.
ks::CNSignal UnusualRecord() {
    ks::CNSignal record = TimeSignal(0.1, {1, 2, 3}, 4);
    record.SetTITLE("title");
    record.SetTSTNO(7);
    record.SetFCUT(0.1);
    record.SetDataStatus("am");
    record.SetYQuantity("VELOCITY");
    record.SetCFCClass(180);
    record.SetModified(true);
    record.SetSourcePath("a/path");
    record.SetSourceFormat("VAX");
    record.SetFileType("ASCII File");
    for (std::size_t i = 0; i < 4; ++i) record.SetFurtherReal(i, 1.5 + static_cast<double>(i));
    record.SetSecondComponent(true);
    record.AddWarning("first");
    record.AddWarning("second");
    return record;
}

TEST(Series, ACopyWithoutArraysKeepsEverythingElse) {
    const ks::CNSignal record = UnusualRecord();
    const ks::CNSignal copy = CopyWithoutArrays(record);
    EXPECT_EQ(copy.GetTITLE(), "title");
    EXPECT_EQ(copy.GetTSTNO(), 7);
    EXPECT_EQ(copy.Getdelt(), 0.1);  // in double precision, not by way of the file's float
    EXPECT_EQ(copy.GetFCUT(), 0.1);
    EXPECT_EQ(copy.GetNFP(), 4);
    EXPECT_EQ(copy.GetNLP(), 6);
    EXPECT_EQ(copy.GetYTYPE(), "ACCELERATION");
    EXPECT_EQ(copy.GetDataStatus(), "AS MEASURED");
    EXPECT_EQ(copy.GetYQuantity(), "VELOCITY");
    EXPECT_EQ(copy.GetCFCClass(), 180);
    EXPECT_TRUE(copy.IsModified());
    EXPECT_EQ(copy.GetSourcePath(), "a/path");
    EXPECT_EQ(copy.GetSourceFormat(), "VAX");
    EXPECT_EQ(copy.GetFileType(), "ASCII File");
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(copy.GetFurtherReal(i), 1.5 + static_cast<double>(i));
    EXPECT_TRUE(copy.HasSecondComponent());
    EXPECT_THAT(copy.GetWarnings(), ElementsAre("first", "second"));
    EXPECT_EQ(copy.GetX().size() + copy.GetY().size() + copy.GetZ().size(), 0U);
}

TEST(Series, EveryStatusWordSurvivesTheCopy) {
    for (const char* word : {"am", "cm", "dft", "cf", "sf", "filtered", "aligend", "modified", "mn", "no", "qd",
                             "subsampled", "sc", "truncated", "un", "distorted", "Foo", ""}) {
        ks::CNSignal record;
        record.SetDataStatus(word);
        EXPECT_EQ(CopyWithoutArrays(record).GetDataStatus(), record.GetDataStatus()) << word;
    }
}

TEST(Series, SamplesAreTheNewYBesideTheFirstXAndZ) {
    ks::CNSignal source = TimeSignal(0.5, {1, 2, 3});
    source.SetData({0, 0.5, 1}, {1, 2, 3}, {7, 8, 9});
    ks::CNSignal record = CopyWithoutArrays(source);
    SetSamples(record, source, {-4, -5});
    EXPECT_THAT(record.GetX(), ElementsAre(0, 0.5));
    EXPECT_THAT(record.GetY(), ElementsAre(-4, -5));
    EXPECT_THAT(record.GetZ(), ElementsAre(7, 8));
    EXPECT_EQ(record.GetXMax(), 0.5);
    EXPECT_EQ(record.GetYMin(), -5.0);
    EXPECT_EQ(record.GetZMax(), 8.0);
}

TEST(Series, MoreYValuesThanTheSourceHasSamplesAreRefused) {
    const ks::CNSignal source = TimeSignal(0.5, {1, 2});
    EXPECT_THROW(CopyWithY(source, {1, 2, 3}), ks::CError);
}

TEST(Series, WithEqualRangesTheReferenceItselfIsTheCounterpart) {
    const ks::CNSignal reference = TimeSignal(0.5, {1, 2, 3});
    ks::CNSignal computed = TimeSignal(0.5, {4, 5, 6});
    std::optional<ks::CNSignal> cut;
    EXPECT_EQ(&InCommonRange(reference, computed, cut), &reference);
    EXPECT_FALSE(cut.has_value());
}

TEST(Series, WithDifferentRangesACutCopyIsTheCounterpart) {
    const ks::CNSignal reference = TimeSignal(0.5, {1, 2, 3, 4, 5});
    ks::CNSignal computed = TimeSignal(0.5, {4, 5, 6});
    std::optional<ks::CNSignal> cut;
    EXPECT_EQ(&InCommonRange(reference, computed, cut), &*cut);
    EXPECT_THAT(cut->GetY(), ElementsAre(1, 2));
    EXPECT_THAT(computed.GetY(), ElementsAre(4, 5));
    EXPECT_EQ(reference.GetPointCount(), 5U);
}

}  // namespace
