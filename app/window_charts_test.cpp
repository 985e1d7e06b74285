// The chart pages of the main window, seen from the chart control: what the window asks of it, call by call.

#include "app/commands.h"
#include "app/page_pane.h"
#include "app/testing/window_fixture.h"
#include "app/testing/window_test.h"
#include "chart/testing/recording_chart_control.h"
#include "signal/nsignal.h"
#include "tests/support/summary_samples.h"
#include "tests/support/test_signals.h"

#include <QHeaderView>
#include <QSignalSpy>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Calls = std::vector<std::string>;

constexpr const char* kPadding = "2.220446049250313e-16";

/// The calls that every new chart gets before its data.
Calls Creation(const QSize& size) {
    Calls calls = {"create 304 style 0 area " + std::to_string(size.width()) + " x " + std::to_string(size.height()) +
                   " id 1"};
    for (const char* const setting :
         {"3610 = 1", "3045 = 1", "3282 = 3", "3254 = 0", "3022 = 0", "3281 = 0", "3200 = 1", "2621 = 1", "3640 = 0",
          "3401 = 0", "3416 = 0", "3642 = 0", "2928 = 1", "3290 = 1", "3223 = 1", "3208 = 1", "2620 = 3"}) {
        calls.push_back(std::string("set ") + setting);
    }
    calls.push_back(std::string("array 3268 = ") + kPadding);
    calls.push_back(std::string("array 3656 = ") + kPadding);
    return calls;
}

/// What follows the data: nothing of the previous page may remain, then the chart is drawn.
Calls ResetAndDraw() {
    return {"set 3040 = 0",     "set 3605 = 0",     "apply",
            "set 3290 = 0",     "set 3223 = 0",     "set 2623 = 0",
            "array 3246 empty", "array 3291 empty", "array 3292 empty",
            "draw 0 0"};
}

Calls Joined(const std::vector<Calls>& parts) {
    Calls calls;
    for (const Calls& part : parts) calls.insert(calls.end(), part.begin(), part.end());
    return calls;
}

QString Text(const Calls& calls) {
    QStringList lines;
    for (const std::string& call : calls) lines.append(QString::fromStdString(call));
    return lines.join('\n');
}

const std::vector<double> kRamp = {0.0, 1.0, 2.0, 3.0};

}  // namespace

class CWindowChartsTest : public CWindowTest {
    Q_OBJECT

private slots:
    void init() {
        auto chart = std::make_unique<CRecordingChartControl>();
        m_chart = chart.get();
        OpenWindow(std::move(chart));
    }
    void cleanup() { CloseWindow(); }

    void TheSummaryNeedsNoChart() {
        CompareRamp();
        m_window->ChoosePage("Summary");
        QVERIFY(!Has("create"));
        QVERIFY(!Has("set 2115"));
    }

    void AChartPageIsCreatedFilledAndDrawn() {
        // The computed signal is cut where the reference ends, without its last sample: two points and a padded one.
        CompareWithoutFilter({Write("a.uds", {0.0, 2.0, 4.0, 6.0})}, Write("reference.uds", {0.0, 1.0, 2.0}));
        m_chart->calls.clear();
        m_window->ChoosePage("Acceleration");
        const std::string padding = kPadding;
        CompareCalls(
            Joined({Creation(Frame().View().size()),
                    {"set 2115 = 2", "set 2120 = 3", "set 3104 = 3", "set 3016 = 1",
                     "array 3013 = 0 0.5 1 0 0.5 " + padding, "set 3017 = 1", "array 3014 = 0 1 2 0 2 " + padding,
                     "text 3005 = \"Acceleration (G's)\"", "text 3000 = \"Time (seconds)\"", "text 2105 = \"\"",
                     "text 2110 = \"\"", "array 2125 = \"Reference\ta.uds\t\" (2)", "array 3271 = 0 1"},
                    ResetAndDraw()}));
        QVERIFY(!m_window->List()->isVisible());
    }

    void TheStatusBarSaysWhatDisplacementShows() {
        CompareRamp();
        m_window->ChoosePage("Displacement");
        QCOMPARE(m_window->StatusText(), QString("Displacement shows the same single integral as the Velocity page."));
        m_window->ChoosePage("Velocity");
        QCOMPARE(m_window->StatusText(), QString("Ready"));
    }

    void AnotherPageDestroysTheChartBeforeItCreatesItsOwn() {
        CompareRamp();
        m_window->ChoosePage("Velocity");
        const Calls velocity = m_chart->calls;
        m_chart->calls.clear();
        m_window->ChoosePage("Displacement");
        QCOMPARE(QString::fromStdString(m_chart->calls.at(0)), QString("destroy"));
        QCOMPARE(Count("destroy"), 1);
        QCOMPARE(Count("create"), 1);
        // Displacement integrates once, as velocity does: the same curves under another title.
        Calls displacement(m_chart->calls.begin() + 1, m_chart->calls.end());
        for (std::string& call : displacement) {
            if (call == "text 3005 = \"Displacement (mm)\"") call = "text 3005 = \"Velocity (kmph)\"";
        }
        const auto start = std::find_if(velocity.begin(), velocity.end(),
                                        [](const std::string& call) { return call.starts_with("create"); });
        QCOMPARE(Text(displacement), Text(Calls(start, velocity.end())));
    }

    void BackOnTheSummaryTheTableIsTheSameAsBefore() {
        CompareRamp();
        CSummaryList* const list = m_window->List();
        list->horizontalHeader()->moveSection(2, 0);
        list->setColumnWidth(4, 177);
        m_window->ChoosePage("Velocity");
        QVERIFY(!list->isVisible());
        m_chart->calls.clear();
        const QSignalSpy columns(list->model(), &QAbstractItemModel::columnsInserted);
        m_window->ChoosePage("Summary");
        CompareCalls({"destroy"});
        QCOMPARE(m_window->List(), list);
        QVERIFY(list->isVisible());
        QVERIFY(columns.isEmpty());
        QCOMPARE(list->DisplayedOrder(), ThirdColumnFirst());
        QCOMPARE(list->model()->rowCount(), 1);  // refilled, not filled twice
        QVERIFY(list->columnWidth(4) != 177);    // sized to its contents again
    }

    void TheOrderOfTheColumnsSurvivesANewRun() {
        CompareRamp();
        m_window->List()->horizontalHeader()->moveSection(2, 0);
        m_window->ChoosePage("Velocity");
        CompareRamp();
        QCOMPARE(m_window->List()->DisplayedOrder().front(), 2);
    }

    void ResizingTellsTheChartItsNewSize() {
        CompareRamp();
        m_window->ChoosePage("Acceleration");
        m_chart->calls.clear();
        Frame().resize(700, 500);
        const std::string width = std::to_string(Frame().View().width());
        const std::string height = std::to_string(Frame().View().height());
        QCOMPARE(Frame().View().width(), 700);
        CompareCalls({"set 2200 = " + width, "set 2205 = " + height, "array 2210 = 0 0 " + width + " " + height,
                      "resized " + width + " x " + height});
    }

    void ResizingTheSummaryConcernsNoChartButTheTable() {
        CompareRamp();
        m_chart->calls.clear();
        Frame().resize(700, 500);
        CompareCalls({});
        QCOMPARE(m_window->List()->geometry(), Frame().View().rect());
        m_window->ChoosePage("Velocity");
        Frame().resize(900, 550);
        m_window->ChoosePage("Summary");
        QCOMPARE(m_window->List()->geometry(), Frame().View().rect());
    }

    void ANewCorridorSizeRedrawsTheChartAndCountsFromTheNextRunOn() {
        CompareRamp();
        m_window->ChoosePage("Corridor");
        QCOMPARE(Call("array 2125"), QString("array 2125 = \"Plus 4\tMinus 4\ta.uds\t\" (3)"));
        QCOMPARE(Call("text 3000"), QString("text 3000 = \"TIME SECONDS)\""));
        QCOMPARE(Call("text 3005"), QString("text 3005 = \"ACCELERATION G'S)\""));
        m_chart->calls.clear();
        m_window->SetCorridor("2.5");
        QCOMPARE(QString::fromStdString(m_chart->calls.at(0)), QString("destroy"));
        QCOMPARE(Call("array 2125"), QString("array 2125 = \"Plus 4\tMinus 4\ta.uds\t\" (3)"));
        CompareRamp();
        m_chart->calls.clear();
        m_window->ChoosePage("Corridor");
        QCOMPARE(Call("array 2125"), QString("array 2125 = \"Plus 2.5\tMinus 2.5\ta.uds\t\" (3)"));
        QCOMPARE(Call("array 3014"), QString("array 3014 = 2.5 3.5 4.5 5.5 -2.5 -1.5 -0.5 0.5 0 1 2 3"));
    }

    void APageWithoutCurvesShowsAHintAndKeepsItsEntry() {
        // A step of half a second leaves the cross correlation a single lag, which it refuses.
        CompareRamp();
        const QSignalSpy nothing(&Frame().View(), &CQuorvelView::NoDataToShow);
        m_window->ChoosePage("Velocity");
        m_chart->calls.clear();
        m_window->ChoosePage("Cross Correlation");
        CompareCalls({"destroy"});
        QCOMPARE(nothing.size(), qsizetype{1});
        QCOMPARE(m_window->errorLists.texts, QStringList({"Start Index (0)is >= Stop Index (0)\r\n"}));
        QVERIFY(m_window->IsHintShown());
        QCOMPARE(Frame().findChild<QLabel*>("hint")->text(),
                 QString("There are no curves to show on this page. Choose another page under Plot Type, or select "
                         "other files."));
        QVERIFY(!m_window->List()->isVisible());
        QCOMPARE(m_window->Pages().currentText(), QString("Cross Correlation"));
        QVERIFY(m_window->Pages().isEnabled());
        for (const CCommandId id : {CCommandId::SaveBmp, CCommandId::SaveWmf, CCommandId::Print,
                                    CCommandId::PrintDirect, CCommandId::CopyData, CCommandId::SaveHtml}) {
            QVERIFY(!m_window->IsEnabled(id));
        }
        for (const CCommandId id : {CCommandId::SaveUds, CCommandId::SaveAscii}) {
            Frame().RunCommand(id);
            QVERIFY(m_window->picker.requests.empty());
            QCOMPARE(m_window->StatusText(), QString("This page has no curves to save."));
        }
        m_chart->calls.clear();
        m_window->ChoosePage("Velocity");
        QVERIFY(!m_window->IsHintShown());
        QVERIFY(Has("draw 0 0"));
        m_window->ChoosePage("Cross Correlation");
        m_window->ChoosePage("Summary");
        QVERIFY(m_window->List()->isVisible());
        QVERIFY(!m_window->IsHintShown());
    }

    void LineStylesRunThroughTenAndRepeat() {
        const std::string file = Write("a.uds", kRamp);
        CompareWithoutFilter(std::vector<std::string>(11, file), Write("reference.uds", kRamp));
        m_chart->calls.clear();
        m_window->ChoosePage("Acceleration");
        QCOMPARE(Call("array 3271"), QString("array 3271 = 0 1 2 3 4 5 6 9 10 11 0 1"));
        m_window->ChoosePage("Residuals");  // fewer series than the previous page
        QCOMPARE(Call("array 3271"), QString("array 3271 = 0 1 2 3 4 5 6 9 10 11 0"));
    }

    void MoreThanTenThousandPointsAreDrawnInAnotherWay_data() {
        QTest::addColumn<int>("files");
        QTest::addColumn<QString>("call");
        QTest::newRow("100 series of 100 points") << 99 << "set 3104 = 3";
        QTest::newRow("101 series of 100 points") << 100 << "set 3104 = 10";
    }
    void MoreThanTenThousandPointsAreDrawnInAnotherWay() {
        QFETCH(int, files);
        QFETCH(QString, call);
        const std::string file = Write("a.uds", std::vector<double>(100, 1.0));
        CompareWithoutFilter(std::vector<std::string>(static_cast<std::size_t>(files), file), file);
        m_chart->calls.clear();
        m_window->ChoosePage("Acceleration");
        QCOMPARE(Call("set 2115"), "set 2115 = " + QString::number(files + 1));
        QCOMPARE(Call("set 3104"), call);
    }

    void EveryPageIsReachedByTheKeyboard() {
        m_window->CompareSled();
        const QSignalSpy chosen(Frame().findChild<CDialogPane*>(), &CDialogPane::PageChosen);
        QTest::keyClick(&m_window->Pages(), Qt::Key_Home);
        m_chart->calls.clear();
        const qsizetype before = chosen.size();
        for (int page = 1; page < m_window->Pages().count(); ++page) {
            QTest::keyClick(&m_window->Pages(), Qt::Key_Down);
            QCOMPARE(chosen.size(), before + page);
            QCOMPARE(Count("draw 0 0"), page);
            QVERIFY(Frame().View().IsChartShown());
        }
        QVERIFY(m_window->errorLists.texts.isEmpty());
    }

    void ARunDestroysTheChart() {
        CompareRamp();
        m_window->ChoosePage("Velocity");
        m_chart->calls.clear();
        CompareRamp();
        QCOMPARE(Count("destroy"), 1);
        QVERIFY(!m_chart->Exists());
        QVERIFY(!Has("create"));
    }

    void TheWindowTakesItsChartAlong() {
        OpenWindow(std::make_unique<CRecordingChartControl>(&m_kept));
        CompareRamp();
        m_window->ChoosePage("Velocity");
        QVERIFY(m_kept.Exists());
        m_kept.calls.clear();
        CloseWindow();
        QCOMPARE(Text(m_kept.calls), QString("destroy"));
    }

    void TheRealChartCoversTheViewAndFollowsIt() {
        OpenWindow();
        m_window->CompareSled();
        m_window->ChoosePage("Velocity");
        auto* const chart = Frame().View().findChild<QWidget*>("chart");
        QVERIFY(chart != nullptr && chart->isVisible());
        QCOMPARE(chart->geometry(), Frame().View().rect());
        Frame().resize(720, 510);
        QCOMPARE(chart->geometry(), Frame().View().rect());
        m_window->ChoosePage("Summary");
        QVERIFY(Frame().View().findChild<QWidget*>("chart") == nullptr ||
                !Frame().View().findChild<QWidget*>("chart")->isVisible());
    }

private:
    /// A signal in G'S with a step of half a second.
    std::string Write(const QString& name, const std::vector<double>& y) {
        const std::string path = m_window->Path(name).toStdString();
        ks::CNSignal record = MakeTimeSignal(y, 0.5);
        record.SetYTYPE("ACCELERATION");
        record.SaveUDS(path);
        return path;
    }

    void CompareWithoutFilter(const std::vector<std::string>& files, const std::string& reference) {
        CRunChoice choice;
        choice.isFiltered = false;
        m_window->Compare(files, reference, choice);
        QVERIFY(m_window->errorLists.texts.isEmpty());
    }
    void CompareRamp() { CompareWithoutFilter({Write("a.uds", kRamp)}, Write("reference.uds", kRamp)); }

    /// How many calls begin so.
    int Count(const std::string& start) const {
        int count = 0;
        for (const std::string& call : m_chart->calls) count += call.starts_with(start) ? 1 : 0;
        return count;
    }
    bool Has(const std::string& start) const { return Count(start) > 0; }
    /// The last call that begins so.
    QString Call(const std::string& start) const {
        QString found;
        for (const std::string& call : m_chart->calls) {
            if (call.starts_with(start)) found = QString::fromStdString(call);
        }
        return found;
    }
    void CompareCalls(const Calls& expected) const {
        const Calls& calls = m_chart->calls;
        for (std::size_t i = 0; i < calls.size() && i < expected.size(); ++i) {
            QCOMPARE(QString::fromStdString(calls[i]), QString::fromStdString(expected[i]));
        }
        QCOMPARE(calls.size(), expected.size());
    }

    CRecordingChartControl* m_chart = nullptr;  ///< the window's
    CRecordingChartControl m_kept;              ///< outlives the window whose chart passes its calls on to it
};

QTEST_MAIN(CWindowChartsTest)
#include "window_charts_test.moc"
