#include "compare/chart_block.h"
#include "compare/critical_values.h"
#include "compare/document.h"
#include "compare/document_host.h"
#include "compare/plots/page_ids.h"
#include "compare/plots/page_table.h"
#include "compare/setting_keys.h"
#include "signal/nsignal.h"
#include "tests/support/page_samples.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The pages as a document shows them, one after another on the same signals.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A step that single precision holds exactly, so that abscissas from a file are exact multiples of it.
constexpr double kStep = 1.0 / 1024.0;

/// Chooses the given files and keeps the error lists that it is shown.
class QuietHost : public CDocumentHost {
public:
    CFileSelection selection;
    std::vector<std::vector<std::string>> errorLists;

    std::optional<CFileSelection> SelectFiles(const CFileSelection& /*offered*/) override { return selection; }
    void ShowErrorList(const std::vector<CRunMessage>& messages) override {
        errorLists.emplace_back();
        for (const CRunMessage& message : messages) errorLists.back().push_back(message.text);
    }
    std::optional<double> EditCorridorSize(double /*size*/) override { return std::nullopt; }
    std::optional<CCriticalValues> EditCriticalValues(const CCriticalValues& /*values*/) override {
        return std::nullopt;
    }
    std::optional<std::string> AskSavePath(const ks::CFileRequest& /*request*/) override { return std::nullopt; }
    std::string ReadSetting(const CTextSetting& key) override { return key.fallback; }
    void StoreSetting(const CTextSetting& /*key*/, const std::string& /*value*/) override {}
    void Beep() override {}
    void SetBusy(bool /*isBusy*/) override {}
    void Progress(std::size_t /*done*/, std::size_t /*total*/, const std::string& /*path*/) override {}
};

class DocumentPages : public testing::Test {
protected:
    std::string WriteSignal(const std::string& name, const ks::CNSignal& record) {
        const std::string path = m_folder.Path(name);
        record.SaveUDS(path);
        return path;
    }

    void Compare(const ks::CNSignal& reference, const std::vector<ks::CNSignal>& computed) {
        host.selection.shouldFilter = false;
        host.selection.shouldFilterReference = false;
        host.selection.referencePath = WriteSignal("reference.uds", reference);
        host.selection.files.clear();
        for (const ks::CNSignal& record : computed) {
            std::string name = "c";
            name += std::to_string(host.selection.files.size());
            host.selection.files.push_back(WriteSignal(name, record));
        }
        document.OnCompareFiles();
        ASSERT_THAT(host.errorLists, IsEmpty());
    }

    /// Points of every series of the page.
    std::vector<std::size_t> Counts(std::int32_t pageId) {
        EXPECT_TRUE(document.SelectPage(pageId));
        std::vector<std::size_t> counts;
        for (const auto& series : document.Series()) counts.push_back(series->GetPointCount());
        return counts;
    }

    double X(std::int32_t row, std::int32_t series) const { return Cell(document.ChartBlock().x, row, series); }
    double Y(std::int32_t row, std::int32_t series) const { return Cell(document.ChartBlock().y, row, series); }

    QuietHost host;
    CQuorvelDoc document{host};

private:
    double Cell(const std::vector<double>& matrix, std::int32_t row, std::int32_t series) const {
        return matrix.at(static_cast<std::size_t>(row + series * document.ChartBlock().pointCount));
    }

    CTempFolder m_folder;
};

TEST_F(DocumentPages, PagesThatCutDoSoAtEveryVisitAndTheOthersShowWhatIsLeft) {
    // The run itself cuts the signal to the reference's range, which leaves it one sample short of the reference.
    Compare(TimeSignal(kStep, Noise(81, 1)), {TimeSignal(kStep, Noise(90, 2))});
    EXPECT_THAT(Counts(page::kAcceleration), ElementsAre(81, 80));
    EXPECT_THAT(Counts(page::kResiduals), ElementsAre(79));
    EXPECT_THAT(Counts(page::kAcceleration), ElementsAre(81, 79));
    EXPECT_THAT(Counts(page::kCumulativeDensity), ElementsAre(100));
    EXPECT_THAT(Counts(page::kVelocity), ElementsAre(81, 78));
    EXPECT_THAT(Counts(page::kCrossCorrelation), ElementsAre(21, 21));
    EXPECT_THAT(Counts(page::kCorridor), ElementsAre(81, 81, 77));
    EXPECT_THAT(Counts(page::kResiduals), ElementsAre(76));
    EXPECT_EQ(document.Reference().GetPointCount(), 81U);
}

TEST_F(DocumentPages, SignalsOfTheReferencesRangeAreNeverCut) {
    Compare(TimeSignal(kStep, Noise(81, 1)), {TimeSignal(kStep, Noise(81, 2))});
    for (const std::int32_t id : {6, 10, 11, 6, 10, 11}) document.SelectPage(id);
    EXPECT_THAT(Counts(page::kAcceleration), ElementsAre(81, 81));
}

TEST_F(DocumentPages, ShortSeriesArePaddedInBothMatrices) {
    Compare(TimeSignal(kStep, std::vector<double>(500, 1.0)), {TimeSignal(kStep, std::vector<double>(301, 2.0))});
    ASSERT_THAT(Counts(page::kAcceleration), ElementsAre(500, 300));
    EXPECT_EQ(document.ChartBlock().pointCount, 500);
    EXPECT_EQ(document.ChartBlock().seriesCount, 2);
    EXPECT_EQ(X(499, 0), 499 * kStep);
    EXPECT_EQ(Y(499, 0), 1.0);
    EXPECT_EQ(X(299, 1), 299 * kStep);
    EXPECT_EQ(Y(299, 1), 2.0);
    for (std::int32_t row = 300; row < 500; ++row) {
        EXPECT_EQ(X(row, 1), 2.220446049250313e-16) << row;
        EXPECT_EQ(Y(row, 1), 2.220446049250313e-16) << row;
    }
}

TEST_F(DocumentPages, EveryPageOfTheListIsBuiltWithItsTitles) {
    Compare(TimeSignal(kStep, Noise(200, 1)), {TimeSignal(kStep, Noise(200, 2)), TimeSignal(kStep, Noise(200, 3))});
    EXPECT_EQ(document.PageList(), OfferedPages(true));
    for (const std::int32_t id : document.PageList()) {
        EXPECT_TRUE(document.SelectPage(id)) << id;
        EXPECT_EQ(document.CurrentPageId(), id);
        EXPECT_EQ(document.Series().empty(), id == page::kSummary) << id;
        EXPECT_EQ(document.SeriesNames().size(), document.Series().size()) << id;
    }
    document.SelectPage(page::kCrossCorrelation);
    EXPECT_EQ(document.ChartBlock().xTitle, "Time Offset");
    EXPECT_THAT(document.SeriesNames(), ElementsAre("Reference", "c0", "c1"));
    document.SelectPage(page::kCorridor);
    EXPECT_EQ(document.ChartBlock().xTitle, "TIME SECONDS)");
    EXPECT_EQ(document.ChartBlock().yTitle, "ACCELERATION G'S)");
    EXPECT_THAT(document.SeriesNames(), ElementsAre("Plus 4", "Minus 4", "c0", "c1"));
    EXPECT_THAT(host.errorLists, IsEmpty());
}

TEST_F(DocumentPages, APageThatFailsHasNoSeriesSaysWhyAndLeavesTheOthersUsable) {
    constexpr double kLargeStep = 1.0 / 32.0;
    Compare(TimeSignal(kLargeStep, Noise(81, 1)), {TimeSignal(kLargeStep, Noise(81, 2))});
    EXPECT_THAT(Counts(page::kAcceleration), ElementsAre(81, 81));
    EXPECT_THAT(Counts(page::kCrossCorrelation), IsEmpty());
    EXPECT_THAT(document.SeriesNames(), IsEmpty());
    EXPECT_EQ(document.CurrentPageId(), page::kCrossCorrelation);
    EXPECT_EQ(document.ChartBlock().seriesCount, 0);
    EXPECT_EQ(document.ChartBlock().xTitle, "Time Offset");
    EXPECT_THAT(host.errorLists, ElementsAre(ElementsAre("Start Index (0)is >= Stop Index (0)")));
    EXPECT_THAT(Counts(page::kResiduals), ElementsAre(81));
    EXPECT_THAT(Counts(page::kVelocity), ElementsAre(81, 81));
    EXPECT_EQ(host.errorLists.size(), 1U);
}

TEST_F(DocumentPages, ASignalComparedWithItselfHasNoResidualAndNoDensity) {
    host.selection.isReferenceAverage = true;
    Compare(TimeSignal(kStep, Noise(50, 1)), {TimeSignal(kStep, Noise(50, 1))});
    document.SelectPage(page::kResiduals);
    EXPECT_THAT(document.Series().at(0)->GetY(), testing::Each(0.0));
    document.SelectPage(page::kCumulativeDensity);
    EXPECT_THAT(document.Series().at(0)->GetX(), testing::Each(kNoDataValue));
    document.SelectPage(page::kStandardDeviation);
    EXPECT_EQ(document.Series().at(0)->GetY(), document.Reference().Record().GetY());
}

}  // namespace
