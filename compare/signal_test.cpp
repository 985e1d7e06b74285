#include "compare/signal.h"

#include "compare/critical_values.h"
#include "compare/verdict.h"
#include "tests/support/summary_samples.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_signals.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace {

using testing::ElementsAre;

constexpr double kStep = 0.001;

/// Gives every test the default critical values.
class SummaryCells : public testing::Test {
protected:
    SummaryCells() { CriticalValues() = CCriticalValues(); }
    ~SummaryCells() override { CriticalValues() = CCriticalValues(); }

    /// A signal "in/computed.uds" that was compared with "ref.uds".
    static CSignal Compared(const std::vector<double>& computed, const std::vector<double>& reference) {
        CSignal signal("in/computed.uds"), other("ref.uds");
        signal.Record() = MakeTimeSignal(computed, kStep);
        other.Record() = MakeTimeSignal(reference, kStep);
        signal.Compare(other);
        return signal;
    }
};

// Reading.

TEST(SignalReading, StartsWithAnEmptyRecord) {
    const CSignal signal("a.uds");

    EXPECT_EQ(signal.GetPath(), "a.uds");
    EXPECT_EQ(signal.GetReferenceName(), "");
    EXPECT_EQ(signal.GetPointCount(), 0U);
    EXPECT_THAT(signal.GetMessages(), ElementsAre());
}

TEST(SignalReading, ReadsAUdsFile) {
    const CTempFolder folder;
    CSignal signal(WriteUds(folder, "a.uds", MakeTimeSignal(std::vector<double>{1.0, -2.5, 3.0}, 0.5)));

    ASSERT_TRUE(signal.ReadUds());
    EXPECT_EQ(signal.GetPointCount(), 3U);
    EXPECT_THAT(signal.Record().GetX(), ElementsAre(0.0, 0.5, 1.0));
    EXPECT_THAT(signal.Record().GetY(), ElementsAre(1.0, -2.5, 3.0));
    EXPECT_EQ(signal.Record().GetYUNITS(), "G'S");
    EXPECT_EQ(signal.Record().GetFileType(), "");
}

TEST(SignalReading, ReadsAnAsciiFileAsATimeSignalInSeconds) {
    const CTempFolder folder;
    CSignal signal(folder.Write("a.txt", "0 1\n0.5 2\n1 4\n"));

    ASSERT_TRUE(signal.ReadAscii());
    const ks::CNSignal& record = signal.Record();
    EXPECT_THAT(record.GetX(), ElementsAre(0.0, 0.5, 1.0));
    EXPECT_THAT(record.GetY(), ElementsAre(1.0, 2.0, 4.0));
    EXPECT_EQ(record.GetXTYPE(), "TIME");
    EXPECT_EQ(record.GetXUNITS(), "SECONDS");
    EXPECT_EQ(record.GetNFP(), 0);
    EXPECT_EQ(record.GetNLP(), 2);
    EXPECT_EQ(record.GetCount(), 3);
    EXPECT_EQ(record.Getdelt(), 0.0);
    EXPECT_EQ(record.GetFileType(), "ASCII File");
    EXPECT_EQ(record.GetXMax(), 1.0);
}

TEST(SignalReading, CollectsTheSentencesOfBothReaders) {
    const CTempFolder folder;
    const std::string path = folder.Write("a.txt", "no numbers here");
    CSignal signal(path);

    EXPECT_FALSE(signal.ReadUds());
    EXPECT_FALSE(signal.ReadAscii());
    EXPECT_THAT(signal.GetMessages(),
                ElementsAre("File size not a multiple of 512 bytes.",
                            "Failure to parse the file: " + path + " for reading.\nFailure to parse the data."));
    EXPECT_EQ(signal.GetPointCount(), 0U);
}

TEST(SignalReading, OfAMissingFileNamesItTwice) {
    const CTempFolder folder;
    CSignal signal(folder.Path("none.uds"));
    const std::string sentence = "Failure to open file: " + signal.GetPath() + " for reading.";

    EXPECT_FALSE(signal.ReadUds());
    EXPECT_FALSE(signal.ReadAscii());
    EXPECT_THAT(signal.GetMessages(), ElementsAre(sentence, sentence));
}

TEST(SignalReading, RefusesAnEmptyAsciiFile) {
    const CTempFolder folder;
    CSignal signal(folder.Write("a.txt", ""));

    EXPECT_FALSE(signal.ReadAscii());
    EXPECT_THAT(signal.GetMessages(), ElementsAre("No Information."));
}

TEST(SignalReading, DropsTheSentencesOfTheAttemptBeforeASuccess) {
    const CTempFolder folder;
    CSignal signal(folder.Write("a.txt", "0 1\n1 2\n"));

    ASSERT_FALSE(signal.ReadUds());
    ASSERT_TRUE(signal.ReadAscii());
    EXPECT_THAT(signal.GetMessages(), ElementsAre());
}

TEST(SignalReading, LeavesNothingOfAnEarlierFile) {
    const CTempFolder folder;
    CSignal signal(folder.Write("a.txt", "0 1\n1 2\n"));
    ASSERT_TRUE(signal.ReadAscii());
    signal.Record().AddWarning("doubtful");
    signal.SetPath(WriteUds(folder, "b.uds", MakeTimeSignal(std::vector<double>{1.0, 2.0}, 0.5)));

    ASSERT_TRUE(signal.ReadUds());
    EXPECT_EQ(signal.Record().GetFileType(), "");
    EXPECT_THAT(signal.GetMessages(), ElementsAre());
}

TEST(SignalReading, KeepsTheRecordWhenTheNewFileCannotBeRead) {
    const CTempFolder folder;
    CSignal signal(folder.Write("a.txt", "0 1\n1 2\n"));
    ASSERT_TRUE(signal.ReadAscii());
    signal.SetPath(folder.Path("none"));

    EXPECT_FALSE(signal.ReadUds());
    EXPECT_EQ(signal.GetPointCount(), 2U);
}

TEST(SignalComparing, TakesThePathOfTheReferenceAsItsName) {
    CSignal signal("a.uds"), reference("ref.uds");
    signal.SetReferenceName("Average of 2 files");
    signal.Compare(reference);

    EXPECT_EQ(signal.GetReferenceName(), "ref.uds");
}

TEST(SignalCopying, CopiesRecordPathNameAndMeasures) {
    CSignal signal("a.uds"), reference("ref.uds");
    signal.Record() = MakeTimeSignal(std::vector<double>{1.0, 2.0}, kStep);
    reference.Record() = MakeTimeSignal(std::vector<double>{3.0, 2.0}, kStep);
    signal.Compare(reference);
    const CSignal copy = signal;

    EXPECT_EQ(copy.Record().GetY(), signal.Record().GetY());
    EXPECT_EQ(copy.GetPath(), "a.uds");
    EXPECT_EQ(copy.GetReferenceName(), "ref.uds");
    EXPECT_EQ(copy.Comparison().GetResidualSum(), -2.0);
}

// Summary columns.

TEST_F(SummaryCells, ShowTheMeasures) {
    // Residuals -1, 0, 1 and an unseen 2, N = 4: sum 0, squares 2, deviation sqrt(2 / 4) = 0.707107, 35.36 % of the
    // peak 2. Weighted sums with t in steps: c 15, 43, 141, 499, 1851, 7093 and r 12, 30, 92, 312, 1124, 4200 (r is 2
    // at every point), see the sums below; the correlation is 30 / sqrt(43 * 24) = 0.93386.
    //   order 0: c 1 + 2 (2 + 3) + 4            r 2 (1 + 2 (1 + 1) + 1)
    //   order 1: c 1 + 2 (4 + 9) + 16           r 2 (1 + 2 (2 + 3) + 4)
    //   order 2: c 1 + 2 (8 + 27) + 64 = 135    r 2 (1 + 2 (4 + 9) + 16) = 86
    //   order 3: c 1 + 2 (16 + 81) + 256 = 451  r 2 (1 + 2 (8 + 27) + 64) = 270
    //   order 4: c 1 + 2 (32 + 243) + 1024 = 1575   r 2 (1 + 2 (16 + 81) + 256) = 902
    //   order 5: c 1 + 2 (64 + 729) + 4096 = 5683   r 2 (1 + 2 (32 + 243) + 1024) = 3150
    const CSignal signal = Compared({1.0, 2.0, 3.0, 4.0}, {2.0, 2.0, 2.0, 2.0});
    std::vector<std::string> texts;
    for (int column = 0; column < 16; ++column) texts.push_back(signal.GetColumnText(column));

    EXPECT_THAT(texts, ElementsAre("in/computed.uds", "3.0", "0.000000 (0.00 %)", "0.707107 (35.36 %)", "0.00", "0.934",
                                   "0.00", "0.200",  // 3 / 15
                                   "0.302",          // 13 / 43
                                   "0.363",          // 49 / 135
                                   "0.401",          // 181 / 451
                                   "0.427",          // 673 / 1575
                                   "0.446",          // 2533 / 5683
                                   "ref.uds", "0.0000", "0.0030"));
}

TEST_F(SummaryCells, ShowThePercentageOfTheAverageResidualWithoutItsSign) {
    // Residuals -2, -2 and an unseen one, N = 3, reference peak 8: -4 / 3, and 4 / 24.
    EXPECT_EQ(Compared({6.0, 6.0, 0.0}, {8.0, 8.0, 0.0}).GetColumnText(kResidualColumn), "-1.333333 (16.67 %)");
}

TEST_F(SummaryCells, ShowTheSignOfANegativePeakInBothPercentages) {
    // A first reference value of -8 is the peak where no inner point exceeds it: N = 2, one residual of 2, deviation
    // sqrt((4 - 4 / 2) / 2) = 1.
    const CSignal signal = Compared({-6.0, 0.0}, {-8.0, 0.0});

    EXPECT_EQ(signal.GetColumnText(kResidualColumn), "1.000000 (-12.50 %)");
    EXPECT_EQ(signal.GetColumnText(kDeviationColumn), "1.000000 (-12.50 %)");
    EXPECT_EQ(signal.GetColumnColor(kResidualColumn), CVerdictColor::Red);
    EXPECT_EQ(signal.GetColumnColor(kDeviationColumn), CVerdictColor::Green);
}

TEST_F(SummaryCells, ShowTheMagnitudeOfT) {
    // Residuals -1, -2, -3: the statistic is -1.5 / (sqrt(1.25) / 2) = -2.6833.
    EXPECT_EQ(Compared({0.0, 0.0, 0.0, 0.0}, {1.0, 2.0, 3.0, 4.0}).GetColumnText(kTStatisticColumn), "2.68");
}

TEST_F(SummaryCells, ShowNotANumberWithoutASign) {
    const CSignal equal = Compared({1.0, 2.0, 3.0}, {1.0, 2.0, 3.0});
    const CSignal zero = Compared({1.0, 2.0, 3.0}, {0.0, 0.0, 0.0});

    EXPECT_EQ(equal.GetColumnText(kTStatisticColumn), "nan");
    EXPECT_EQ(zero.GetColumnText(kCorrelationColumn), "nan");
    EXPECT_EQ(zero.GetColumnText(kResidualColumn), "1.000000 (inf %)");
    EXPECT_EQ(CSignal("a").GetColumnText(kResidualColumn), "nan (nan %)");
}

TEST_F(SummaryCells, OutsideTheTableAreEmptyAndWhite) {
    const CSignal signal = Compared({1.0, 2.0, 3.0}, {1.0, 2.0, 3.0});

    EXPECT_EQ(signal.GetColumnText(-1), "");
    EXPECT_EQ(signal.GetColumnText(static_cast<int>(ColumnCount())), "");
    EXPECT_EQ(signal.GetColumnColor(-1), CVerdictColor::White);
    EXPECT_EQ(signal.GetColumnColor(static_cast<int>(ColumnCount())), CVerdictColor::White);
}

TEST_F(SummaryCells, ThatNobodyJudgesAreWhite) {
    const CSignal signal = Compared({1.0, 2.0, 3.0}, {2.0, 2.0, 2.0});

    for (const int column : {0, 1, 13, 14, 15})
        EXPECT_EQ(signal.GetColumnColor(column), CVerdictColor::White) << column;
}

TEST_F(SummaryCells, OfACloseSignalAreGreen) {
    const CSignal signal = Compared({1.01, 2.0, 2.99, 4.0}, {1.0, 2.0, 3.0, 4.0});

    for (int column = 2; column <= 12; ++column) {
        EXPECT_EQ(signal.GetColumnColor(column), CVerdictColor::Green) << column;
    }
}

TEST_F(SummaryCells, OfADistantSignalAreRed) {
    const CSignal signal = Compared({10.0, -2.0, 50.0, 4.0}, {1.0, 2.0, 3.0, 4.0});

    for (const int column : {2, 3, 4, 5, 7}) EXPECT_EQ(signal.GetColumnColor(column), CVerdictColor::Red) << column;
}

TEST_F(SummaryCells, JudgeNotANumberAsBad) {
    EXPECT_EQ(Compared({1.0, 2.0}, {1.0, 2.0}).GetColumnColor(kTStatisticColumn), CVerdictColor::Red);
}

TEST_F(SummaryCells, JudgeAMomentDifferenceOfTheLimitAsBad) {
    // (10 - 8) / 10 is the double nearest to 0.2, the limit itself.
    const CSignal signal = Compared({10.0}, {8.0});

    ASSERT_EQ(signal.Comparison().GetMomentDifferences()[0], 0.2);
    EXPECT_EQ(signal.GetColumnColor(kFirstMomentColumn), CVerdictColor::Red);
}

TEST_F(SummaryCells, JudgeATenthOfThePointsOutsideAsBad) {
    const std::vector<double> zeros(10, 0.0);
    std::vector<double> oneOutside(10, 0.0);
    oneOutside[4] = 4.5;

    EXPECT_EQ(Compared(oneOutside, zeros).GetColumnText(kCorridorColumn), "10.00");
    EXPECT_EQ(Compared(oneOutside, zeros).GetColumnColor(kCorridorColumn), CVerdictColor::Red);
    EXPECT_EQ(Compared(zeros, zeros).GetColumnColor(kCorridorColumn), CVerdictColor::Green);
}

/// Which limit judges a column, and the judged value, formed here from the measures.
struct Limit {
    const char* name;
    int column;
    double CCriticalValues::*limit;
    double (*value)(const CComparison&);
};

template <std::size_t order>
double Moment(const CComparison& measures) {
    return measures.GetMomentDifferences()[order];
}

class Limits : public SummaryCells, public testing::WithParamInterface<Limit> {};

TEST_P(Limits, JudgeAnEqualValueAsBadAndTheNextSmallerAsGood) {
    const CSignal signal = Compared({1.0, 2.5, 3.0, 9.0, 4.0}, {2.0, 2.0, 2.0, 2.0, 2.0});
    const double value = GetParam().value(signal.Comparison());
    ASSERT_GT(value, 1e-3);

    CriticalValues().*GetParam().limit = value;
    EXPECT_EQ(signal.GetColumnColor(GetParam().column), CVerdictColor::Red);
    CriticalValues().*GetParam().limit = std::nextafter(value, 1e9);
    EXPECT_EQ(signal.GetColumnColor(GetParam().column), CVerdictColor::Green);
}

INSTANTIATE_TEST_SUITE_P(
    Columns, Limits,
    testing::Values(
        Limit{"residual", 2, &CCriticalValues::averageResidual,
              [](const CComparison& m) {
                  return std::abs(m.GetResidualSum() / (m.GetPointCount() * m.GetReferencePeak())) * 100.0;
              }},
        Limit{"deviation", 3, &CCriticalValues::standardDeviation,
              [](const CComparison& m) { return m.GetResidualStandardDeviation() / m.GetReferencePeak() * 100.0; }},
        Limit{"corridor", 4, &CCriticalValues::corridor,
              [](const CComparison& m) { return m.GetPercentOutsideCorridor() / 100.0; }},
        Limit{"correlation", 5, &CCriticalValues::correlation,
              [](const CComparison& m) { return 1.0 - m.GetCorrelationFactor(); }},
        Limit{"t", 6, &CCriticalValues::tStatistic, [](const CComparison& m) { return std::abs(m.GetTStatistic()); }},
        Limit{"moment0", 7, &CCriticalValues::moment, Moment<0>},
        Limit{"moment1", 8, &CCriticalValues::moment, Moment<1>},
        Limit{"moment2", 9, &CCriticalValues::moment, Moment<2>},
        Limit{"moment3", 10, &CCriticalValues::moment, Moment<3>},
        Limit{"moment4", 11, &CCriticalValues::moment, Moment<4>},
        Limit{"moment5", 12, &CCriticalValues::moment, Moment<5>}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SummaryCells, GiveNoVerdictOnAValueOfExactlyTheMachineEpsilon) {
    // One point: moment difference (c - r) / c with c = 1 and r = 1 - epsilon.
    const double epsilon = std::numeric_limits<double>::epsilon();
    const CSignal signal = Compared({1.0}, {1.0 - epsilon});

    ASSERT_EQ(signal.Comparison().GetMomentDifferences()[0], epsilon);
    EXPECT_EQ(signal.GetColumnColor(kFirstMomentColumn), CVerdictColor::White);
}

}  // namespace
