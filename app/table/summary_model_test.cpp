#include "app/table/summary_model.h"

#include "app/testing/contrast.h"
#include "app/testing/summary_samples.h"
#include "compare/critical_values.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"
#include "tests/support/summary_samples.h"
#include "tests/support/test_signals.h"

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

const int kColumnCount = static_cast<int>(ColumnCount());

}  // namespace

class CSummaryModelTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_model = std::make_unique<CSummaryModel>();
        m_tester = std::make_unique<QAbstractItemModelTester>(m_model.get(),
                                                              QAbstractItemModelTester::FailureReportingMode::Fatal);
    }
    void cleanup() {
        CriticalValues() = CCriticalValues();
        m_tester.reset();
        m_model.reset();
    }

    void AnEmptyTableHasAllColumns() {
        QCOMPARE(m_model->rowCount(), 0);
        QCOMPARE(m_model->columnCount(), kColumnCount);
        m_model->SetSnapshot({});
        QCOMPARE(m_model->rowCount(), 0);
        QCOMPARE(m_model->columnCount(), kColumnCount);
    }

    void TheHeadersAreTheSharedColumnNames() {
        QCOMPARE(Header(0), QString("Filename"));
        QCOMPARE(Header(4), QString("% in Corridor"));
        for (int column = 0; column < kColumnCount; ++column) {
            QCOMPARE(Header(column), QString::fromUtf8(SummaryColumns()[At(column)].header));
            QVERIFY(Header(column).size() <= 127);  // longer ones would be cut when data is copied
        }
    }

    void TheCellsAreThoseOfTheSummaryTable() {
        const std::vector<CSignal> signalList = ComparedSignals();
        m_model->SetSnapshot(MakeSummarySnapshot(signalList));
        const CSummaryTable table = MakeSummaryTable(signalList);
        QCOMPARE(m_model->rowCount(), 2);
        for (int row = 0; row < 2; ++row) {
            for (int column = 0; column < kColumnCount; ++column) {
                const CSummaryCell& expected = table.rows[At(row)][At(column)];
                QCOMPARE(Cell(row, column).toString(), QString::fromStdString(expected.text));
                QCOMPARE(Cell(row, column, VerdictRole).toInt(), static_cast<int>(expected.verdict));
            }
        }
        QCOMPARE(Cell(0, kFilenameColumn).toString(), QString("/a/close.uds"));
        QCOMPARE(Cell(0, kPeakColumn).toString(), QString("3.0"));  // the last point is left out
        QCOMPARE(Cell(1, kReferenceColumn).toString(), QString("ref.uds"));
    }

    void ASnapshotKeepsFilesAndLimitsOfItsMoment() {
        CriticalValues().moment = 0.5;
        m_model->SetSnapshot(MakeSummarySnapshot(ComparedSignals()));
        CriticalValues().moment = 1e-9;
        QCOMPARE(m_model->Snapshot().paths, (std::vector<std::string>{"/a/close.uds", "/a/distant.uds"}));
        QVERIFY(m_model->Snapshot().limits.moment == 0.5);
        const QString toolTip = Cell(0, kFirstMomentColumn, Qt::ToolTipRole).toString();
        QCOMPARE(toolTip, "0 Moment Difference\n" + Cell(0, kFirstMomentColumn).toString() +
                              "\nLimit: below 0.5\nVerdict: good");
    }

    void AJudgedCellGivesValueLimitAndVerdictInWords_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("limit");
        QTest::newRow("residual") << 2 << "Avg Residual"
                                  << "below 5 % of the reference peak";
        QTest::newRow("deviation") << 3 << "Std Dev of Residual"
                                   << "below 20 % of the reference peak";
        QTest::newRow("corridor") << 4 << "% in Corridor"
                                  << "below 10 % of the points outside the corridor";
        QTest::newRow("correlation") << 5 << "Correlation Factor"
                                     << "above 0.95 (1 minus 0.05)";
        QTest::newRow("t") << 6 << "T Statistic"
                           << "below 2.58";
        QTest::newRow("moment 0") << 7 << "0 Moment Difference"
                                  << "below 0.2";
        QTest::newRow("moment 5") << 12 << "5th Moment Difference"
                                  << "below 0.2";
    }
    void AJudgedCellGivesValueLimitAndVerdictInWords() {
        QFETCH(int, column);
        QFETCH(QString, name);
        QFETCH(QString, limit);
        CSummarySnapshot snapshot = PlainSnapshot({"x", "y"});
        snapshot.table.rows[0][At(column)].verdict = CVerdict::Good;
        snapshot.table.rows[1][At(column)].verdict = CVerdict::Bad;
        m_model->SetSnapshot(snapshot);
        const QString good = "x." + QString::number(column), bad = "y." + QString::number(column);
        QCOMPARE(ToolTip(0, column), name + "\n" + good + "\nLimit: " + limit + "\nVerdict: good");
        QCOMPARE(ToolTip(1, column), name + "\n" + bad + "\nLimit: " + limit + "\nVerdict: bad");
        QCOMPARE(Spoken(0, column), name + ": " + good + ", good, limit: " + limit);
        QCOMPARE(Spoken(1, column), name + ": " + bad + ", bad, limit: " + limit);
        QCOMPARE(m_model->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString(), name + "\nGood: " + limit);
    }

    void ALimitIsWrittenAsItWasGiven_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<double>("limit");
        QTest::addColumn<QString>("text");
        QTest::newRow("all digits") << 6 << 2.5758293035489 << "below 2.5758293035489";
        QTest::newRow("share without rounding noise") << 4 << 0.07 << "below 7 % of the points outside the corridor";
        QTest::newRow("factor without rounding noise") << 5 << 0.07 << "above 0.93 (1 minus 0.07)";
        QTest::newRow("negative") << 7 << -1.5 << "below -1.5";
        QTest::newRow("of no other column") << 1 << 3.0 << "";
    }
    void ALimitIsWrittenAsItWasGiven() {
        QFETCH(int, column);
        QFETCH(double, limit);
        QFETCH(QString, text);
        CCriticalValues limits;
        limits.averageResidual = limits.standardDeviation = limits.corridor = limit;
        limits.correlation = limits.tStatistic = limits.moment = limit;
        QCOMPARE(LimitText(SummaryColumns()[At(column)], limits), text);
    }

    void ACellWithoutAVerdictGivesNameAndValue() {
        m_model->SetSnapshot(PlainSnapshot({"x"}));
        QCOMPARE(ToolTip(0, kPeakColumn), QString("Peak Value\nx.1"));
        QCOMPARE(Spoken(0, kPeakColumn), QString("Peak Value: x.1"));
        QCOMPARE(ToolTip(0, kTStatisticColumn), QString("T Statistic\nx.6"));  // its value has no verdict
        QCOMPARE(Spoken(0, kTStatisticColumn), QString("T Statistic: x.6"));
        QCOMPARE(m_model->headerData(kPeakColumn, Qt::Horizontal, Qt::ToolTipRole).toString(), QString("Peak Value"));
    }

    void NotANumberIsShownAndBad() {
        CSignal signal("same.uds");
        signal.Record() = MakeTimeSignal(std::vector<double>{1.0, 2.0, 3.0}, 0.001);
        signal.Compare(CSignal(signal));  // no residual: T is 0 / 0
        m_model->SetSnapshot(MakeSummarySnapshot({signal}));
        QCOMPARE(Cell(0, kTStatisticColumn).toString(), QString("nan"));
        QCOMPARE(Spoken(0, kTStatisticColumn), QString("T Statistic: nan, bad, limit: below 2.58"));
        QCOMPARE(Background(0, kTStatisticColumn), QColor(255, 0, 0));
    }

    void AToolTipIsPlainTextWhateverTheFileIsCalled() {
        CSummarySnapshot snapshot = PlainSnapshot({"x"});
        snapshot.table.rows[0][At(kFilenameColumn)].text = "/a/<b>bold</b>&lt;.uds";
        m_model->SetSnapshot(snapshot);
        QCOMPARE(ToolTip(0, kFilenameColumn), QString("Filename\n/a/<b>bold</b>&lt;.uds"));
        QVERIFY(!Qt::mightBeRichText(ToolTip(0, kFilenameColumn)));
    }

    void TheVerdictColorsACellAndBlackIsLegibleOnIt() {
        m_model->SetSnapshot(Judged());
        QCOMPARE(Background(0, kCorridorColumn), QColor(0, 224, 0));
        QCOMPARE(Background(1, kCorridorColumn), QColor(255, 0, 0));
        for (int row = 0; row < 2; ++row) {
            QVERIFY(Contrast(Foreground(row, kCorridorColumn), Background(row, kCorridorColumn)) >= 4.5);
        }
        QVERIFY(!Cell(0, kPeakColumn, Qt::BackgroundRole).isValid());  // left to the theme
        QVERIFY(!Cell(0, kPeakColumn, Qt::ForegroundRole).isValid());
    }

    void ResultsOfThePreviousRunArePaleAndSaySo() {
        m_model->SetSnapshot(Judged());
        const QSignalSpy changed(m_model.get(), &CSummaryModel::dataChanged);
        m_model->MarkPreviousRun(true);
        QCOMPARE(changed.size(), qsizetype{1});
        QCOMPARE(Background(0, kCorridorColumn), QColor(127, 239, 127));
        QCOMPARE(Background(1, kCorridorColumn), QColor(255, 127, 127));
        for (int row = 0; row < 2; ++row) {
            QVERIFY(Contrast(Foreground(row, kCorridorColumn), Background(row, kCorridorColumn)) >= 4.5);
        }
        QCOMPARE(ToolTip(0, kPeakColumn), QString("Peak Value\nx.1\nResults of the previous run"));
        QCOMPARE(Spoken(0, kPeakColumn), QString("Peak Value: x.1. Results of the previous run"));
        QCOMPARE(Spoken(1, kCorridorColumn),
                 QString("% in Corridor: y.4, bad, limit: below 10 % of the points outside the corridor. "
                         "Results of the previous run"));
        QCOMPARE(Cell(0, kPeakColumn).toString(), QString("x.1"));

        m_model->MarkPreviousRun(false);
        QCOMPARE(Background(0, kCorridorColumn), QColor(0, 224, 0));
        QVERIFY(!Cell(0, kPeakColumn, Qt::ForegroundRole).isValid());
    }

    /// It was the palette's color for placeholders, which some dark desktops leave black.
    void ThePreviousRunIsLegibleOnLightAndDark() {
        m_model->SetSnapshot(Judged());
        m_model->MarkPreviousRun(true);
        const QPalette before = QGuiApplication::palette();
        for (const auto& [text, base] :
             {std::pair(QColor(Qt::black), QColor(Qt::white)), std::pair(QColor(239, 240, 241), QColor(27, 30, 32))}) {
            QPalette palette = before;
            palette.setColor(QPalette::Text, text);
            palette.setColor(QPalette::Base, base);
            palette.setColor(QPalette::PlaceholderText, Qt::black);
            QGuiApplication::setPalette(palette);
            const QColor shown = Foreground(0, kPeakColumn);
            QGuiApplication::setPalette(before);
            QVERIFY(Contrast(shown, base) >= 4.5);
            QVERIFY(shown != text);
        }
    }

    void ANewSnapshotIsUnmarkedUnlessItSaysSo() {
        m_model->SetSnapshot(Judged());
        m_model->MarkPreviousRun(true);
        m_model->SetSnapshot(Judged());
        QVERIFY(!m_model->Snapshot().isPreviousRun);
    }

    void ASnapshotOfTheSameFilesChangesTheCellsInPlace() {
        m_model->SetSnapshot(PlainSnapshot({"x", "y"}));
        const QPersistentModelIndex cell = m_model->index(1, 2);
        const QSignalSpy changed(m_model.get(), &CSummaryModel::dataChanged);
        const QSignalSpy reset(m_model.get(), &CSummaryModel::modelReset);
        m_model->SetSnapshot(Judged());
        QCOMPARE(reset.size(), qsizetype{0});
        QCOMPARE(changed.size(), qsizetype{1});
        QCOMPARE(changed[0][0].toModelIndex(), m_model->index(0, 0));
        QCOMPARE(changed[0][1].toModelIndex(), m_model->index(1, kColumnCount - 1));
        QVERIFY(cell.isValid());

        m_model->SetSnapshot(PlainSnapshot({"y", "x"}));
        QCOMPARE(reset.size(), qsizetype{1});
        QVERIFY(!cell.isValid());
    }

    void NumbersAlignRightAndFileNamesLeft() {
        m_model->SetSnapshot(PlainSnapshot({"x"}));
        for (int column = 0; column < kColumnCount; ++column) {
            const bool isName = SummaryColumns()[At(column)].isName;
            const auto expected = Qt::AlignVCenter | (isName ? Qt::AlignLeft : Qt::AlignRight);
            QVERIFY(Cell(0, column, Qt::TextAlignmentRole).value<Qt::Alignment>() == expected);
            const QVariant header = m_model->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
            QVERIFY(header.value<Qt::Alignment>() == expected);
        }
    }

    void AColumnOfAnotherTableIsShownAndJudged() {
        m_model->SetSnapshot(PlainSnapshot({"x"}));
        const QSignalSpy reset(m_model.get(), &CSummaryModel::modelReset);
        const std::vector<CSummaryColumn> columns = ColumnsWithExtra();
        CSummarySnapshot snapshot = PlainSnapshot({"x"});
        snapshot.table = MakeSummaryTable(ComparedSignals(), columns);
        snapshot.table.rows.pop_back();
        m_model->SetSnapshot(snapshot);
        const int extra = kColumnCount - 1;    // before the last one
        QCOMPARE(reset.size(), qsizetype{1});  // other columns, though the same file
        QCOMPARE(m_model->columnCount(), kColumnCount + 1);
        QCOMPARE(Header(extra), QString("Extra"));
        QCOMPARE(Cell(0, extra).toString(), QString("4 points"));
        QCOMPARE(Background(0, extra), QColor(0, 224, 0));
        QCOMPARE(Spoken(0, extra), QString("Extra: 4 points, good, limit: above 2.58"));
        m_tester.reset();
        m_model.reset();  // before the columns
    }

    void ThereIsNothingOutsideTheTable() {
        m_model->SetSnapshot(PlainSnapshot({"x"}));
        QVERIFY(!m_model->data(QModelIndex()).isValid());
        QVERIFY(!m_model->headerData(kColumnCount, Qt::Horizontal).isValid());
        QVERIFY(!m_model->headerData(-1, Qt::Horizontal).isValid());
        QCOMPARE(m_model->rowCount(m_model->index(0, 0)), 0);
        QVERIFY(!m_model->flags(m_model->index(0, 0)).testFlag(Qt::ItemIsEditable));
    }

private:
    /// Rows "x" and "y", good and bad in the column of the corridor.
    static CSummarySnapshot Judged() {
        CSummarySnapshot snapshot = PlainSnapshot({"x", "y"});
        snapshot.table.rows[0][At(kCorridorColumn)].verdict = CVerdict::Good;
        snapshot.table.rows[1][At(kCorridorColumn)].verdict = CVerdict::Bad;
        return snapshot;
    }

    QString Header(int column) const { return m_model->headerData(column, Qt::Horizontal).toString(); }
    QVariant Cell(int row, int column, int role = Qt::DisplayRole) const {
        return m_model->index(row, column).data(role);
    }
    QString ToolTip(int row, int column) const { return Cell(row, column, Qt::ToolTipRole).toString(); }
    QString Spoken(int row, int column) const { return Cell(row, column, Qt::AccessibleTextRole).toString(); }
    QColor Background(int row, int column) const {
        return Cell(row, column, Qt::BackgroundRole).value<QBrush>().color();
    }
    QColor Foreground(int row, int column) const {
        return Cell(row, column, Qt::ForegroundRole).value<QBrush>().color();
    }

    std::unique_ptr<CSummaryModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

QTEST_MAIN(CSummaryModelTest)
#include "summary_model_test.moc"
