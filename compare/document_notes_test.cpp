// What a run and the pages note on the signals, on the reference and on the run.

#include "compare/document_host.h"
#include "compare/note.h"
#include "compare/plots/page_ids.h"
#include "compare/plots/page_table.h"
#include "tests/support/allocation_count.h"
#include "tests/support/document_fixture.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const std::vector<double> kFivePoints{0.0, 1.0, 4.0, 2.0, 0.0};
const std::string kNotFiltered = "not-filtered: Not filtered: computed signals from ASCII points never are.";

class Notes : public CDocumentFixture {
protected:
    /// "KIND: SENTENCE" of every note.
    static std::vector<std::string> Texts(const std::vector<CNote>& notes) {
        std::vector<std::string> texts;
        for (const CNote& note : notes) texts.push_back(std::string(NameOf(note.kind)) + ": " + note.sentence);
        return texts;
    }
    std::vector<std::string> Of(std::size_t i) const { return Texts(document.ComputedSignals().at(i).Notes()); }
    std::vector<std::string> OfReference() const { return Texts(document.Reference().Notes()); }
    std::vector<std::string> OfRun() const { return Texts(document.Notes()); }
};

// A run with a reference file.

TEST_F(Notes, AreNotTakenOfARunThatChangesNothing) {
    Run(Choice({Write("a.uds", kFivePoints)}, Write("ref.uds", kFivePoints)));

    EXPECT_THAT(Of(0), IsEmpty());
    EXPECT_THAT(OfReference(), IsEmpty());
    EXPECT_THAT(OfRun(), IsEmpty());
}

TEST_F(Notes, TellThatAComputedAsciiSignalIsNotFiltered) {
    CFileSelection choice = Choice({folder.Write("a.txt", "0 1\n0.5 2\n1 3\n"), Write("b.uds", {1.0, 2.0, 3.0})},
                                   Write("ref.uds", {1.0, 2.0, 3.0}));
    choice.shouldFilter = true;
    Run(choice);

    EXPECT_THAT(Of(0), ElementsAre(kNotFiltered, StartsWith("resampled: ")));
    EXPECT_THAT(Of(1), IsEmpty());
    EXPECT_THAT(document.ComputedSignals()[0].GetMessages(),
                testing::Not(testing::Contains(testing::HasSubstr("ASCII"))));
}

TEST_F(Notes, TellNothingOfAnAsciiReferenceThatIsFiltered) {
    CFileSelection choice = Choice({Write("a.uds", {1.0, 2.0, 3.0}, 0.0009765625)},
                                   folder.Write("ref.txt", "0 1\n0.0009765625 2\n0.001953125 3\n"));
    choice.shouldFilterReference = true;
    Run(choice);

    EXPECT_THAT(OfReference(), ElementsAre(StartsWith("reference-resampled: ")));
}

TEST_F(Notes, TellThatAReferenceWithoutAStepIsResampled) {
    Run(Choice({Write("a.uds", {0.0, 1.0}, 0.0009765625)}, folder.Write("ref.txt", "0 0\n0.001 10\n")));

    // 0 to 0.001 at 0.0001 are 11 points. The signal's 0.000977 is nine steps and a fraction: 0 to 0.0009.
    EXPECT_THAT(OfReference(),
                ElementsAre("reference-resampled: The reference has no time step and was resampled: 2 points from 0 to "
                            "0.001 without a time step became 11 points from 0 to 0.001 at a step of 0.0001."));
    EXPECT_THAT(Of(0), ElementsAre("resampled: Resampled for the comparison: 2 points from 0 to 0.000976562 at a step "
                                   "of 0.000976562 became 10 points from 0 to 0.0009 at a step of 0.0001.",
                                   "cut-to-common-range: Cut to the common time range: 10 points from 0 to 0.0009 "
                                   "became 9 points from 0 to 0.0008."));
}

TEST_F(Notes, TellThatASignalIsResampledToTheReferencesStep) {
    Run(Choice({Write("a.uds", kFivePoints, 0.25)}, Write("ref.uds", {0.0, 2.0, 4.0})));

    EXPECT_THAT(Of(0), ElementsAre("resampled: Resampled for the comparison: 5 points from 0 to 1 at a step of 0.25 "
                                   "became 3 points from 0 to 1 at a step of 0.5."));
    EXPECT_THAT(OfReference(), IsEmpty());
}

TEST_F(Notes, TellOfTheSampleThatTheOwnStepCostsBeforeTimeZero) {
    const std::string a = Write("a.uds", kFivePoints, 0.5, -2), reference = Write("ref.uds", kFivePoints, 0.5, -1);
    Run(Choice({a}, reference));

    // -1 / 0.5 + 0.01 cut toward zero is -1: the signal begins at -0.5, where the reference does; it ends at 1, the
    // reference at 1.5, and the last sample never survives a cut.
    EXPECT_THAT(Of(0), ElementsAre("resampled: Resampled for the comparison: 5 points from -1 to 1 at a step of 0.5 "
                                   "became 4 points from -0.5 to 1 at a step of 0.5.",
                                   "cut-to-common-range: Cut to the common time range: 4 points from -0.5 to 1 became "
                                   "3 points from -0.5 to 0.5."));
}

TEST_F(Notes, TellThatASignalIsCutToTheTimeItSharesWithTheReference) {
    Run(Choice({Write("a.uds", {0.0, 1.0, 4.0, 2.0, 0.0, 0.0, 0.0}, 0.5, 1)}, Write("ref.uds", kFivePoints)));

    // 0.5 to 3.5 and 0 to 2: from 0.5 to below 2.
    EXPECT_THAT(Of(0), ElementsAre("cut-to-common-range: Cut to the common time range: 7 points from 0.5 to 3.5 became "
                                   "3 points from 0.5 to 1.5."));
}

TEST_F(Notes, TellNothingOfTheWindowThatWasAskedFor) {
    CFileSelection choice = Choice({Write("a.uds", kFivePoints)}, Write("ref.uds", kFivePoints));
    choice.shouldTruncate = true;
    choice.windowEnd = 1.5;
    Run(choice);

    EXPECT_THAT(Of(0), IsEmpty());
    EXPECT_THAT(OfReference(), IsEmpty());
}

// Such signals were compared without a note: points numbered from 0 bound the resampling, so the curve is carried back
// to the reference's times by the line of its first two points.
TEST_F(Notes, TellThatASignalHasNoTimeInCommonWithTheReference) {
    const std::string reference = Write("ref.uds", kFivePoints), signal = folder.Write("a.txt", "5 1\n5.5 2\n6 3\n");
    Run(Choice({signal}, reference));

    // Point numbers 10 to 12 by time, 0 to 2 by count: from min(10, 2 - 1) = 1 to 12. In common with 0 to 2: 0.5, 1,
    // 1.5, where the line through (5, 1) and (5.5, 2) is -8, -7, -6.
    EXPECT_THAT(
        Of(0), ElementsAre(
                   "no-common-time: No time in common with " + reference +
                       ", which runs from 0 to 2; this signal runs from 5 to 6. A comparison of the two means nothing.",
                   "resampled: Resampled for the comparison: 3 points from 5 to 6 without a time step "
                   "became 12 points from 0.5 to 6 at a step of 0.5. Beyond its own points, the curve "
                   "continues as a straight line.",
                   "cut-to-common-range: Cut to the common time range: 12 points from 0.5 to 6 became 3 "
                   "points from 0.5 to 1.5."));
    EXPECT_THAT(Computed(0).GetY(), ElementsAre(-8.0, -7.0, -6.0));
    EXPECT_EQ(document.PageList(), OfferedPages(true));
    EXPECT_THAT(document.ErrorMessages(), IsEmpty());
}

TEST_F(Notes, TellItAlsoWhenTheComparisonFails) {
    const std::string reference = Write("ref.uds", kFivePoints), late = Write("late.uds", {4.0, 5.0, 6.0}, 0.5, 100);
    Run(Choice({late}, reference));

    EXPECT_THAT(document.ErrorMessages(), ElementsAre(late + ": Stop time (2) is before or equals Start Time (50)"));
    EXPECT_THAT(
        Of(0), ElementsAre(
                   "no-common-time: No time in common with " + reference +
                   ", which runs from 0 to 2; this signal runs from 50 to 51. A comparison of the two means nothing."));
}

// A run without one.

TEST_F(Notes, TellThatTheFirstSignalServesAsTheAverage) {
    const std::string a = Write("a.uds", kFivePoints), b = Write("b.uds", kFivePoints);
    Run(AverageChoice({a, b}));

    const std::string cut =
        "cut-to-common-range: Cut to the common time range: 5 points from 0 to 2 became 4 points from "
        "0 to 1.5.";
    EXPECT_THAT(OfRun(), ElementsAre("average-is-first: The reference is the first signal, " + a +
                                     ", not the mean of all signals."));
    EXPECT_THAT(Of(0), ElementsAre(cut));
    EXPECT_THAT(Of(1), ElementsAre(cut));
    EXPECT_THAT(OfReference(), ElementsAre(cut));  // it is a copy of the first signal
}

TEST_F(Notes, TellThatSignalsAreBroughtToTheLargestStep) {
    Run(AverageChoice({Write("a.uds", kFivePoints, 0.25), Write("b.uds", kFivePoints)}));

    // Both from 0 to below 1.
    EXPECT_THAT(Of(0), ElementsAre("resampled: Resampled for the comparison: 5 points from 0 to 1 at a step of 0.25 "
                                   "became 3 points from 0 to 1 at a step of 0.5.",
                                   "cut-to-common-range: Cut to the common time range: 3 points from 0 to 1 became 2 "
                                   "points from 0 to 0.5."));
    EXPECT_THAT(Of(1), ElementsAre("cut-to-common-range: Cut to the common time range: 5 points from 0 to 2 became 2 "
                                   "points from 0 to 0.5."));
}

TEST_F(Notes, TellThatASignalHasNoTimeInCommonWithTheFirst) {
    const std::string a = folder.Write("a.txt", "0 1\n0.5 2\n1 3\n"), b = folder.Write("b.txt", "5 1\n5.5 2\n6 3\n");
    Run(AverageChoice({a, b}));

    EXPECT_THAT(OfRun(), ElementsAre(StartsWith("average-is-first: ")));
    EXPECT_THAT(Of(0), testing::Each(testing::Not(StartsWith("no-common-time"))));
    EXPECT_EQ(Of(1).front(),
              "no-common-time: No time in common with " + a +
                  ", which runs from 0 to 1; this signal runs from 5 to 6. A comparison of the two means nothing.");
}

TEST_F(Notes, TellWhatSignalsWithoutACommonTimeAreComparedWith) {
    const std::string a = Write("a.uds", kFivePoints), late = Write("late.uds", kFivePoints, 0.5, 100);
    Run(AverageChoice({a, late}));
    EXPECT_THAT(OfRun(), ElementsAre("no-common-time: The signals have no time in common, so no reference was made. "
                                     "Nothing was compared; every result is 0."));
    EXPECT_EQ(Measures(0).GetPointCount(), 0);

    Run(Choice({a}, a));
    EXPECT_THAT(OfRun(), IsEmpty());

    const std::string early = Write("early.uds", {4.0, 5.0}), second = Write("second.uds", {4.0, 5.0}, 0.5, 1);
    Run(AverageChoice({early, second}));  // 0 to 0.5 and 0.5 to 1
    EXPECT_THAT(OfRun(), ElementsAre("no-common-time: The signals have no time in common, so no reference was made. "
                                     "They were compared with the reference of the run before."));
    // early 0 to 0.5, the old reference 0 to 2: cut, though it is not one of the signals.
    EXPECT_THAT(Of(0), ElementsAre("cut-to-common-range: Cut to the common time range: 2 points from 0 to 0.5 became 1 "
                                   "point from 0 to 0."));
    EXPECT_EQ(Of(1).front(),
              "no-common-time: No time in common with " + early +
                  ", which runs from 0 to 0.5; this signal runs from 0.5 to 1. A comparison of the two means nothing.");
}

TEST_F(Notes, AreForgottenByTheNextRun) {
    const std::string a = Write("a.uds", kFivePoints);
    Run(AverageChoice({a}));
    document.CompareLoadedList(0, 0.0, 0.0);

    EXPECT_EQ(OfRun().size(), 1U);
    EXPECT_EQ(Of(0).size(), 1U);
    EXPECT_EQ(OfReference().size(), 1U);
}

TEST_F(Notes, StayWhenTheChoiceIsCanceled) {
    Run(AverageChoice({Write("a.uds", kFivePoints)}));
    host.selection.reset();
    document.OnCompareFiles();

    EXPECT_EQ(OfRun().size(), 1U);
    EXPECT_EQ(Of(0).size(), 1U);
}

// Pages.

// The run leaves 4 points from 0 to 1.5; the reference goes to 2.
class PageNotes : public Notes {
protected:
    void SetUp() override {
        Run(Choice({Write("a.uds", {0.0, 1.0, 4.0, 2.0, 0.0, 0.0, 0.0}), Write("b.uds", kFivePoints)},
                   Write("ref.uds", kFivePoints)));
        ASSERT_THAT(Of(0), ElementsAre("cut-to-common-range: Cut to the common time range: 7 points from 0 to 3 became "
                                       "4 points from 0 to 1.5."));
    }
};

TEST_F(PageNotes, TellWhichPageCutASignalFromWhereToWhere) {
    document.SelectPage(page::kResiduals);
    document.SelectPage(page::kCumulativeDensity);

    const std::vector<std::string> notes = Of(0);
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_EQ(notes[1], "cut-by-page: Cut by the page Residuals: 4 points from 0 to 1.5 became 3 points from 0 to 1.");
    EXPECT_EQ(notes[2],
              "cut-by-page: Cut by the page Cummulative Density: 3 points from 0 to 1 became 2 points from 0 to 0.5.");
    EXPECT_THAT(Of(1), IsEmpty());
    EXPECT_THAT(OfRun(), IsEmpty());
    EXPECT_THAT(document.ComputedSignals()[0].GetMessages(), IsEmpty());
}

TEST_F(PageNotes, AreNotTakenOfAPageThatCutsNothing) {
    for (const std::int32_t pageId : document.PageList()) {
        if (pageId == page::kResiduals || pageId == page::kCumulativeDensity) continue;
        if (pageId == page::kCrossCorrelation) continue;
        document.SelectPage(pageId);
        document.SelectPage(pageId);
    }

    EXPECT_EQ(Of(0).size(), 1U);
    EXPECT_THAT(Of(1), IsEmpty());
}

TEST_F(PageNotes, TellWhatAPageCutBeforeItFailed) {
    // The second signal keeps one point, at 0, which no cut can start before and end after.
    Run(Choice({Write("a.uds", {0.0, 1.0, 4.0, 2.0, 0.0, 0.0, 0.0}), Write("short.uds", {0.0, 1.0})},
               Write("ref.uds", kFivePoints)));
    document.SelectPage(page::kResiduals);

    EXPECT_THAT(document.ErrorMessages(), ElementsAre("Stop time (0) is before or equals Start Time (0)"));
    EXPECT_EQ(Of(0).back(),
              "cut-by-page: Cut by the page Residuals: 4 points from 0 to 1.5 became 3 points from 0 to 1.");
    EXPECT_THAT(Of(1), ElementsAre("cut-to-common-range: Cut to the common time range: 2 points from 0 to 0.5 became 1 "
                                   "point from 0 to 0."));
}

// Cost.

class NoteCost : public Notes {
protected:
    std::size_t AllocationsOfResidualPage(std::size_t points) {
        std::vector<double> y(points, 1.0), longer(points + 3, 2.0);
        Run(Choice({Write("a.uds", std::move(longer))}, Write("ref.uds", std::move(y))));
        const std::size_t before = AllocationCount();
        document.SelectPage(page::kResiduals);
        const std::size_t allocations = AllocationCount() - before;
        EXPECT_EQ(Of(0).size(), 2U);
        return allocations;
    }
};

TEST_F(NoteCost, DoesNotGrowWithTheSignals) {
    AllocationsOfResidualPage(100);  // the first page grows buffers that stay
    const std::size_t few = AllocationsOfResidualPage(1000), many = AllocationsOfResidualPage(20000);
    EXPECT_LE(many, few + 10);  // numbers with more digits
}

TEST_F(NoteCost, IsNoCopyOfASignal) {
    CSignal signal("a");
    CSignal reference("ref");
    signal.Record() = MakeTimeSignal(std::vector<double>(20000, 1.0), 0.5);
    reference.Record() = MakeTimeSignal(std::vector<double>(20000, 1.0), 0.5);
    ResetLargestAllocation();
    signal.Compare(reference);  // same step, same range: nothing to resample or cut

    EXPECT_THAT(signal.Notes(), IsEmpty());
    EXPECT_LT(LargestAllocation(), 20000 * sizeof(double));
}

}  // namespace
