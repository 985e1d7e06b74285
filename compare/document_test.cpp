#include "compare/document.h"

#include "compare/chart_block.h"
#include "compare/critical_values.h"
#include "compare/document_host.h"
#include "compare/plots/page_ids.h"
#include "compare/plots/page_table.h"
#include "files/error.h"
#include "files/uds_file.h"
#include "signal/nsignal.h"
#include "tests/support/document_fixture.h"
#include "tests/support/failing_flush.h"
#include "tests/support/memory_limit.h"
#include "tests/support/recording_host.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>
#include <vector>
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kEmpty = 2.220446049250313e-16;

class Document : public CDocumentFixture {
protected:
    Document() { CriticalValues() = CCriticalValues(); }
    ~Document() override { CriticalValues() = CCriticalValues(); }

    /// Runs a comparison of `y` with a reference of five points, both from time 0 on in steps of a half.
    void RunWith(const std::vector<double>& y) {
        Run(Choice({Write("a.uds", y)}, Write("ref.uds", {0.0, 1.0, 2.0, 3.0, 4.0})));
        Forget();
    }
};

TEST_F(Document, StartsEmpty) {
    EXPECT_THAT(document.ComputedSignals(), IsEmpty());
    EXPECT_THAT(document.SignalCopies(), IsEmpty());
    EXPECT_THAT(document.PageList(), IsEmpty());
    EXPECT_THAT(document.Series(), IsEmpty());
    EXPECT_THAT(document.SeriesNames(), IsEmpty());
    EXPECT_THAT(document.ErrorMessages(), IsEmpty());
    EXPECT_EQ(document.CurrentPageId(), 0);
    EXPECT_EQ(document.CorridorSize(), 4.0);
    EXPECT_EQ(document.Reference().GetPath(), "");

    const CChartBlock& block = document.ChartBlock();
    EXPECT_EQ(block.pointCount, 0);
    EXPECT_EQ(block.seriesCount, 0);
    EXPECT_EQ(block.capacity, 0);
    EXPECT_EQ(block.lineStyleMode, 0);
    EXPECT_EQ(block.paddingValue, kEmpty);
    EXPECT_EQ(block.titleOne + block.titleTwo + block.xTitle + block.yTitle, "");
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(Document, OffersToFilterAndNothingElseAtFirst) {
    const CFileSelection offered = Offered();
    EXPECT_TRUE(offered.shouldFilter);
    EXPECT_FALSE(offered.shouldTruncate);
    EXPECT_FALSE(offered.isReferenceAverage);
}

// Observers.

TEST_F(Document, TellsObserversInOrder) {
    CRecordingObserver second(host);
    second.alsoDo = [this](int) { host.calls.emplace_back("second"); };
    document.AddObserver(second);
    document.SelectPage(1);
    document.RemoveObserver(second);

    EXPECT_THAT(host.calls, ElementsAre("hint 2", "hint 2", "second"));
}

TEST_F(Document, LetsAnObserverLeaveWhileItIsTold) {
    CRecordingObserver leaving(host), last(host);
    leaving.alsoDo = [&](int) { document.RemoveObserver(leaving); };
    last.alsoDo = [this](int) { host.calls.emplace_back("last"); };
    document.AddObserver(leaving);
    document.AddObserver(last);
    document.SelectPage(1);
    EXPECT_THAT(host.calls, ElementsAre("hint 2", "hint 2", "hint 2", "last"));

    Forget();
    document.SelectPage(1);
    EXPECT_THAT(host.calls, ElementsAre("hint 2", "hint 2", "last"));
    document.RemoveObserver(last);
}

TEST_F(Document, TellsNoObserverThatAnotherOneRemoved) {
    CRecordingObserver removed(host);
    removed.alsoDo = [this](int) { host.calls.emplace_back("told all the same"); };
    document.AddObserver(removed);
    observer.alsoDo = [&](int) { document.RemoveObserver(removed); };
    document.SelectPage(1);

    EXPECT_THAT(host.calls, ElementsAre("hint 2"));
}

TEST_F(Document, LetsAnObserverJoinWhileAnotherIsTold) {
    CRecordingObserver joining(host);
    observer.alsoDo = [&](int) {
        document.RemoveObserver(joining);
        document.AddObserver(joining);
    };
    document.SelectPage(1);
    EXPECT_THAT(host.calls, ElementsAre("hint 2"));
    document.RemoveObserver(joining);
}

// Pages.

TEST_F(Document, BuildsTheSeriesOfAPageAndTells) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    std::int32_t seriesWhenTold = 0;
    observer.alsoDo = [&](int) { seriesWhenTold = document.ChartBlock().seriesCount; };

    EXPECT_TRUE(document.SelectPage(2));
    EXPECT_THAT(host.calls, ElementsAre("hint 2"));
    EXPECT_EQ(seriesWhenTold, 2);
    EXPECT_EQ(document.CurrentPageId(), 2);
    EXPECT_THAT(document.SeriesNames(), ElementsAre("Reference", "a.uds"));
    const CChartBlock& block = document.ChartBlock();
    EXPECT_EQ(block.xTitle, "Time (seconds)");
    EXPECT_EQ(block.yTitle, "Unknown Units");
    EXPECT_EQ(block.pointCount, 5);
    EXPECT_EQ(block.capacity, 10);
    EXPECT_THAT(block.x, ElementsAre(0.0, 0.5, 1.0, 1.5, 2.0, 0.0, 0.5, 1.0, 1.5, 2.0));
    EXPECT_THAT(block.y, ElementsAre(0.0, 1.0, 2.0, 3.0, 4.0, 10.0, 11.0, 12.0, 13.0, 14.0));
}

TEST_F(Document, RefusesAnyOtherPage) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    Forget();

    for (const std::int32_t id : {0, PageIds().back() + 1, -1, 32768}) {
        EXPECT_FALSE(document.SelectPage(id));
        EXPECT_EQ(document.CurrentPageId(), 2);
        EXPECT_THAT(document.Series(), SizeIs(2));
    }
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(Document, SelectsEveryPage) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});

    for (const std::int32_t id : PageIds()) {
        EXPECT_TRUE(document.SelectPage(id)) << id;
        EXPECT_EQ(document.CurrentPageId(), id);
    }
}

TEST_F(Document, PadsAShorterSeriesInBothMatrices) {
    RunWith({10.0, 11.0, 12.0, 13.0});  // the cut to the common range leaves three samples
    document.SelectPage(2);

    const CChartBlock& block = document.ChartBlock();
    EXPECT_EQ(block.pointCount, 5);
    EXPECT_THAT(block.x, ElementsAre(0.0, 0.5, 1.0, 1.5, 2.0, 0.0, 0.5, 1.0, kEmpty, kEmpty));
    EXPECT_THAT(block.y, ElementsAre(0.0, 1.0, 2.0, 3.0, 4.0, 10.0, 11.0, 12.0, kEmpty, kEmpty));
}

TEST_F(Document, NeverShrinksTheMatrices) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(4);  // both sides of the corridor and the computed signal
    const std::int64_t capacity = document.ChartBlock().capacity;
    ASSERT_EQ(capacity, 15);
    document.SelectPage(2);

    const CChartBlock& block = document.ChartBlock();
    EXPECT_EQ(block.seriesCount, 2);
    EXPECT_EQ(block.pointCount, 5);
    EXPECT_EQ(block.capacity, capacity);
    EXPECT_THAT(block.x, SizeIs(15));
    EXPECT_EQ(block.y[5], 10.0);
}

TEST_F(Document, FillsTheMatricesOnlyIfTheyAreNeeded) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(4);
    document.SetNeedsMatrices(false);
    document.SelectPage(2);
    const CChartBlock& block = document.ChartBlock();
    EXPECT_EQ(block.seriesCount, 2);
    EXPECT_EQ(block.pointCount, 5);
    EXPECT_EQ(block.capacity, 0);
    EXPECT_THAT(block.x, IsEmpty());
    EXPECT_THAT(block.y, IsEmpty());
    EXPECT_EQ(block.xTitle, "Time (seconds)");

    document.SetNeedsMatrices(true);
    document.SelectPage(2);
    EXPECT_THAT(block.y, ElementsAre(0.0, 1.0, 2.0, 3.0, 4.0, 10.0, 11.0, 12.0, 13.0, 14.0));
}

TEST_F(Document, MatricesThatAreStillSharedStayAsTheyAre) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(4);
    const std::shared_ptr<const CChartBlock> shared = document.SharedChartBlock();
    const std::vector<double> before = shared->y;
    document.SelectPage(2);

    EXPECT_EQ(shared->y, before);
    EXPECT_NE(document.ChartBlock().y.data(), shared->y.data());
    EXPECT_EQ(document.ChartBlock().y[5], 10.0);
    EXPECT_EQ(document.ChartBlock().yTitle, "Unknown Units");
    EXPECT_EQ(document.ChartBlock().capacity, 15);
    EXPECT_THAT(document.ChartBlock().x, SizeIs(15));
}

TEST_F(Document, UsesTheMatricesAgainThatAnObserverReleasesInTime) {
    struct Sharer : CDocumentObserver {
        void OnDocumentUpdate(int /*hint*/) override {}
        void OnPageChanging() override { shared.reset(); }
        std::shared_ptr<const CChartBlock> shared;
    } sharer;
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.AddObserver(sharer);
    document.SelectPage(4);
    sharer.shared = document.SharedChartBlock();
    const double* const before = sharer.shared->y.data();
    document.SelectPage(2);
    document.RemoveObserver(sharer);

    EXPECT_EQ(sharer.shared, nullptr);
    EXPECT_EQ(document.ChartBlock().y.data(), before);
}

TEST_F(Document, KeepsTheBlockOnTheSummaryPage) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    document.SelectPage(1);

    EXPECT_THAT(document.Series(), IsEmpty());
    EXPECT_THAT(document.SeriesNames(), IsEmpty());
    EXPECT_EQ(document.ChartBlock().seriesCount, 2);
    EXPECT_EQ(document.ChartBlock().pointCount, 5);
    EXPECT_EQ(document.ChartBlock().xTitle, "");
    EXPECT_EQ(document.ChartBlock().yTitle, "");
}

TEST_F(Document, LaysNothingOutWithoutSeries) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    document.CompareFileList({"x"}, 0, 0.0, 0.0);  // drops the computed signals
    document.SelectPage(6);                        // so there are no residuals

    EXPECT_THAT(document.Series(), IsEmpty());
    EXPECT_EQ(document.ChartBlock().seriesCount, 0);
    EXPECT_EQ(document.ChartBlock().pointCount, 0);
    EXPECT_EQ(document.ChartBlock().capacity, 10);
    EXPECT_FALSE(document.BuildSeriesMatrices());
}

TEST_F(Document, CallsTheMatricesOfAPageWithoutAChartReady) {
    EXPECT_TRUE(document.BuildSeriesMatrices());
    document.SelectPage(1);
    EXPECT_TRUE(document.BuildSeriesMatrices());
}

TEST_F(Document, ShowsWhyAPageCannotBeBuilt) {
    const std::string shortFile = Write("short.uds", {1.0, 2.0, 3.0});  // too short to integrate
    Run(Choice({shortFile}, shortFile));
    document.SelectPage(2);
    Forget();

    EXPECT_TRUE(document.SelectPage(8));
    EXPECT_THAT(host.calls, ElementsAre("hint 2", "beep", "errors"));
    EXPECT_THAT(host.errorLists, ElementsAre(ElementsAre("Too few data points to compute an Integral")));
    EXPECT_THAT(document.ErrorMessages(), ElementsAre("Too few data points to compute an Integral"));
    EXPECT_EQ(document.CurrentPageId(), 8);
    EXPECT_THAT(document.Series(), IsEmpty());
    EXPECT_THAT(document.SeriesNames(), IsEmpty());
    EXPECT_EQ(document.ChartBlock().seriesCount, 0);
    EXPECT_EQ(document.ChartBlock().yTitle, "Velocity (kmph)");

    EXPECT_TRUE(document.SelectPage(2));
    EXPECT_THAT(document.Series(), SizeIs(2));
}

TEST_F(Document, KeepsNoSeriesOfAPageThatFailsOnTheWay) {
    RunWith({10.0, 11.0, 12.0, 13.0});  // three samples after the cut, while the reference can be integrated
    document.SelectPage(8);

    EXPECT_THAT(document.ErrorMessages(), ElementsAre("Too few data points to compute an Integral"));
    EXPECT_THAT(document.Series(), IsEmpty());
    EXPECT_THAT(document.SeriesNames(), IsEmpty());
}

// The page showed "std::bad_alloc".
TEST_F(Document, SaysInASentenceThatMemoryIsMissingForAPage) {
    if (!CMemoryLimit::IsUsable()) GTEST_SKIP() << "a sanitizer takes the memory";
    constexpr std::size_t kMegabyte = 1024 * 1024;
    const std::string path = Write("long.uds", std::vector<double>(kMegabyte / 4, 1.0), 1.0 / 1024.0);
    Run(Choice({path, path, path}, path));
    std::size_t failures = 0;
    for (std::size_t allowed = 0; allowed <= 64; allowed += 2) {
        document.SelectPage(1);  // the series go
        {
            const CMemoryLimit limit(allowed * kMegabyte);
            EXPECT_TRUE(document.SelectPage(2));
        }
        if (!document.Series().empty()) continue;
        ++failures;
        EXPECT_THAT(document.ErrorMessages(),
                    ElementsAre("There is not enough memory for the curves of this page. Fewer or shorter signals "
                                "would need less."))
            << allowed;
        EXPECT_EQ(document.ChartBlock().seriesCount, 0);
    }
    EXPECT_GT(failures, 3U);
    EXPECT_THAT(document.Series(), SizeIs(4));
    EXPECT_EQ(document.ChartBlock().seriesCount, 4);
}

TEST_F(Document, ReplacesTheMessagesOfARunByThatOfThePage) {
    Run(AverageChoice({Write("a.uds", {1.0, 2.0, 3.0}), Write("late.uds", {4.0, 5.0, 6.0}, 0.5, 100)}));
    ASSERT_THAT(document.ErrorMessages(), ElementsAre("Error Computing the time range for evaluation"));
    document.SelectPage(8);

    EXPECT_THAT(document.ErrorMessages(), SizeIs(1));
    EXPECT_THAT(document.ErrorMessages(),
                testing::Not(testing::Contains("Error Computing the time range for evaluation")));
}

// Messages.

TEST_F(Document, ShowsNoErrorListWithoutMessages) {
    document.ShowErrors();
    EXPECT_TRUE(host.calls.empty());
}

TEST_F(Document, LetsAPageBeChosenWhileTheErrorListIsOpen) {
    const std::string shortFile = Write("short.uds", {1.0, 2.0, 3.0});
    Run(Choice({shortFile}, shortFile));
    Run(Choice({folder.Path("missing")}, shortFile));
    ASSERT_THAT(document.ErrorMessages(), SizeIs(2));
    Forget();
    bool isChosen = false;
    host.whileErrorsAreShown = [&] {
        if (!std::exchange(isChosen, true)) document.SelectPage(8);
    };
    document.ShowErrors();

    EXPECT_THAT(host.errorLists, SizeIs(2));
    EXPECT_THAT(host.errorLists.at(0), SizeIs(2));
}

// Corridor size and critical values.

TEST_F(Document, TakesAnEditedCorridorSizeAndTells) {
    host.corridorSize = 2.5;
    document.OnCorridorSize();

    EXPECT_EQ(host.offeredCorridorSize, 4.0);
    EXPECT_EQ(document.CorridorSize(), 2.5);
    EXPECT_THAT(host.calls, ElementsAre("corridor", "hint 2"));
}

TEST_F(Document, KeepsTheCorridorSizeOnCancel) {
    document.OnCorridorSize();

    EXPECT_EQ(document.CorridorSize(), 4.0);
    EXPECT_THAT(host.calls, ElementsAre("corridor"));
}

TEST_F(Document, RecomputesNoMeasureWhenTheCorridorSizeChanges) {
    RunWith({3.0, 4.0, 5.0, 6.0, 7.0});
    ASSERT_EQ(Measures(0).GetPercentOutsideCorridor(), 0.0);
    host.corridorSize = 0.5;
    document.OnCorridorSize();

    EXPECT_EQ(Measures(0).GetPercentOutsideCorridor(), 0.0);
    EXPECT_EQ(Measures(0).GetCorridorSize(), 4.0);
}

TEST_F(Document, TakesEditedCriticalValuesForTheWholeProcess) {
    CCriticalValues values;
    values.moment = 0.7;
    host.criticalValues = values;
    document.OnCriticalValues();

    EXPECT_EQ(host.offeredCriticalValues.moment, 0.2);
    EXPECT_EQ(CriticalValues().moment, 0.7);
    EXPECT_THAT(host.calls, ElementsAre("critical", "hint 2"));
}

TEST_F(Document, KeepsTheCriticalValuesOnCancel) {
    document.OnCriticalValues();

    EXPECT_EQ(CriticalValues().moment, 0.2);
    EXPECT_THAT(host.calls, ElementsAre("critical"));
}

// UDS output.

TEST_F(Document, SavesEverySeriesOfThePageAsUds) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    Forget();
    host.savePaths = {folder.Path("first.uds"), folder.Path("second.uds")};
    document.OnSaveUds();

    EXPECT_THAT(host.calls, ElementsAre("read UdsOutputDir", "save Save Reference as", "save Save a.uds as",
                                        "store UdsOutputDir=" + folder.Path("")));
    for (const ks::CFileRequest& request : host.saveRequests) {
        EXPECT_EQ(request.folder, "C:\\");
        EXPECT_THAT(request.filters, IsEmpty());
        EXPECT_TRUE(request.shouldHideReadOnly);
        EXPECT_TRUE(request.shouldAskBeforeOverwriting);
    }
    ks::CUDS1992 file;
    file.Read(folder.Path("second.uds"));
    EXPECT_EQ(file.Fields().GetFILEID(), "UDS-1992");
    EXPECT_EQ(file.Fields().GetYUNITS(), "G'S");
    EXPECT_THAT(file.Columns().x, ElementsAre(0.0, 0.5, 1.0, 1.5, 2.0));
    EXPECT_THAT(file.Columns().y, ElementsAre(10.0, 11.0, 12.0, 13.0, 14.0));
    file.Read(folder.Path("first.uds"));
    EXPECT_THAT(file.Columns().y, ElementsAre(0.0, 1.0, 2.0, 3.0, 4.0));
}

TEST_F(Document, SkipsOnlyTheSeriesThatIsCanceled) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    Forget();
    host.savePaths = {std::nullopt, folder.Path("second.uds")};
    host.settings["UdsOutputDir"] = "D:\\out\\";
    document.OnSaveUds();

    EXPECT_EQ(host.saveRequests.at(0).folder, "D:\\out\\");
    EXPECT_EQ(host.settings["UdsOutputDir"], folder.Path(""));
    EXPECT_THAT(host.saveRequests, SizeIs(2));
    EXPECT_THAT(folder.Listing(), testing::HasSubstr("second.uds"));
}

TEST_F(Document, StoresNoFolderWhenEverySeriesIsCanceled) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    Forget();
    document.OnSaveUds();

    EXPECT_THAT(host.calls, ElementsAre("read UdsOutputDir", "save Save Reference as", "save Save a.uds as"));
}

TEST_F(Document, AsksForNoUdsFileOnTheSummaryPage) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.OnSaveUds();
    EXPECT_TRUE(host.calls.empty());

    document.SelectPage(2);
    Run(Choice({Write("a.uds", {1.0, 2.0})}, Write("b.uds", {1.0, 2.0})));  // back to the summary, series still held
    Forget();
    document.OnSaveUds();
    EXPECT_TRUE(host.calls.empty());
}

/// A signal in the form Y, cut from a time before its first sample, is numbered from where the cut began.
class LostTimes : public Document {
protected:
    void SetUp() override {
        ks::CNSignal record = MakeTimeSignal(std::vector<double>(300, 1.0), 0.5);
        record.SetFILEFORM("Y");
        CFileSelection choice = Choice({WriteUds(folder, "a.uds", record)}, WriteUds(folder, "r.uds", record));
        choice.shouldTruncate = true;
        choice.windowStart = -1.0;
        choice.windowEnd = 20.0;
        Run(choice);
        document.SelectPage(page::kAcceleration);
        Forget();
    }

    std::string Sentence(const std::string& name) const {
        return "The times of " + folder.Path(name) +
               " are not those of its curve. The file holds the values alone, and point 1, at 0, will be read as at "
               "-1.";
    }
};

TEST_F(LostTimes, AreToldAfterTheLastFileForEachFileThatHasThem) {
    host.savePaths = {folder.Path("first.uds"), folder.Path("second.uds")};
    document.OnSaveUds();
    EXPECT_THAT(document.ErrorMessages(), ElementsAre(Sentence("first.uds")));
    EXPECT_THAT(host.calls, ElementsAre("read UdsOutputDir", "save Save Reference as", "save Save a.uds as",
                                        "store UdsOutputDir=" + folder.Path(""), "beep", "errors"));
    ks::CUDS1992 file;
    file.Read(folder.Path("first.uds"));
    EXPECT_EQ(file.Columns().x.front(), -1.0) << "the sentence would be untrue";
    file.Read(folder.Path("second.uds"));  // resampled to the reference's step, it keeps its times
    EXPECT_EQ(file.Columns().x.front(), document.Series().at(1)->GetX().front());
}

TEST_F(LostTimes, AreToldWhenALaterFileCannotBeWritten) {
    host.savePaths = {folder.Path("first.uds"), folder.Path("missing/second.uds")};
    EXPECT_THROW(document.OnSaveUds(), ks::CError);
    EXPECT_THAT(document.ErrorMessages(), ElementsAre(Sentence("first.uds")));
}

TEST_F(Document, LetsAnErrorOfTheUdsWriterOut) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    Forget();
    host.savePaths = {folder.Path("missing/first.uds")};
    try {
        document.OnSaveUds();
        FAIL();
    } catch (const ks::CError& error) {
        EXPECT_STREQ(error.what(), "Failure to open file for writing.");
    }
    EXPECT_THAT(host.calls, ElementsAre("read UdsOutputDir", "save Save Reference as"));
}

// ASCII output.

TEST_F(Document, SavesThePageAsOneAsciiTable) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    Forget();
    host.savePaths = {folder.Path("page.txt")};
    document.OnSaveAscii();

    EXPECT_THAT(host.calls, ElementsAre("read AsciiOutputDir", "save Save ASCII data As",
                                        "store AsciiOutputDir=" + folder.Path("")));
    EXPECT_EQ(host.saveRequests.at(0).folder, "C:\\");
    EXPECT_THAT(host.saveRequests.at(0).filters, IsEmpty());
    EXPECT_TRUE(host.saveRequests.at(0).shouldHideReadOnly);
    EXPECT_TRUE(host.saveRequests.at(0).shouldAskBeforeOverwriting);
    EXPECT_EQ(ReadAll(folder.Path("page.txt")),
              "0 0 0 10 \r\n"
              "0.5 1 0.5 11 \r\n"
              "1 2 1 12 \r\n"
              "1.5 3 1.5 13 \r\n"
              "2 4 2 14 \r\n");
}

TEST_F(Document, WritesNoAsciiTableOnCancel) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    Forget();
    host.settings["AsciiOutputDir"] = "D:\\out\\";
    document.OnSaveAscii();

    EXPECT_EQ(host.saveRequests.at(0).folder, "D:\\out\\");
    EXPECT_THAT(host.calls, ElementsAre("read AsciiOutputDir", "save Save ASCII data As"));
}

TEST_F(Document, WritesNoRowsOfTheSummaryPage) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    document.SelectPage(1);
    host.savePaths = {folder.Path("page.txt")};
    document.OnSaveAscii();

    EXPECT_EQ(ReadAll(folder.Path("page.txt")), "");
}

TEST_F(Document, ShowsThatTheAsciiTableCouldNotBeWritten) {
    const std::string path = folder.Path("missing/page.txt");
    host.savePaths = {path};
    document.OnSaveAscii();

    EXPECT_THAT(host.calls, ElementsAre("read AsciiOutputDir", "save Save ASCII data As", "beep", "errors"));
    EXPECT_THAT(host.errorLists, ElementsAre(ElementsAre("The ASCII data could not be written to " + path + ".")));
}

// The sentence was the same as for an old file that is unchanged.
TEST_F(Document, ShowsThatTheExistingAsciiTableIsDamaged) {
    RunWith({10.0, 11.0, 12.0, 13.0, 14.0});
    document.SelectPage(2);
    const std::string path = folder.Write("page.txt", "an old table");
    std::filesystem::create_hard_link(path, folder.Path("other name"));
    host.savePaths = {path};
    {
        const CFailingFlush failing(kUntilInPlace);
        document.OnSaveAscii();
    }
    EXPECT_THAT(host.errorLists, ElementsAre(ElementsAre("The ASCII data could not be written to " + path +
                                                         ". The existing file is damaged.")));
}

}  // namespace
