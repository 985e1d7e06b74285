#include "app/table/summary_list.h"

#include "app/table/summary_model.h"
#include "app/testing/summary_samples.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "compare/summary_table.h"
#include "compare/verdict.h"
#include "tests/support/summary_samples.h"

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <cstddef>
#include <memory>
#include <vector>

namespace {

const int kColumnCount = static_cast<int>(ColumnCount());

const std::vector<int> kThirdFirst = ThirdColumnFirst();

}  // namespace

class CSummaryListTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_list = std::make_unique<CSummaryList>();
        m_list->resize(1000, 200);
    }
    void cleanup() { m_list.reset(); }

    void ItIsAReportWithGridLinesAndFullRowSelection() {
        QCOMPARE(m_list->property("controlId").toInt(), 101);
        QCOMPARE(m_list->accessibleName(), QString("Summary of the comparison"));
        QVERIFY(m_list->showGrid());
        QVERIFY(m_list->horizontalHeader()->sectionsMovable());
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        Show();
        Click(1, 3);
        QCOMPARE(m_list->selectionModel()->selectedRows().size(), qsizetype{1});
        QVERIFY(m_list->selectionModel()->isRowSelected(1));
    }

    void WithoutASnapshotOnlyTheHeadersAreCopied() {
        const QString headers =
            "Filename\tPeak Value\tAvg Residual\tStd Dev of Residual\t% in Corridor\tCorrelation Factor\tT Statistic\t"
            "0 Moment Difference\t1st Moment Difference\t2nd Moment Difference\t3rd Moment Difference\t"
            "4th Moment Difference\t5th Moment Difference\tRef Filename\tMin Time\tMax Time\r\n";
        QCOMPARE(m_list->CopyDataText(), headers);
        m_list->SetSnapshot({});
        QCOMPARE(m_list->CopyDataText(), headers);
        QVERIFY(m_list->DisplayedTable().rows.empty());
    }

    void CopiedDataHasALinePerRow() {
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        const QStringList lines = CopiedLines();
        QCOMPARE(lines.size(), qsizetype{3});
        QCOMPARE(lines[1], QString("x.0\tx.1\tx.2\tx.3\tx.4\tx.5\tx.6\tx.7\tx.8\tx.9\tx.10\tx.11\tx.12\tx.13\tx.14\t"
                                   "x.15"));
        QCOMPARE(lines[2], QString(lines[1]).replace('x', 'y'));
    }

    void ATabOrLineEndInANameDoesNotBreakTheCopiedTable() {
        CSummarySnapshot snapshot = PlainSnapshot({"x"});
        snapshot.table.rows[0][At(kFilenameColumn)].text = "a\tb\r\nc";
        m_list->SetSnapshot(snapshot);
        QCOMPARE(CopiedLines().size(), qsizetype{2});
        QCOMPARE(CopiedLines()[1].section('\t', 0, 1), QString("a b  c\tx.1"));
    }

    void TheCopiedNumbersAreThoseOfTheSummaryTable() {
        const std::vector<CSignal> signalList = ComparedSignals();
        m_list->SetSnapshot(MakeSummarySnapshot(signalList));
        const QStringList cells = CopiedLines()[2].split('\t');
        QCOMPARE(cells.size(), qsizetype{16});
        for (int column = 0; column < cells.size(); ++column) {
            QCOMPARE(cells[column], QString::fromStdString(signalList[1].GetColumnText(column)));
        }
    }

    void AColumnThatIsNotFixedIsShownAndNotCopied() {
        const std::vector<CSummaryColumn> columns = ColumnsWithExtra(), fixed = FixedColumns();
        const QString expected = CopiedFrom(fixed);
        QCOMPARE(CopiedFrom(columns), expected);
        QVERIFY(expected.startsWith("Filename\tPeak Value\t"));
        QCOMPARE(expected.count('\t'), qsizetype{3 * 15});
    }

    void DraggingTheThirdColumnToTheFrontPutsItFirstOnEveryLine() {
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        DragThirdColumnToTheFront();
        QCOMPARE(m_list->DisplayedOrder(), kThirdFirst);
        const QStringList lines = CopiedLines();
        QCOMPARE(lines.size(), qsizetype{3});
        QVERIFY(lines[0].startsWith("Avg Residual\tFilename\tPeak Value\tStd Dev of Residual\t"));
        QVERIFY(lines[1].startsWith("x.2\tx.0\tx.1\tx.3\t"));
        QVERIFY(lines[2].startsWith("y.2\ty.0\ty.1\ty.3\t"));
    }

    void TheTableOnShowHasTheOrderOnShow() {
        m_list->SetSnapshot(PlainSnapshot({"x"}));
        DragThirdColumnToTheFront();
        const CSummaryTable table = m_list->DisplayedTable();
        QCOMPARE(table.order, kThirdFirst);
        QCOMPARE(table.rows.size(), std::size_t{1});
        QVERIFY(table.rows[0] == PlainRow("x"));
    }

    void TheOrderSurvivesNewRunsAndHiding() {
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        DragThirdColumnToTheFront();
        m_list->hide();
        QCOMPARE(m_list->DisplayedOrder(), kThirdFirst);
        m_list->show();
        QCOMPARE(m_list->DisplayedOrder(), kThirdFirst);
        for (const std::vector<std::string>& names :
             {std::vector<std::string>{"x", "y"}, {"z"}, {}, {"p", "q", "r"}, {"x"}}) {
            m_list->SetSnapshot(PlainSnapshot(names));
            QCOMPARE(m_list->DisplayedOrder(), kThirdFirst);
        }
        m_list->MarkPreviousRun(true);
        QCOMPARE(m_list->DisplayedOrder(), kThirdFirst);
    }

    void AltAndArrowsMoveTheCurrentColumn() {
        m_list->SetSnapshot(PlainSnapshot({"x"}));
        QTest::keyClick(m_list.get(), Qt::Key_Left, Qt::AltModifier);  // no current cell: nothing moves
        QCOMPARE(m_list->DisplayedOrder().front(), 0);
        m_list->setCurrentIndex(m_list->model()->index(0, 2));
        for (int i = 0; i < 3; ++i) QTest::keyClick(m_list.get(), Qt::Key_Left, Qt::AltModifier);  // stops at the front
        QCOMPARE(m_list->DisplayedOrder(), kThirdFirst);
        QCOMPARE(m_list->currentIndex(), m_list->model()->index(0, 2));
        for (int i = 0; i < kColumnCount; ++i) QTest::keyClick(m_list.get(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(m_list->DisplayedOrder().back(), 2);
        QCOMPARE(m_list->DisplayedOrder().front(), 0);
    }

    void ArrowsMoveAsTheColumnsAreShown() {
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        m_list->horizontalHeader()->moveSection(2, 0);
        m_list->setCurrentIndex(m_list->model()->index(0, 2));
        QTest::keyClick(m_list.get(), Qt::Key_Right);
        QCOMPARE(m_list->currentIndex(), m_list->model()->index(0, 0));
        QTest::keyClick(m_list.get(), Qt::Key_Down);
        QCOMPARE(m_list->currentIndex(), m_list->model()->index(1, 0));
        QVERIFY(m_list->selectionModel()->isRowSelected(1));
    }

    void TabLeavesTheTable() {
        QWidget window;
        QVBoxLayout layout(&window);
        CSummaryList list;
        QLineEdit next;
        layout.addWidget(&list);
        layout.addWidget(&next);
        list.SetSnapshot(PlainSnapshot({"x"}));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Tab);
        QVERIFY(next.hasFocus());
    }

    void NothingCanBeEdited() {
        m_list->SetSnapshot(PlainSnapshot({"x"}));
        Show();
        m_list->setCurrentIndex(m_list->model()->index(0, 1));
        QTest::keyClick(m_list.get(), Qt::Key_F2);
        QTest::mouseDClick(m_list->viewport(), Qt::LeftButton, {}, Center(0, 1));
        QTest::keyClick(m_list.get(), Qt::Key_7);
        QVERIFY(m_list->findChildren<QLineEdit*>().isEmpty());
        QCOMPARE(m_list->CopyDataText(), [] {
            CSummaryList fresh;
            fresh.SetSnapshot(PlainSnapshot({"x"}));
            return fresh.CopyDataText();
        }());
    }

    void EveryColumnIsAsWideAsItsContents() {
        std::vector<std::string> names(1500, "x");
        names.back() = "a name that is far longer than every other one and out of sight";
        m_list->SetSnapshot(PlainSnapshot(names));
        const QFontMetrics metrics(m_list->font());
        for (int column = 0; column < kColumnCount; ++column) {
            const QString widest = QString::fromStdString(names.back()) + "." + QString::number(column);
            const int width = m_list->columnWidth(column);
            QVERIFY(width > metrics.horizontalAdvance(widest));
            QVERIFY(width < metrics.horizontalAdvance(widest) + 40);
        }
        m_list->SetSnapshot(PlainSnapshot({"x"}));
        for (int column = 0; column < kColumnCount; ++column) {
            const QString header = m_list->model()->headerData(column, Qt::Horizontal).toString();
            QVERIFY(m_list->columnWidth(column) > metrics.horizontalAdvance(header));
            QVERIFY(m_list->columnWidth(column) < metrics.horizontalAdvance(header) + 60);
        }
    }

    void AJudgedCellKeepsItsColorWhenItsRowIsSelected() {
        CSummarySnapshot snapshot = PlainSnapshot({"x", "y"});
        snapshot.table.rows[0][At(kResidualColumn)].verdict = CVerdict::Good;
        snapshot.table.rows[1][At(kResidualColumn)].verdict = CVerdict::Bad;
        m_list->SetSnapshot(snapshot);
        Show();
        QCOMPARE(Pixel(0, kResidualColumn), QColor(0, 224, 0));
        QCOMPARE(Pixel(1, kResidualColumn), QColor(255, 0, 0));
        QCOMPARE(Pixel(0, kPeakColumn), m_list->palette().color(QPalette::Base));
        m_list->selectAll();
        QCOMPARE(Pixel(0, kResidualColumn), QColor(0, 224, 0));
        QCOMPARE(Pixel(1, kResidualColumn), QColor(255, 0, 0));
        QCOMPARE(Pixel(0, kPeakColumn), m_list->palette().color(QPalette::Highlight));
        QCOMPARE(Pixel(0, kResidualColumn, 1), m_list->palette().color(QPalette::Highlight));
    }

    void TheSelectionStaysWhileTheFilesAreTheSame() {
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        m_list->selectRow(1);
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        QVERIFY(m_list->selectionModel()->isRowSelected(1));
        m_list->SetSnapshot(PlainSnapshot({"z", "y"}));
        QVERIFY(!m_list->selectionModel()->hasSelection());
    }

    void ThePreviousRunIsMarkedForScreenReaders() {
        m_list->SetSnapshot(PlainSnapshot({"x"}));
        QCOMPARE(m_list->accessibleDescription(), QString());
        m_list->MarkPreviousRun(true);
        QVERIFY(m_list->Snapshot().isPreviousRun);
        QCOMPARE(m_list->accessibleDescription(), QString("Results of the previous run"));
        m_list->SetSnapshot(PlainSnapshot({"x"}));
        QCOMPARE(m_list->accessibleDescription(), QString());
    }

    void ScreenReadersReadEveryCell() {
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        Show();
        QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(m_list.get());
        QVERIFY(list && list->tableInterface());
        QAccessibleTableInterface& table = *list->tableInterface();
        QCOMPARE(table.rowCount(), 2);
        QCOMPARE(table.columnCount(), kColumnCount);
        QCOMPARE(table.columnDescription(1), QString("Peak Value"));
        QCOMPARE(table.cellAt(1, 1)->text(QAccessible::Name), QString("Peak Value: y.1"));
    }

    void TheContextMenuIsAskedForWithItsRow() {
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        Show();
        const QPoint onSecond = m_list->viewport()->mapToGlobal(Center(1, 0));
        QCOMPARE(MenuAsked(*m_list->viewport(), onSecond), qMakePair(onSecond, 1));
        const QPoint below = m_list->viewport()->mapToGlobal(QPoint(5, m_list->viewport()->height() - 3));
        QCOMPARE(MenuAsked(*m_list->viewport(), below), qMakePair(below, -1));
        const QPoint onHeader = m_list->horizontalHeader()->viewport()->mapToGlobal(QPoint(5, 5));
        QCOMPARE(MenuAsked(*m_list->horizontalHeader()->viewport(), onHeader), qMakePair(onHeader, -1));
    }

    void AHeaderIsNoRowEvenWhenTheTableIsScrolled() {
        m_list->SetSnapshot(PlainSnapshot(std::vector<std::string>(50, "x")));
        Show();
        m_list->verticalScrollBar()->setValue(m_list->verticalScrollBar()->maximum());
        QCOMPARE(m_list->RowAt(m_list->horizontalHeader()->viewport()->mapToGlobal(QPoint(5, 5))), -1);
        QCOMPARE(m_list->RowAt(m_list->viewport()->mapToGlobal(Center(49, 0))), 49);
    }

    void TheMenuKeyAsksForTheMenuOfTheCurrentRow() {
        Show();
        QCOMPARE(MenuAsked(*m_list, {}, QContextMenuEvent::Keyboard).second, -1);
        m_list->SetSnapshot(PlainSnapshot({"x", "y"}));
        m_list->setCurrentIndex(m_list->model()->index(1, 0));
        const QPoint center = m_list->viewport()->mapToGlobal(Center(1, 0));
        QCOMPARE(MenuAsked(*m_list, {}, QContextMenuEvent::Keyboard), qMakePair(center, 1));
    }

private:
    void Show() {
        m_list->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_list.get()));
    }

    QPoint Center(int row, int column) const {
        return m_list->visualRect(m_list->model()->index(row, column)).center();
    }

    void Click(int row, int column) { QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, Center(row, column)); }

    void DragThirdColumnToTheFront() {
        Show();
        const QHeaderView& header = *m_list->horizontalHeader();
        QWidget* const target = header.viewport();
        const int y = header.height() / 2;
        const int start = header.sectionViewportPosition(2) + header.sectionSize(2) / 2;
        QTest::mousePress(target, Qt::LeftButton, {}, {start, y});
        QTest::mouseMove(target, {start - 2 * QApplication::startDragDistance(), y});
        QTest::mouseMove(target, {header.sectionViewportPosition(0) + 3, y});
        QTest::mouseRelease(target, Qt::LeftButton, {}, {header.sectionViewportPosition(0) + 3, y});
    }

    /// Color near the left edge of a cell, where no text is; `y` counts from its top, by default its middle.
    QColor Pixel(int row, int column, int y = -1) const {
        const QRect cell = m_list->visualRect(m_list->model()->index(row, column));
        const QImage image = m_list->viewport()->grab().toImage();
        return image.pixelColor(cell.left() + 1, y < 0 ? cell.center().y() : cell.top() + y);
    }

    /// Copied data of a list that shows two signals in these columns.
    static QString CopiedFrom(const std::vector<CSummaryColumn>& columns) {
        CSummarySnapshot snapshot = MakeSummarySnapshot(ComparedSignals());
        snapshot.table = MakeSummaryTable(ComparedSignals(), columns);
        CSummaryList list;
        list.SetSnapshot(snapshot);
        [&] { QCOMPARE(list.DisplayedOrder().size(), columns.size()); }();
        return list.CopyDataText();
    }

    QPair<QPoint, int> MenuAsked(QWidget& widget, const QPoint& globalPosition,
                                 QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse) {
        const QSignalSpy asked(m_list.get(), &CSummaryList::ContextMenuAsked);
        QContextMenuEvent event(reason, widget.mapFromGlobal(globalPosition), globalPosition);
        QApplication::sendEvent(&widget, &event);
        if (asked.size() != 1) return {{}, -2};
        return {asked[0][0].toPoint(), asked[0][1].toInt()};
    }

    /// The copied lines without their ends; each must have ended in CR LF.
    QStringList CopiedLines() const {
        QString text = m_list->CopyDataText();
        if (!text.endsWith("\r\n")) return {};
        text.chop(2);
        return text.split("\r\n");
    }

    std::unique_ptr<CSummaryList> m_list;
};

QTEST_MAIN(CSummaryListTest)
#include "summary_list_test.moc"
