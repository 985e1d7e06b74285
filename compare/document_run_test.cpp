#include "compare/document_host.h"
#include "compare/plots/page_table.h"
#include "compare/run_state.h"
#include "tests/support/allocation_count.h"
#include "tests/support/document_fixture.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kOneTen = 0.0001;                       // the step of a reference that has none
constexpr double kSmallestStep = 9.999999747378752e-05;  // 0.0001 in single precision
constexpr double kClass60 = 100.0000000002;              // 60 * 1.66666666667

using Runs = CDocumentFixture;

std::vector<std::string> BothSentences(const std::string& path) {
    return {"File size not a multiple of 512 bytes.",
            "Failure to parse the file: " + path + " for reading.\nFailure to parse the data."};
}

// Asking.

TEST_F(Runs, OfferTheDefaultsFirst) {
    document.OnCompareFiles();

    ASSERT_TRUE(host.offered.has_value());
    EXPECT_THAT(host.offered->files, IsEmpty());
    EXPECT_EQ(host.offered->referencePath, "");
    EXPECT_FALSE(host.offered->isReferenceAverage);
    EXPECT_TRUE(host.offered->shouldFilter);
    EXPECT_TRUE(host.offered->shouldFilterReference);
    EXPECT_FALSE(host.offered->shouldTruncate);
    EXPECT_EQ(host.offered->channelClass, 60);
    EXPECT_EQ(host.offered->windowStart, 0.0);
    EXPECT_EQ(host.offered->windowEnd, 0.30000001192092896);
}

TEST_F(Runs, OfferTheLastChoiceAgain) {
    CFileSelection choice =
        Choice({Write("a.uds", {1.0, 2.0, 3.0}), Write("b.uds", {1.0, 2.0, 3.0})}, Write("ref.uds", {1.0, 2.0, 3.0}));
    choice.shouldFilter = true;
    choice.shouldTruncate = true;
    choice.channelClass = 180;
    choice.windowEnd = 9.0;
    Run(choice);
    document.OnCompareFiles();

    EXPECT_EQ(host.offered->files, choice.files);
    EXPECT_EQ(host.offered->referencePath, choice.referencePath);
    EXPECT_FALSE(host.offered->isReferenceAverage);
    EXPECT_TRUE(host.offered->shouldFilter);
    EXPECT_TRUE(host.offered->shouldTruncate);
    EXPECT_EQ(host.offered->channelClass, 180);
}

TEST_F(Runs, OfferTheReferenceOfAnAverageRunByItsPath) {
    const std::string file = Write("a.uds", {1.0, 2.0, 3.0});
    Run(AverageChoice({file}));
    document.OnCompareFiles();

    EXPECT_TRUE(host.offered->isReferenceAverage);
    EXPECT_EQ(host.offered->referencePath, file);
}

TEST_F(Runs, ChangeNothingOnCancel) {
    const std::string file = Write("a.uds", {1.0, 2.0, 3.0}), reference = Write("ref.uds", {1.0, 2.0, 4.0});
    Run(Choice({file}, reference));
    document.SelectPage(2);
    Forget();
    host.selection.reset();
    document.OnCompareFiles();

    EXPECT_THAT(host.calls, ElementsAre("select"));
    EXPECT_THAT(document.ComputedSignals(), SizeIs(1));
    EXPECT_THAT(document.SignalCopies(), SizeIs(1));
    EXPECT_EQ(document.Reference().GetPath(), reference);
    EXPECT_EQ(document.PageList(), OfferedPages(true));
    EXPECT_EQ(document.CurrentPageId(), 2);
}

// A run with a reference file.

TEST_F(Runs, AskWorkTellAndEndBusyInThisOrder) {
    Run(Choice({Write("a.uds", {1.0, 2.0, 3.0})}, Write("ref.uds", {1.0, 2.0, 3.0})));

    EXPECT_THAT(host.calls, ElementsAre("select", "busy on", "hint 1", "busy off"));
}

TEST_F(Runs, SayThatTheyAreAtWorkAndThatTheyCompleted) {
    EXPECT_EQ(document.Run(), CRunState::None);
    std::vector<CRunState> meanwhile;
    host.whileAtWork = [&] { meanwhile.push_back(document.Run()); };
    observer.alsoDo = [&](int) { meanwhile.push_back(document.Run()); };
    Run(AverageChoice({Write("a.uds", {1.0, 2.0, 3.0})}));

    EXPECT_EQ(document.Run(), CRunState::Completed);
    EXPECT_THAT(observer.runs, ElementsAre(CRunState::AtWork, CRunState::Completed));
    // Four steps, their end, and the hint.
    const CRunState atWork = CRunState::AtWork;
    EXPECT_THAT(meanwhile, ElementsAre(atWork, atWork, atWork, atWork, atWork, CRunState::Completed));
}

TEST_F(Runs, SayThatTheyStopped) {
    const std::string file = Write("a.uds", {1.0, 2.0, 3.0}), junk = folder.Write("junk.001", "junk");
    Run(AverageChoice({junk}));
    EXPECT_EQ(document.Run(), CRunState::Stopped);

    Run(AverageChoice({file}));
    Run(Choice({file}, junk));
    EXPECT_EQ(document.Run(), CRunState::Stopped);
    EXPECT_THAT(observer.runs, ElementsAre(CRunState::AtWork, CRunState::Stopped, CRunState::AtWork,
                                           CRunState::Completed, CRunState::AtWork, CRunState::Stopped));
}

TEST_F(Runs, StopWhenAnExceptionLeavesThem) {
    const CFileSelection choice = AverageChoice({Write("a.uds", {1.0, 2.0, 3.0})});
    bool isThrown = false;
    host.whileAtWork = [&] {
        if (!std::exchange(isThrown, true)) throw std::runtime_error("no screen");
    };
    EXPECT_THROW(Run(choice), std::runtime_error);
    EXPECT_EQ(document.Run(), CRunState::Stopped);
}

TEST_F(Runs, StayAsTheyWereOnCancel) {
    document.OnCompareFiles();
    EXPECT_EQ(document.Run(), CRunState::None);
    Run(AverageChoice({Write("a.uds", {1.0, 2.0, 3.0})}));
    observer.runs.clear();
    host.selection.reset();
    document.OnCompareFiles();
    EXPECT_EQ(document.Run(), CRunState::Completed);
    EXPECT_THAT(observer.runs, IsEmpty());
}

TEST_F(Runs, ReportTheirProgress) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), b = Write("b.uds", {1.0, 2.0, 3.0}),
                      reference = Write("ref.uds", {1.0, 2.0, 3.0});
    CFileSelection choice = Choice({a, b}, reference);
    choice.shouldFilter = true;
    choice.shouldTruncate = true;
    choice.windowEnd = 9.0;
    Run(choice);

    // Reading, filtering, cutting, the reference, resampling, comparing, the end.
    EXPECT_THAT(host.progress,
                ElementsAre("0/11 " + a, "1/11 " + b, "2/11 " + a, "3/11 " + b, "4/11 " + a, "5/11 " + b,
                            "6/11 " + reference, "7/11 " + a, "8/11 " + b, "9/11 " + a, "10/11 " + b, "11/11 "));
}

TEST_F(Runs, WithoutAReferenceFileReportTheirProgress) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    Run(AverageChoice({a}));

    // Reading, resampling, the common range, comparing, the end.
    EXPECT_THAT(host.progress, ElementsAre("0/4 " + a, "1/4 " + a, "2/4 " + a, "3/4 " + a, "4/4 "));
}

TEST_F(Runs, HaveEverythingReadyWhenTheyTell) {
    std::vector<std::int32_t> pageList;
    std::int32_t pageId = 0, seriesCount = 0;
    observer.alsoDo = [&](int) {
        pageList = document.PageList();
        pageId = document.CurrentPageId();
        seriesCount = document.ChartBlock().seriesCount;
    };
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    Run(Choice({a, a, a}, a));

    EXPECT_EQ(pageList, OfferedPages(true));
    EXPECT_EQ(pageId, 1);
    EXPECT_EQ(seriesCount, 3);
}

TEST_F(Runs, CompareEveryFileWithTheReferenceInOrder) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), b = Write("b.uds", {3.0, 2.0, 3.0}),
                      reference = Write("ref.uds", {1.0, 0.0, 3.0});
    Run(Choice({b, a}, reference));

    ASSERT_THAT(document.ComputedSignals(), SizeIs(2));
    EXPECT_EQ(document.ComputedSignals()[0].GetPath(), b);
    EXPECT_EQ(document.ComputedSignals()[0].GetReferenceName(), reference);
    EXPECT_EQ(Measures(0).GetResidualSum(), 4.0);
    EXPECT_EQ(document.ComputedSignals()[1].GetPath(), a);
    EXPECT_EQ(Measures(1).GetResidualSum(), 2.0);
    EXPECT_THAT(document.ErrorMessages(), IsEmpty());
}

TEST_F(Runs, ResampleTheComputedSignalsToTheReferencesStep) {
    Run(Choice({Write("a.uds", {0.0, 1.0, 2.0, 3.0, 4.0}, 0.25)}, Write("ref.uds", {0.0, 2.0, 4.0})));

    EXPECT_EQ(Computed(0).Getdelt(), 0.5);
    EXPECT_THAT(Computed(0).GetY(), ElementsAre(0.0, 2.0, 4.0));
    EXPECT_EQ(Measures(0).GetPointCount(), 3);
}

TEST_F(Runs, KeepACopyOfEverySignalAsItWasRead) {
    CFileSelection choice = Choice({Write("a.uds", {0.0, 1.0, 2.0, 3.0, 4.0}, 0.25), Write("b.uds", {5.0, 6.0})},
                                   Write("ref.uds", {0.0, 2.0, 4.0}));
    choice.shouldFilter = true;
    Run(choice);

    ASSERT_THAT(document.SignalCopies(), SizeIs(2));
    EXPECT_THAT(document.SignalCopies()[0]->GetY(), ElementsAre(0.0, 1.0, 2.0, 3.0, 4.0));
    EXPECT_EQ(document.SignalCopies()[0]->GetCFCClass(), 1001);
    EXPECT_THAT(document.SignalCopies()[1]->GetY(), ElementsAre(5.0, 6.0));
}

TEST_F(Runs, KeepNoCopiesWhenNobodyReadsThem) {
    document.SetKeepsCopies(false);
    CFileSelection choice = Choice({Write("a.uds", {0.0, 1.0, 2.0, 3.0, 4.0}, 0.25), Write("b.uds", {5.0, 6.0})},
                                   Write("ref.uds", {0.0, 2.0, 4.0}));
    choice.shouldFilter = true;
    Run(choice);
    EXPECT_THAT(document.SignalCopies(), IsEmpty());
}

TEST_F(Runs, ReplaceTheSignalsOfAnEarlierRun) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), b = Write("b.uds", {1.0, 2.0, 3.0});
    Run(Choice({a, a}, a));
    Run(Choice({b}, b));

    ASSERT_THAT(document.ComputedSignals(), SizeIs(1));
    EXPECT_EQ(document.ComputedSignals()[0].GetPath(), b);
    EXPECT_THAT(document.SignalCopies(), SizeIs(1));
    EXPECT_EQ(document.Reference().GetPath(), b);
}

TEST_F(Runs, GoBackToTheSummaryAndKeepTheCurvesOfThePage) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    Run(Choice({a}, a));
    document.SelectPage(4);
    const std::vector<std::string> names = document.SeriesNames();
    Run(Choice({a}, a));

    EXPECT_EQ(document.CurrentPageId(), 1);
    EXPECT_EQ(document.SeriesNames(), names);
    EXPECT_THAT(names, testing::Not(IsEmpty()));
}

TEST_F(Runs, TakeTheFlagsOfTheChoice) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    EXPECT_TRUE(Offered().shouldFilter);
    EXPECT_FALSE(Offered().shouldTruncate);
    EXPECT_FALSE(Offered().isReferenceAverage);

    CFileSelection choice = AverageChoice({a});
    choice.shouldTruncate = true;
    choice.windowEnd = 9.0;
    Run(choice);
    EXPECT_FALSE(Offered().shouldFilter);
    EXPECT_TRUE(Offered().shouldTruncate);
    EXPECT_TRUE(Offered().isReferenceAverage);
}

TEST_F(Runs, ApplyTheDocumentsCorridorSize) {
    const std::string zeros = Write("zero.uds", {0.0, 0.0, 0.0, 0.0}), ones = Write("one.uds", {1.0, 1.0, 1.0, 1.0});
    host.corridorSize = 0.5;
    document.OnCorridorSize();
    Run(Choice({ones}, zeros));

    EXPECT_EQ(Measures(0).GetCorridorSize(), 0.5);
    EXPECT_EQ(Measures(0).GetPercentOutsideCorridor(), 50.0);  // the first point is judged against 4
    EXPECT_EQ(document.Reference().Comparison().GetCorridorSize(), 0.5);
}

TEST_F(Runs, WithoutFilesTellAnEmptyPageList) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    Run(Choice({a}, a));
    Run(Choice({}, a));

    EXPECT_THAT(host.calls, ElementsAre("select", "busy on", "hint 1", "busy off"));
    EXPECT_THAT(document.PageList(), IsEmpty());
    EXPECT_EQ(document.ChartBlock().seriesCount, 0);
}

// Page list.

TEST_F(Runs, OfferAccelerationPagesForAReferenceInGravities) {
    ks::CNSignal record = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 0.5);
    record.SetYUNITS("MEAN G'S");
    const std::string reference = WriteUds(folder, "ref.uds", record);
    Run(Choice({reference}, reference));

    EXPECT_EQ(document.PageList(), OfferedPages(true));
}

TEST_F(Runs, OfferTheInputPageForAnyOtherReference) {
    ks::CNSignal record = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 0.5);
    record.SetYUNITS("g's");
    Run(Choice({Write("a.uds", {1.0, 2.0, 3.0})}, WriteUds(folder, "ref.uds", record)));

    EXPECT_EQ(document.PageList(), OfferedPages(false));
}

// Filtering.

TEST_F(Runs, FilterComputedSignalsAndTheReferenceAtTheChosenClass) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    CFileSelection choice = Choice({a, a}, a);
    choice.shouldFilter = true;
    choice.shouldFilterReference = true;
    choice.channelClass = 180;
    Run(choice);

    EXPECT_EQ(Computed(0).GetCFCClass(), 180);
    EXPECT_EQ(Computed(1).GetCFCClass(), 180);
    EXPECT_EQ(Reference().GetCFCClass(), 180);
    EXPECT_EQ(Reference().GetDataStatus(), "FILTERED");
}

TEST_F(Runs, LeaveTheReferenceUnfilteredOnRequest) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    CFileSelection choice = Choice({a}, a);
    choice.shouldFilter = true;
    Run(choice);

    EXPECT_EQ(Computed(0).GetCFCClass(), 60);
    EXPECT_EQ(Reference().GetCFCClass(), 1001);
}

TEST_F(Runs, FilterTheReferenceAloneOnRequest) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    CFileSelection choice = Choice({a}, a);
    choice.shouldFilterReference = true;
    Run(choice);

    EXPECT_EQ(Computed(0).GetCFCClass(), 1001);
    EXPECT_EQ(Reference().GetCFCClass(), 60);
}

TEST_F(Runs, NeverFilterAComputedAsciiFile) {
    const std::string ascii = folder.Write("a.txt", "0 1\n0.5 2\n1 3\n");
    CFileSelection choice = Choice({ascii, Write("b.uds", {1.0, 2.0, 3.0})}, Write("ref.uds", {1.0, 2.0, 3.0}));
    choice.shouldFilter = true;
    Run(choice);

    EXPECT_EQ(Computed(0).GetCFCClass(), 1001);
    EXPECT_EQ(Computed(0).GetFCUT(), 0.0);
    EXPECT_EQ(Computed(1).GetCFCClass(), 60);
    EXPECT_NEAR(Computed(1).GetFCUT(), kClass60, 1e-9);
    EXPECT_THAT(document.ErrorMessages(), IsEmpty());
}

TEST_F(Runs, FilterAnAsciiReferenceOnRequest) {
    CFileSelection choice = Choice({Write("a.uds", {1.0, 2.0, 3.0})}, folder.Write("ref.txt", "0 1\n0.5 2\n1 3\n"));
    choice.shouldFilterReference = true;
    Run(choice);

    EXPECT_EQ(Reference().GetFileType(), "ASCII File");
    EXPECT_EQ(Reference().GetCFCClass(), 60);
    EXPECT_EQ(Reference().GetDataStatus(), "FILTERED");
}

// Time window.

TEST_F(Runs, CutEverySignalToTheWindow) {
    CFileSelection choice = Choice({Write("a.uds", {0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0})},
                                   Write("ref.uds", {0.0, 10.0, 20.0, 30.0, 40.0, 50.0, 60.0}));
    choice.shouldTruncate = true;
    choice.windowStart = 0.5;
    choice.windowEnd = 2.0;
    Run(choice);

    EXPECT_THAT(Computed(0).GetX(), ElementsAre(0.5, 1.0, 1.5));
    EXPECT_THAT(Computed(0).GetY(), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_THAT(Reference().GetY(), ElementsAre(10.0, 20.0, 30.0));
    EXPECT_EQ(Reference().GetDataStatus(), "TRUNCATED");
    EXPECT_EQ(Measures(0).GetPointCount(), 3);
}

// References.

TEST_F(Runs, ResampleAReferenceWithoutAStepToATenthOfAMillisecond) {
    const std::string reference = folder.Write("ref.txt", "0 0\n0.001 10\n");
    Run(Choice({Write("a.uds", {0.0, 1.0}, 0.0009765625)}, reference));

    EXPECT_EQ(Reference().Getdelt(), kOneTen);
    EXPECT_EQ(Reference().GetPointCount(), 11U);
    EXPECT_NEAR(Reference().GetY()[3], 3.0, 1e-12);
    EXPECT_EQ(Computed(0).Getdelt(), kOneTen);
    EXPECT_NEAR(Computed(0).GetX()[1], kOneTen, 1e-18);
}

TEST_F(Runs, TakeNothingOverFromAnEarlierReference) {
    ks::CNSignal record = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 0.5);
    record.SetTITLE("earlier");
    const std::string a = WriteUds(folder, "a.uds", record);
    CFileSelection choice = Choice({a}, a);
    choice.shouldFilterReference = true;
    Run(choice);
    ASSERT_EQ(Reference().GetTITLE(), "earlier");
    Run(Choice({a}, folder.Write("ref.txt", "0 1\n0.5 2\n1 3\n")));

    EXPECT_EQ(Reference().GetTITLE(), "");
    EXPECT_EQ(Reference().GetYUNITS(), "");
    EXPECT_EQ(Reference().GetCFCClass(), 1001);
    EXPECT_THAT(Reference().GetWarnings(), IsEmpty());
    EXPECT_EQ(document.PageList(), OfferedPages(false));
}

TEST_F(Runs, StopAtOnceWhenTheReferenceCannotBeRead) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), b = Write("b.uds", {4.0, 5.0}, 0.25),
                      unreadable = folder.Write("ref.uds", "words");
    Run(Choice({a}, a));
    document.SelectPage(2);
    Run(Choice({b}, unreadable));

    EXPECT_THAT(host.calls, ElementsAre("select", "busy on"));
    EXPECT_THAT(document.ErrorMessages(), IsEmpty());
    EXPECT_EQ(document.ReferenceMessages(), BothSentences(unreadable));
    EXPECT_EQ(document.Reference().GetPath(), unreadable);
    EXPECT_THAT(Reference().GetY(), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_EQ(document.PageList(), OfferedPages(true));
    EXPECT_EQ(document.CurrentPageId(), 2);
    EXPECT_EQ(Computed(0).Getdelt(), 0.25);
    EXPECT_EQ(host.progress.back(), "2/4 ");
}

TEST_F(Runs, DropTheMessagesOfAnEarlierRun) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    Run(Choice({a}, folder.Path("missing")));
    ASSERT_THAT(document.ReferenceMessages(), SizeIs(2));
    Run(Choice({folder.Path("missing")}, a));
    ASSERT_THAT(document.ErrorMessages(), SizeIs(2));
    EXPECT_THAT(document.ReferenceMessages(), IsEmpty());
    Run(Choice({a}, a));

    EXPECT_THAT(document.ErrorMessages(), IsEmpty());
    EXPECT_THAT(host.errorLists, IsEmpty());
}

// Files that cannot be read.

TEST_F(Runs, StopAtAnUnreadableFileButReadTheOthers) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), b = Write("b.uds", {4.0, 5.0, 6.0});
    const std::string words = folder.Write("words.txt", "words"), more = folder.Write("more.txt", "more words");
    Run(Choice({a}, a));
    document.SelectPage(4);
    CFileSelection choice = Choice({words, b, more}, folder.Path("missing"));
    choice.shouldFilter = true;
    Run(choice);

    EXPECT_THAT(host.calls, ElementsAre("select", "busy on", "busy off", "beep", "errors"));
    std::vector<std::string> sentences = BothSentences(words);
    for (const std::string& sentence : BothSentences(more)) sentences.push_back(sentence);
    EXPECT_THAT(host.errorLists, ElementsAre(sentences));
    EXPECT_EQ(document.ErrorMessages(), sentences);
    EXPECT_EQ(host.lastErrors,
              (std::vector<CRunMessage>{
                  {words, sentences[0]}, {words, sentences[1]}, {more, sentences[2]}, {more, sentences[3]}}));
    EXPECT_THAT(document.ComputedSignals(), SizeIs(3));
    ASSERT_THAT(document.SignalCopies(), SizeIs(1));
    EXPECT_THAT(document.SignalCopies()[0]->GetY(), ElementsAre(4.0, 5.0, 6.0));
    EXPECT_EQ(Computed(1).GetCFCClass(), 1001);
    EXPECT_THAT(document.ReferenceMessages(), IsEmpty());
    EXPECT_EQ(document.PageList(), OfferedPages(true));
    EXPECT_EQ(document.CurrentPageId(), 4);
    EXPECT_EQ(host.progress.back(), "3/13 ");
}

// Memory that does not suffice.

class LargeSignals : public CDocumentFixture {
protected:
    static constexpr std::size_t kBytes = 100000;  ///< less than the arrays of a signal need

    /// A file whose arrays take 160 000 bytes each, of times that another step does not divide.
    std::string Large(const std::string& name) { return Write(name, std::vector<double>(20000, 1.0)); }

    const std::string m_forStep = "There is not enough memory for this step. Fewer or shorter signals would need less.";
};

TEST_F(LargeSignals, AreNamedWhenTheyCannotBeRead) {
    const std::string large = Large("large.uds"), small = Write("small.uds", {1.0, 2.0, 3.0});
    const CAllocationLimit limit(kBytes);
    Run(Choice({large, small}, small));

    const std::string sentence = "There is not enough memory to read the file: " + large + ".";
    EXPECT_EQ(host.lastErrors, (std::vector<CRunMessage>{{large, sentence}}));
    EXPECT_THAT(document.PageList(), IsEmpty());
}

TEST_F(LargeSignals, GetASentenceOfTheStepThatTheyAreTooLargeFor) {
    const std::string large = Large("large.uds"), small = Write("small.uds", {1.0, 2.0, 3.0});
    document.SetComputedFiles({large, small});
    ASSERT_EQ(document.ReadComputedSignals(), 1);
    const CAllocationLimit limit(kBytes);

    EXPECT_EQ(document.BuildAverageReference(), 0);
    EXPECT_THAT(document.ErrorMessages(), ElementsAre(large + ": " + m_forStep));
}

TEST_F(LargeSignals, StopARunWithASentenceWhereverTheMemoryEnds) {
    const std::string large = Large("large.uds"), other = Large("other.uds");
    CFileSelection choice = Choice({large, other}, large);
    choice.shouldTruncate = true;
    choice.windowEnd = 1e9;
    CFileSelection average = choice;
    average.isReferenceAverage = true;
    for (const CFileSelection& selection : {choice, average}) {
        std::size_t allowed = 0;
        for (bool isCompleted = false; !isCompleted; ++allowed) {
            const CAllocationLimit limit(kBytes, allowed);
            CQuorvelDoc fresh(host);
            host.selection = selection;
            fresh.OnCompareFiles();
            isCompleted = !fresh.PageList().empty();
            const std::vector<std::string> errors = fresh.ErrorMessages(), ofReference = fresh.ReferenceMessages();
            EXPECT_EQ(errors.empty() && ofReference.empty(), isCompleted) << allowed;
            EXPECT_THAT(errors, testing::Each(testing::HasSubstr("There is not enough memory"))) << allowed;
            EXPECT_THAT(ofReference, testing::Each(testing::HasSubstr("There is not enough memory"))) << allowed;
        }
        EXPECT_GT(allowed, 6U) << "the memory must have ended in many places";
    }
}

// Too little memory lost its own message and left the run at work for ever.
TEST_F(LargeSignals, LeaveTheMemoryOfAStoppedRunToItsMessages) {
    const std::string small = Write("small.uds", {1.0, 2.0, 3.0}), large = Large("large.uds");
    {
        const CAllocationLimit limit(kBytes);
        Run(Choice({small, large}, small));
    }
    EXPECT_EQ(document.Run(), CRunState::Stopped);
    EXPECT_THAT(document.SignalCopies(), IsEmpty());
    EXPECT_EQ(document.ComputedSignals()[0].GetPath(), small);
    EXPECT_EQ(document.ComputedSignals()[0].GetPointCount(), 0U);
    EXPECT_THAT(document.ComputedSignals()[1].GetMessages(),
                ElementsAre("There is not enough memory to read the file: " + large + "."));
}

TEST_F(Runs, EndEvenWithoutAnyMemory) {
    const CFileSelection choice = AverageChoice({Write("a.uds", {1.0, 2.0, 3.0}), Write("b.uds", {1.0, 2.0, 3.0})});
    std::unique_ptr<CAllocationLimit> limit;
    host.whileAtWork = [&limit] {
        if (!limit) limit = std::make_unique<CAllocationLimit>(0);
    };
    EXPECT_THROW(Run(choice), std::bad_alloc);
    limit.reset();
    EXPECT_EQ(document.Run(), CRunState::Stopped);

    host.whileAtWork = [] {};
    Run(choice);
    EXPECT_EQ(document.Run(), CRunState::Completed);
}

// Signals that cannot be prepared.

class StoppedRuns : public CDocumentFixture {
protected:
    /// Expects that the last run showed exactly these messages and gave no hint.
    void ExpectStopped(const std::vector<std::string>& messages) const {
        EXPECT_THAT(host.calls, ElementsAre("select", "busy on", "busy off", "beep", "errors"));
        EXPECT_THAT(host.errorLists, ElementsAre(messages));
        EXPECT_THAT(document.PageList(), IsEmpty());
        EXPECT_EQ(document.CurrentPageId(), 0);
    }

    /// A UDS file without a time step.
    std::string WriteStepless(const std::string& name) {
        return WriteUds(folder, name, MakeTimeSignal({0.0, 0.5, 1.0}, {1.0, 2.0, 3.0}, 0.0));
    }
};

TEST_F(StoppedRuns, TryToFilterEverySignal) {
    const std::string bad = WriteStepless("bad.uds"), worse = WriteStepless("worse.uds"),
                      good = Write("good.uds", {1.0, 2.0, 3.0});
    CFileSelection choice = Choice({bad, good, worse}, good);
    choice.shouldFilter = true;
    choice.shouldTruncate = true;
    choice.windowEnd = 1.0;
    Run(choice);

    ExpectStopped({bad + ": Nonpositive time step", worse + ": Nonpositive time step"});
    EXPECT_EQ(Computed(1).GetDataStatus(), "FILTERED");  // and not cut any more
    EXPECT_THAT(Reference().GetY(), IsEmpty());
}

TEST_F(StoppedRuns, RefuseAChannelClassThatDoesNotExist) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    CFileSelection choice = Choice({a}, a);
    choice.shouldFilter = true;
    choice.channelClass = 100;
    Run(choice);

    ExpectStopped({a + ": BWfilt: Frequency Channel Class is not specified in SAE J211"});
}

TEST_F(StoppedRuns, TryToCutEverySignal) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), late = Write("late.uds", {4.0, 5.0, 6.0}, 0.5, 100),
                      b = Write("b.uds", {7.0, 8.0, 9.0});
    CFileSelection choice = Choice({late, a, late, b}, a);
    choice.shouldTruncate = true;
    choice.windowEnd = 1.0;
    Run(choice);

    ExpectStopped({late + ": No X or Y Signal Data", late + ": No X or Y Signal Data"});
    EXPECT_THAT(Computed(3).GetY(), ElementsAre(7.0, 8.0));
}

TEST_F(StoppedRuns, RefuseAWindowThatEndsBeforeItStarts) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    CFileSelection choice = Choice({a, a}, a);
    choice.shouldTruncate = true;
    choice.windowStart = 2.0;
    choice.windowEnd = 1.0;
    Run(choice);

    ExpectStopped({a + ": Stop time (1) is before or equals Start Time (2)",
                   a + ": Stop time (1) is before or equals Start Time (2)"});
}

TEST_F(StoppedRuns, TryToResampleEverySignalToTheReference) {
    const std::string unordered = folder.Write("unordered.txt", "0 1\n1 2\n0.5 3\n"),
                      onePoint = folder.Write("one.txt", "0 1\n"), fine = Write("fine.uds", {1.0, 2.0, 3.0}, 0.25);
    Run(Choice({unordered, onePoint, fine}, Write("ref.uds", {1.0, 2.0})));

    ExpectStopped(
        {unordered + ": X axis data is not monotonically increasing", onePoint + ": Error Interpolating Data"});
    EXPECT_EQ(Computed(2).Getdelt(), 0.5);
    EXPECT_THAT(Reference().GetY(), IsEmpty());
}

TEST_F(StoppedRuns, KeepTheOldReferenceWhenTheNewOneCannotBeResampled) {
    const std::string reference = folder.Write("ref.txt", "0 1\n"), a = Write("a.uds", {1.0, 2.0}, 0.0009765625);
    Run(Choice({a}, reference));

    ExpectStopped({reference + ": Error Interpolating Data"});
    EXPECT_THAT(Reference().GetY(), IsEmpty());
    EXPECT_EQ(Computed(0).Getdelt(), kOneTen);
    EXPECT_THAT(document.ReferenceMessages(), IsEmpty());
}

TEST_F(StoppedRuns, NameTheReferenceThatCannotBeFiltered) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), reference = Write("ref.uds", {1.0, 2.0, 3.0});
    CFileSelection choice = Choice({a}, reference);
    choice.shouldFilterReference = true;
    choice.channelClass = 100;
    choice.shouldTruncate = true;
    choice.windowEnd = 1.0;
    Run(choice);

    ExpectStopped({reference + ": BWfilt: Frequency Channel Class is not specified in SAE J211"});
    EXPECT_THAT(Reference().GetY(), ElementsAre(1.0, 2.0, 3.0));  // and not cut any more
}

TEST_F(StoppedRuns, NameTheReferenceThatCannotBeCut) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), late = Write("late.uds", {4.0, 5.0, 6.0}, 0.5, 100);
    CFileSelection choice = Choice({a}, late);
    choice.shouldTruncate = true;
    choice.windowEnd = 1.0;
    Run(choice);

    ExpectStopped({late + ": No X or Y Signal Data"});
}

TEST_F(StoppedRuns, TryToCompareEverySignal) {
    const std::string late = Write("late.uds", {4.0, 5.0, 6.0}, 0.5, 100), a = Write("a.uds", {1.0, 2.0, 3.0}),
                      reference = Write("ref.uds", {0.0, 0.0, 0.0});
    Run(Choice({late, a}, reference));

    ExpectStopped({late + ": Stop time (1) is before or equals Start Time (50)"});
    EXPECT_EQ(Measures(1).GetResidualSum(), 3.0);
    EXPECT_EQ(document.ComputedSignals()[1].GetReferenceName(), reference);
    EXPECT_EQ(document.ComputedSignals()[0].GetReferenceName(), "");
}

TEST_F(StoppedRuns, WithoutAReferenceFileTryToResampleEverySignal) {
    const std::string onePoint = folder.Write("one.txt", "0 1\n"), fine = Write("fine.uds", {1.0, 2.0, 3.0}, 0.25),
                      coarse = Write("coarse.uds", {1.0, 2.0, 3.0});
    Run(AverageChoice({onePoint, fine, coarse}));

    ExpectStopped({onePoint + ": Error Interpolating Data"});
    EXPECT_EQ(Computed(1).Getdelt(), 0.5);
    EXPECT_THAT(Reference().GetY(), IsEmpty());
}

// Runs without a reference file.

TEST_F(Runs, OfOneFileCompareItWithItself) {
    const std::string a = Write("a.uds", {1.0, 2.0, 5.0, 3.0, 4.0});
    Run(AverageChoice({a}));

    EXPECT_THAT(Reference().GetY(), ElementsAre(1.0, 2.0, 5.0, 3.0));  // the last sample never survives the cut
    EXPECT_EQ(Reference().GetY(), Computed(0).GetY());
    EXPECT_EQ(Measures(0).GetPointCount(), 4);
    EXPECT_EQ(Measures(0).GetResidualSumOfSquares(), 0.0);
    EXPECT_EQ(document.Reference().GetPath(), a);
    EXPECT_EQ(document.ComputedSignals()[0].GetReferenceName(), a);
    EXPECT_EQ(Reference().GetDataStatus(), "COMPUTED");
    EXPECT_EQ(Computed(0).GetDataStatus(), "TRUNCATED");
    EXPECT_EQ(document.PageList(), OfferedPages(true));
    EXPECT_EQ(document.ChartBlock().pointCount, 4);
}

TEST_F(Runs, OfTwoFilesCompareWithTheFirstAndNotWithTheMean) {
    // The first in steps of 1/4 from 0 to 2, the second in steps of 1/2 from 1/2 to 5/2: the common step is 1/2, the
    // common range 1/2 to 2.
    const std::string a = Write("a.uds", {0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0}, 0.25),
                      b = Write("b.uds", {10.0, 20.0, 30.0, 40.0, 50.0}, 0.5, 1);
    Run(AverageChoice({a, b}));

    EXPECT_THAT(Reference().GetX(), ElementsAre(0.5, 1.0, 1.5));
    EXPECT_THAT(Reference().GetY(), ElementsAre(2.0, 4.0, 6.0));
    EXPECT_THAT(Computed(0).GetY(), ElementsAre(2.0, 4.0, 6.0));
    EXPECT_THAT(Computed(1).GetX(), ElementsAre(0.5, 1.0, 1.5));
    EXPECT_THAT(Computed(1).GetY(), ElementsAre(10.0, 20.0, 30.0));
    EXPECT_EQ(Measures(0).GetResidualSum(), 0.0);
    EXPECT_EQ(Measures(1).GetResidualSum(), 24.0);
    EXPECT_EQ(document.ComputedSignals()[0].GetReferenceName(), a);
    EXPECT_EQ(document.ComputedSignals()[1].GetReferenceName(), a);
}

TEST_F(Runs, WithoutAnyStepTakeATenthOfAMillisecondInSinglePrecision) {
    Run(AverageChoice({folder.Write("a.txt", "0 0\n0.001 10\n"), folder.Write("b.txt", "0 0\n0.001 20\n")}));

    EXPECT_EQ(Reference().Getdelt(), kSmallestStep);
    EXPECT_EQ(Computed(1).Getdelt(), kSmallestStep);
    EXPECT_THAT(document.ErrorMessages(), IsEmpty());
}

TEST_F(Runs, IgnoreTheChosenReferencePathWhenTheReferenceIsMade) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    CFileSelection choice = AverageChoice({a});
    choice.referencePath = folder.Path("missing");
    Run(choice);

    EXPECT_EQ(document.Reference().GetPath(), a);
    EXPECT_THAT(document.ReferenceMessages(), IsEmpty());
}

TEST_F(Runs, WithoutACommonRangeContinueAgainstTheEmptyReferenceOfTheStart) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), late = Write("late.uds", {4.0, 5.0, 6.0}, 0.5, 100);
    Run(AverageChoice({a, late}));

    EXPECT_THAT(host.calls, ElementsAre("select", "busy on", "hint 1", "busy off", "beep", "errors"));
    EXPECT_THAT(document.ErrorMessages(), ElementsAre("Error Computing the time range for evaluation"));
    EXPECT_EQ(document.PageList(), OfferedPages(false));
    EXPECT_EQ(document.CurrentPageId(), 1);
    EXPECT_THAT(Reference().GetY(), IsEmpty());
    EXPECT_EQ(Measures(0).GetPointCount(), 0);
    EXPECT_EQ(document.ComputedSignals()[1].GetReferenceName(), "");
    EXPECT_THAT(Computed(0).GetY(), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_EQ(host.progress.back(), "8/8 ");
}

TEST_F(Runs, WithoutACommonRangeContinueAgainstTheReferenceOfAnEarlierRun) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0}), early = Write("early.uds", {4.0, 5.0}, 0.5, 0),
                      late = Write("late.uds", {4.0, 5.0}, 0.5, 1);
    Run(Choice({a}, a));
    Run(AverageChoice({early, late}));

    // 0 to 1/2 and 1/2 to 1: the range from 1/2 to 1/2 is none.
    EXPECT_THAT(document.ErrorMessages(), ElementsAre("Error Computing the time range for evaluation"));
    EXPECT_THAT(Reference().GetY(), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_EQ(Measures(0).GetPointCount(), 1);
    EXPECT_EQ(Measures(0).GetResidualSum(), 3.0);
    EXPECT_EQ(Measures(1).GetResidualSum(), 2.0);
    EXPECT_EQ(document.PageList(), OfferedPages(true));
}

// The start-up run.

TEST_F(Runs, AtStartUpLoadNothing) {
    document.CompareFileList({Write("a.uds", {1.0, 2.0, 3.0})}, 60, 0.0, 0.0);

    EXPECT_THAT(host.calls, IsEmpty());
    EXPECT_THAT(host.progress, IsEmpty());
    EXPECT_THAT(document.ComputedSignals(), IsEmpty());
    EXPECT_THAT(document.PageList(), IsEmpty());
    EXPECT_EQ(document.CurrentPageId(), 0);
    EXPECT_TRUE(Offered().shouldFilter);
    EXPECT_FALSE(Offered().isReferenceAverage);
}

TEST_F(Runs, AtStartUpDropTheSignalsAndNothingElse) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    Run(Choice({a}, a));
    document.CompareFileList({a}, 60, 0.0, 0.0);

    EXPECT_THAT(document.ComputedSignals(), IsEmpty());
    EXPECT_THAT(document.SignalCopies(), IsEmpty());
    EXPECT_EQ(document.PageList(), OfferedPages(true));
    EXPECT_THAT(Reference().GetY(), ElementsAre(1.0, 2.0, 3.0));
}

TEST_F(Runs, AtStartUpWithoutFilesChangeNothing) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    Run(Choice({a}, a));
    document.CompareFileList({}, 60, 0.0, 0.0);

    EXPECT_THAT(document.ComputedSignals(), SizeIs(1));
    EXPECT_THAT(document.SignalCopies(), SizeIs(1));
}

TEST_F(Runs, OfALoadedListMakeTheReferenceFromIt) {
    const std::string a = Write("a.uds", {1.0, 2.0, 5.0, 3.0}), b = Write("b.uds", {2.0, 2.0, 2.0, 2.0});
    document.SetComputedFiles({a, b});
    document.CompareLoadedList(0, 0.0, 0.0);

    EXPECT_THAT(host.calls, ElementsAre("hint 1"));
    EXPECT_TRUE(Offered().isReferenceAverage);
    EXPECT_FALSE(Offered().shouldFilter);
    EXPECT_FALSE(Offered().shouldTruncate);
    EXPECT_THAT(Reference().GetY(), ElementsAre(1.0, 2.0, 5.0));
    EXPECT_EQ(Measures(1).GetResidualSum(), 1.0);
    EXPECT_EQ(document.ComputedSignals()[1].GetReferenceName(), a);
    EXPECT_EQ(document.PageList(), OfferedPages(true));
    EXPECT_EQ(document.CurrentPageId(), 1);
    EXPECT_EQ(document.ChartBlock().seriesCount, 2);
    EXPECT_THAT(document.SignalCopies(), SizeIs(2));
    EXPECT_THAT(host.progress, ElementsAre("0/8 " + a, "1/8 " + b, "2/8 " + a, "3/8 " + b, "4/8 " + a, "5/8 " + b,
                                           "6/8 " + a, "7/8 " + b, "8/8 "));
}

TEST_F(Runs, OfALoadedListKeepTheCorridorSizeOfTheMeasures) {
    host.corridorSize = 0.5;
    document.OnCorridorSize();
    document.SetComputedFiles({Write("a.uds", {1.0, 2.0, 5.0, 3.0})});
    document.CompareLoadedList(0, 0.0, 0.0);

    EXPECT_EQ(Measures(0).GetCorridorSize(), 4.0);
    EXPECT_EQ(document.CorridorSize(), 0.5);
}

class LoadedListClass : public CDocumentFixture, public testing::WithParamInterface<std::int32_t> {};

TEST_P(LoadedListClass, FiltersAtAClassOfTheStandard) {
    document.SetComputedFiles({Write("a.uds", {1.0, 2.0, 3.0})});
    document.CompareLoadedList(GetParam(), 0.0, 0.0);

    EXPECT_EQ(Computed(0).GetCFCClass(), GetParam());
    EXPECT_TRUE(Offered().shouldFilter);
}

INSTANTIATE_TEST_SUITE_P(Classes, LoadedListClass, testing::Values(60, 180, 600, 1000));

TEST_F(Runs, OfALoadedListFilterAtNoOtherClass) {
    for (const std::int32_t channelClass : {0, 61, 100, 1001, -60}) {
        document.SetComputedFiles({Write("a.uds", {1.0, 2.0, 3.0})});
        document.CompareLoadedList(channelClass, 0.0, 0.0);

        EXPECT_EQ(Computed(0).GetCFCClass(), 1001);
        EXPECT_FALSE(Offered().shouldFilter);
        EXPECT_THAT(document.ErrorMessages(), IsEmpty());
    }
}

TEST_F(Runs, OfALoadedListCutWhenABoundIsPositive) {
    const std::string a = Write("a.uds", {0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0});
    document.SetComputedFiles({a});
    document.CompareLoadedList(0, 0.0, 2.0);
    EXPECT_TRUE(Offered().shouldTruncate);
    // Once to the window, 0 to 3/2, and once to the common range, which drops the last sample again.
    EXPECT_THAT(Computed(0).GetY(), ElementsAre(0.0, 1.0, 2.0));

    document.SetComputedFiles({a});
    document.CompareLoadedList(0, -1.0, 0.0);
    EXPECT_FALSE(Offered().shouldTruncate);
    EXPECT_THAT(Computed(0).GetY(), SizeIs(6));
}

TEST_F(Runs, OfALoadedListStopAtAnUnreadableFile) {
    const std::string words = folder.Write("words.txt", "words");
    document.SetComputedFiles({words, Write("a.uds", {1.0, 2.0, 3.0})});
    document.CompareLoadedList(60, 0.0, 1.0);

    EXPECT_THAT(host.calls, ElementsAre("beep", "errors"));
    EXPECT_THAT(host.errorLists, ElementsAre(BothSentences(words)));
    EXPECT_THAT(document.PageList(), IsEmpty());
    EXPECT_FALSE(Offered().shouldFilter);
    EXPECT_FALSE(Offered().shouldTruncate);
    EXPECT_TRUE(Offered().isReferenceAverage);
}

TEST_F(Runs, OfALoadedListStopAtAFailedStep) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    document.SetComputedFiles({a});
    document.CompareLoadedList(0, 2.0, 1.0);

    EXPECT_THAT(host.errorLists, ElementsAre(ElementsAre(a + ": Stop time (1) is before or equals Start Time (2)")));
    EXPECT_THAT(document.PageList(), IsEmpty());
    EXPECT_EQ(document.CurrentPageId(), 0);
}

TEST_F(Runs, OfALoadedListWithoutACommonRangeContinue) {
    document.SetComputedFiles({Write("a.uds", {1.0, 2.0}), Write("late.uds", {4.0, 5.0}, 0.5, 100)});
    document.CompareLoadedList(0, 0.0, 0.0);

    EXPECT_THAT(host.calls, ElementsAre("hint 1", "beep", "errors"));
    EXPECT_THAT(document.ErrorMessages(), ElementsAre("Error Computing the time range for evaluation"));
}

// Steps on their own.

TEST_F(Runs, TellWhetherEveryComputedFileWasRead) {
    document.SetComputedFiles({Write("a.uds", {1.0, 2.0})});
    EXPECT_EQ(document.ReadComputedSignals(), 1);
    document.SetComputedFiles({Write("a.uds", {1.0, 2.0}), folder.Path("missing")});
    EXPECT_EQ(document.ReadComputedSignals(), 0);
    EXPECT_THAT(host.progress, IsEmpty());
}

TEST_F(Runs, TellWhetherTheReferenceWasRead) {
    EXPECT_EQ(document.ReadReference(), 0);
    EXPECT_THAT(document.ReferenceMessages(), ElementsAre("Failure read file due to empty path and file name.",
                                                          "Failure to open file:  for reading."));
    const std::string a = Write("a.uds", {1.0, 2.0});
    Run(Choice({a}, a));
    EXPECT_EQ(document.ReadReference(), 1);
}

TEST_F(Runs, NameTheSignalsAfterTheNumberOfFilesUntilTheyAreCompared) {
    const std::string a = Write("a.uds", {1.0, 2.0, 3.0});
    document.SetComputedFiles({a, a, a});
    document.ReadComputedSignals();

    EXPECT_EQ(document.BuildAverageReference(), 1);
    EXPECT_EQ(document.ComputedSignals()[0].GetReferenceName(), "Average of 3 files");
    EXPECT_EQ(document.ComputedSignals()[2].GetReferenceName(), "Average of 3 files");
    EXPECT_EQ(document.Reference().GetReferenceName(), "");
}

TEST_F(Runs, MakeNoReferenceFromNothing) {
    EXPECT_EQ(document.BuildAverageReference(), 0);
    EXPECT_THAT(document.ErrorMessages(), IsEmpty());

    document.SetComputedFiles({Write("a.uds", {1.0, 2.0}), Write("late.uds", {4.0, 5.0}, 0.5, 100)});
    document.ReadComputedSignals();
    EXPECT_EQ(document.BuildAverageReference(), 0);
    EXPECT_THAT(document.ErrorMessages(), ElementsAre("Error Computing the time range for evaluation"));
}

}  // namespace
