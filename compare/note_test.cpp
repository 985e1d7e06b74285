#include "compare/note.h"

#include "compare/sampling.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const CSampling kFine{5, 0.0, 1.0, 0.25};
const CSampling kCoarse{3, 0.0, 1.0, 0.5};

std::vector<std::string> Sentences(const std::vector<CNote>& notes) {
    std::vector<std::string> sentences;
    for (const CNote& note : notes) sentences.push_back(note.sentence);
    return sentences;
}

TEST(NameOf, GivesTheFrozenNames) {
    EXPECT_EQ(NameOf(CNoteKind::NotFiltered), "not-filtered");
    EXPECT_EQ(NameOf(CNoteKind::ReferenceResampled), "reference-resampled");
    EXPECT_EQ(NameOf(CNoteKind::Resampled), "resampled");
    EXPECT_EQ(NameOf(CNoteKind::CutToCommonRange), "cut-to-common-range");
    EXPECT_EQ(NameOf(CNoteKind::CutByPage), "cut-by-page");
    EXPECT_EQ(NameOf(CNoteKind::NoCommonTime), "no-common-time");
    EXPECT_EQ(NameOf(CNoteKind::UnitsDiffer), "units-differ");
    EXPECT_EQ(NameOf(CNoteKind::AverageIsFirst), "average-is-first");
}

TEST(AppendResampling, TellsPointsRangeAndStepBeforeAndAfter) {
    std::vector<CNote> notes;
    AppendResampling(notes, CNoteKind::Resampled, kFine, kCoarse);

    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].kind, CNoteKind::Resampled);
    EXPECT_EQ(notes[0].sentence,
              "Resampled for the comparison: 5 points from 0 to 1 at a step of 0.25 became 3 points from 0 to 1 at a "
              "step of 0.5.");
}

TEST(AppendResampling, OfAReferenceSaysThatItHasNoStep) {
    std::vector<CNote> notes;
    AppendResampling(notes, CNoteKind::ReferenceResampled, {200'000, 0.0, 0.2, 0.0}, {2001, 0.0, 0.2, 0.0001});

    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].kind, CNoteKind::ReferenceResampled);
    EXPECT_EQ(notes[0].sentence,
              "The reference has no time step and was resampled: 200000 points from 0 to 0.2 without a time step "
              "became 2001 points from 0 to 0.2 at a step of 0.0001.");
}

TEST(AppendResampling, TellsNothingWhileStepAndPointCountStay) {
    std::vector<CNote> notes;
    AppendResampling(notes, CNoteKind::Resampled, kFine, kFine);
    // The same step as a file holds it and as the program does.
    AppendResampling(notes, CNoteKind::Resampled, {9, 0.0, 0.0008, 9.999999747378752e-05}, {9, 0.0, 0.0008, 0.0001});

    EXPECT_THAT(notes, IsEmpty());
}

TEST(AppendResampling, TellsOfAPointThatIsLostAtTheSameStep) {
    std::vector<CNote> notes;
    AppendResampling(notes, CNoteKind::Resampled, {3, -0.5, 0.5, 0.5}, {2, 0.0, 0.5, 0.5});

    EXPECT_THAT(Sentences(notes),
                ElementsAre("Resampled for the comparison: 3 points from -0.5 to 0.5 at a step of 0.5 became 2 points "
                            "from 0 to 0.5 at a step of 0.5."));
}

TEST(AppendResampling, TellsOfACurveThatGoesOnBeyondItsPoints) {
    const std::string beyond = " Beyond its own points, the curve continues as a straight line.";
    std::vector<CNote> notes;
    AppendResampling(notes, CNoteKind::Resampled, {3, 5.0, 6.0, 0.0}, {12, 0.5, 6.0, 0.5});
    AppendResampling(notes, CNoteKind::Resampled, {3, 5.0, 6.0, 0.0}, {5, 5.0, 7.0, 0.5});
    AppendResampling(notes, CNoteKind::Resampled, {3, 5.0, 6.0, 0.0}, {5, 4.5, 6.5, 0.5});  // rounding to the step

    EXPECT_THAT(Sentences(notes), ElementsAre(testing::EndsWith("at a step of 0.5." + beyond),
                                              testing::EndsWith("at a step of 0.5." + beyond),
                                              testing::EndsWith("from 4.5 to 6.5 at a step of 0.5.")));
}

TEST(AppendCutToCommonRange, TellsFromWhereToWhere) {
    std::vector<CNote> notes;
    AppendCutToCommonRange(notes, {5, 0.0, 2.0, 0.5}, {1, 1.5, 1.5, 0.5});

    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].kind, CNoteKind::CutToCommonRange);
    EXPECT_EQ(notes[0].sentence, "Cut to the common time range: 5 points from 0 to 2 became 1 point from 1.5 to 1.5.");
}

TEST(AppendCutByPage, TellsThePageAndFromWhereToWhere) {
    std::vector<CNote> notes;
    AppendCutByPage(notes, "Residuals", {5, 0.0, 2.0, 0.5}, {4, 0.0, 1.5, 0.5});

    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].kind, CNoteKind::CutByPage);
    EXPECT_EQ(notes[0].sentence, "Cut by the page Residuals: 5 points from 0 to 2 became 4 points from 0 to 1.5.");
}

TEST(AppendCut, TellsNothingWhenAllPointsAreLeft) {
    std::vector<CNote> notes;
    AppendCutToCommonRange(notes, kFine, kFine);
    AppendCutByPage(notes, "Residuals", kFine, kFine);

    EXPECT_THAT(notes, IsEmpty());
}

TEST(AppendNoCommonTime, TellsBothRanges) {
    std::vector<CNote> notes;
    AppendNoCommonTime(notes, {3, 5.0, 6.0, 0.0}, "ref.txt", {3, 0.0, 1.5, 0.0});

    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].kind, CNoteKind::NoCommonTime);
    EXPECT_EQ(notes[0].sentence,
              "No time in common with ref.txt, which runs from 0 to 1.5; this signal runs from 5 to 6. A comparison of "
              "the two "
              "means nothing.");
}

TEST(AppendNoCommonTime, TellsNothingOfSignalsThatOverlap) {
    std::vector<CNote> notes;
    AppendNoCommonTime(notes, kFine, "ref", kCoarse);

    EXPECT_THAT(notes, IsEmpty());
}

}  // namespace
