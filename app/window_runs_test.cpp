// Runs as the user of the main window sees them, both completed and stopped.

#include "app/commands.h"
#include "app/page_pane.h"
#include "app/table/summary_model.h"
#include "app/testing/control_ids.h"
#include "app/testing/widget_probe.h"
#include "app/testing/window_fixture.h"
#include "app/testing/window_test.h"
#include "compare/critical_values.h"
#include "compare/verdict.h"
#include "tests/support/summary_samples.h"
#include "tests/support/test_signals.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

const QStringList kAccelerationPages = {"Summary",
                                        "Acceleration",
                                        "Velocity",
                                        "Displacement",
                                        "Corridor",
                                        "Standard Deviation",
                                        "90 Percentile Corridor",
                                        "Residuals",
                                        "Cummulative Density",
                                        "Cross Correlation"};
const QStringList kOtherPages = {
    "Summary",   "Input Data",          "Corridor",         "Standard Deviation", "90 Percentile Corridor",
    "Residuals", "Cummulative Density", "Cross Correlation"};

const QStringList kAlways = {"SelectFiles",    "UdsSpecification", "Exit",      "Copy",      "CorridorSize",
                             "CriticalValues", "Toolbar",          "StatusBar", "Customize", "About"};

}  // namespace

class CWindowRunsTest : public CWindowTest {
    Q_OBJECT

private slots:
    void init() { Open(std::make_unique<CWindowFixture>()); }
    void cleanup() {
        m_pages.reset();
        m_choices.reset();
        CloseWindow();
        CriticalValues() = CCriticalValues();
    }

    void ACompletedRunShowsItsTableAndOffersItsPages() {
        m_window->CompareSled();
        QVERIFY(m_window->List()->isVisible());
        QCOMPARE(m_window->List()->geometry(), Frame().View().rect());
        QCOMPARE(m_window->List()->model()->rowCount(), 3);
        QCOMPARE(m_window->List()->model()->columnCount(), static_cast<int>(ColumnCount()));
        QVERIFY(!m_window->IsHintShown());
        QVERIFY(!m_window->IsBannerShown());
        QCOMPARE(m_window->PageNames(), kAccelerationPages);
        QCOMPARE(m_window->Pages().currentText(), QString("Summary"));
        QCOMPARE(m_window->Pages().itemData(0).toInt(), 1);
        QCOMPARE(m_window->Pages().itemData(9).toInt(), 11);
        QVERIFY(m_window->Pages().isEnabled());
        QCOMPARE(m_pages->size(), qsizetype{1});
        QCOMPARE(m_pages->at(0)[0].value<QList<int>>(), QList<int>({1, 7, 8, 9, 4, 3, 5, 6, 10, 11}));
        QVERIFY(m_choices->isEmpty());
        QCOMPARE(m_window->StatusText(), QString("3 signals were compared."));
        QVERIFY(m_window->errorLists.texts.isEmpty());
        QVERIFY(m_window->messages.said.isEmpty());
        CheckEnabled({"SaveHtml", "SaveUds", "SaveAscii", "CopyData"});
    }

    void SignalsOtherThanAccelerationOfferOneInputPage() {
        m_window->CompareForce();
        QCOMPARE(m_window->PageNames(), kOtherPages);
        QCOMPARE(m_pages->at(0)[0].value<QList<int>>(), QList<int>({1, 2, 4, 3, 5, 6, 10, 11}));
    }

    void OneSignalIsCountedAsOne() {
        m_window->Compare({Sled(2)}, Sled(1));
        QCOMPARE(m_window->StatusText(), QString("1 signal was compared."));
    }

    void ARunFromAChartPageGoesBackToTheSummaryWithoutSendingAPageChoice() {
        m_window->CompareSled();
        m_window->ChoosePage("Velocity");
        QCOMPARE(m_choices->size(), qsizetype{1});
        QVERIFY(Frame().View().IsChartShown());
        m_window->CompareForce();
        QCOMPARE(m_choices->size(), qsizetype{1});
        QCOMPARE(m_window->PageNames(), kOtherPages);
        QCOMPARE(m_window->Pages().currentText(), QString("Summary"));
        QVERIFY(!Frame().View().IsChartShown());
        QVERIFY(m_window->List()->isVisible());
        QCOMPARE(m_window->List()->model()->rowCount(), 2);
    }

    void NewLimitsRecolorTheTableAndLeaveTheSelectorAlone() {
        m_window->CompareSled();
        QCOMPARE(VerdictAt(0, kResidualColumn), CVerdict::Good);
        m_window->dialogs.Expect([](QWidget& dialog) { FillCriticalValues(dialog, "0.000001"); });
        Trigger(CCommandId::CriticalValues);
        QCOMPARE(m_window->dialogs.opened.last(), QString("Edit Critical Values"));
        QCOMPARE(VerdictAt(0, kResidualColumn), CVerdict::Bad);
        QCOMPARE(m_pages->size(), qsizetype{1});
        QVERIFY(m_choices->isEmpty());
        QCOMPARE(m_window->Pages().currentText(), QString("Summary"));
    }

    void CanceledLimitsChangeNothing() {
        m_window->CompareSled();
        m_window->dialogs.Expect([](QWidget& dialog) {
            Control<QLineEdit>(dialog, kAverageResidualId)->setText("0");
            Press(dialog, QDialogButtonBox::Cancel);
        });
        Trigger(CCommandId::CriticalValues);
        QCOMPARE(VerdictAt(0, kResidualColumn), CVerdict::Good);
    }

    void TheCorridorSizeTakesEffectWithTheNextRun() {
        m_window->CompareSled();
        const QString before = Text(1, kCorridorColumn);
        m_window->dialogs.Expect([](QWidget& dialog) { FillCorridor(dialog, "0.001"); });
        Trigger(CCommandId::CorridorSize);
        QCOMPARE(m_window->dialogs.opened.last(), QString("Enter Corridor Size"));
        QCOMPARE(Text(1, kCorridorColumn), before);
        m_window->CompareSled();
        QVERIFY(Text(1, kCorridorColumn) != before);
    }

    void LimitsAndCorridorCanBeSetBeforeTheFirstRun() {
        const QSignalSpy nothing(&Frame().View(), &CQuorvelView::NoDataToShow);
        m_window->SetCorridor("2.5");
        m_window->dialogs.Expect([](QWidget& dialog) { FillCriticalValues(dialog, "0.000001"); });
        Trigger(CCommandId::CriticalValues);
        QCOMPARE(nothing.size(), qsizetype{2});
        QVERIFY(m_window->IsHintShown());
        QVERIFY(m_window->List() == nullptr);
        m_window->CompareSled();
        QCOMPARE(VerdictAt(0, kResidualColumn), CVerdict::Bad);
        QCOMPARE(Frame().Document().ComputedSignals()[0].Comparison().GetCorridorSize(), 2.5);
    }

    void AnUpdateWithoutAHintChangesNothing() {
        m_window->CompareSled();
        m_window->ChoosePage("Velocity");
        Frame().View().OnDocumentUpdate(0);
        QVERIFY(Frame().View().IsChartShown());
        QCOMPARE(m_pages->size(), qsizetype{1});
    }

    void ACanceledSelectionChangesNothing() {
        m_window->CompareSled();
        m_window->ChoosePage("Velocity");
        const QStringList enabled = m_window->EnabledCommands();
        m_window->dialogs.Expect([](QWidget& dialog) { dialog.close(); });
        Trigger(CCommandId::SelectFiles);
        QVERIFY(Frame().View().IsChartShown());
        QCOMPARE(m_window->Pages().currentText(), QString("Velocity"));
        QCOMPARE(m_window->EnabledCommands(), enabled);
        QCOMPARE(Frame().Document().ComputedSignals().size(), std::size_t{3});
    }

    void TheFirstSelectionStartsWithTheDocumentsFlags() {
        m_window->dialogs.Expect([](QWidget& dialog) {
            QCOMPARE(dialog.findChild<CFileList*>()->count(), 0);
            QVERIFY(Control<QRadioButton>(dialog, kSingleReferenceId)->isChecked());
            QVERIFY(Control<QCheckBox>(dialog, kFilterId)->isChecked());
            QVERIFY(!Control<QCheckBox>(dialog, kTruncateId)->isChecked());
            QCOMPARE(Control<QComboBox>(dialog, kChannelClassId)->currentText(), QString("CFC60"));
            QCOMPARE(Control<QLineEdit>(dialog, kMinTimeId)->text(), QString("0"));
            QCOMPARE(Control<QLineEdit>(dialog, kMaxTimeId)->text(), QString("0.30000001192092896"));
            dialog.close();
        });
        Trigger(CCommandId::SelectFiles);
    }

    void TheChoiceOfTheLastRunIsOfferedAgain() {
        m_window->dialogs.Expect([this](QWidget& dialog) {
            Control<QCheckBox>(dialog, kFilterId)->setChecked(false);
            Control<QCheckBox>(dialog, kTruncateId)->setChecked(true);
            Control<QComboBox>(dialog, kChannelClassId)->setCurrentText("CFC180");
            m_window->Answer(dialog, {Sled(2), Sled(3)}, Sled(1));
        });
        Trigger(CCommandId::SelectFiles);
        m_window->dialogs.Expect([](QWidget& dialog) {
            QCOMPARE(dialog.findChild<CFileList*>()->Files(), std::vector<std::string>({Sled(2), Sled(3)}));
            QCOMPARE(Control<QLineEdit>(dialog, kReferencePathId)->text(), QString::fromStdString(Sled(1)));
            QVERIFY(Control<QRadioButton>(dialog, kSingleReferenceId)->isChecked());
            QVERIFY(!Control<QCheckBox>(dialog, kFilterId)->isChecked());
            QVERIFY(Control<QCheckBox>(dialog, kTruncateId)->isChecked());
            QCOMPARE(Control<QComboBox>(dialog, kChannelClassId)->currentText(), QString("CFC180"));
            dialog.close();
        });
        Trigger(CCommandId::SelectFiles);
    }

    // Runs that stop.

    void AFirstRunThatStopsLeavesTheWindowEmpty() {
        m_window->Compare({Sled(2), Unreadable("junk.001")}, Sled(1));
        QCOMPARE(m_window->errorLists.texts, QStringList({UnreadableText("junk.001")}));
        QCOMPARE(m_window->messages.said, QStringList({"beep"}));
        QVERIFY(m_window->List() == nullptr);
        QVERIFY(m_window->IsHintShown());
        QCOMPARE(Frame().findChild<QLabel*>("hint")->text(),
                 QString("Nothing has been compared yet. Choose File > Select Files... to compare signals."));
        QCOMPARE(m_window->StatusText(), QString("The run stopped; nothing was compared."));
        QVERIFY(!m_window->Pages().isEnabled());
        QVERIFY(m_pages->isEmpty());
        CheckEnabled({});
    }

    void AfterAStoppedRunTheOldTableStaysMarked() {
        m_window->CompareSled();
        const QString table = m_window->List()->CopyDataText();
        CSummaryList* const list = m_window->List();
        m_window->ChoosePage("Velocity");
        m_window->Compare({Unreadable("junk.001")}, Sled(1));
        QCOMPARE(m_window->errorLists.texts, QStringList({UnreadableText("junk.001")}));
        CheckPreviousRun(table);
        QCOMPARE(m_window->List(), list);
        QCOMPARE(m_window->Pages().currentText(), QString("Summary"));
        QCOMPARE(m_choices->size(), qsizetype{1});
        QCOMPARE(m_window->StatusText(), QString("The run stopped; nothing was compared."));
        CheckEnabled({"CopyData"});
    }

    void EveryCommandWorksAfterARunThatStopped() {
        m_window->CompareSled();
        const QString table = m_window->List()->CopyDataText();
        m_window->Compare({Unreadable("junk.001")}, Sled(1));
        QGuiApplication::clipboard()->setText("untouched");
        m_window->dialogs.opened.clear();
        int commandsTried = 0;
        for (const CCommand& command : Commands()) {
            if (command.id == CCommandId::Exit) continue;
            ++commandsTried;
            if (OpensDialog(command.id))
                m_window->dialogs.Expect([&](QWidget& dialog) { Confirm(dialog, command.id); });
            Frame().RunCommand(command.id);
            QCOMPARE(m_window->dialogs.TakeFaults(), QStringList());
            const bool isCopied = command.id == CCommandId::CopyData;
            QCOMPARE(QGuiApplication::clipboard()->text(), isCopied ? table : QString("untouched"));
            QGuiApplication::clipboard()->setText("untouched");
            CheckPreviousRun(table);
        }
        QCOMPARE(commandsTried, 20);
        QCOMPARE(m_window->dialogs.opened, QStringList({"Select Uds Files", "Enter Corridor Size",
                                                        "Edit Critical Values", "Customize", "About: Quorvel"}));
        // The only picker was the file viewer's: nothing asked where to save.
        QCOMPARE(m_window->picker.requests.size(), std::size_t{1});
        QCOMPARE(m_window->picker.requests[0].title, std::string("Select Uds File to View"));
        QCOMPARE(m_window->messages.said, QStringList({"beep"}));  // of the run that stopped
        Trigger(CCommandId::Exit);
        QVERIFY(!Frame().isVisible());
    }

    void ACompletedRunRemovesTheMark() {
        m_window->CompareSled();
        m_window->Compare({Unreadable("junk.001")}, Sled(1));
        m_window->Compare({Sled(5)}, Sled(1));
        QVERIFY(!m_window->IsBannerShown());
        QVERIFY(!m_window->List()->Snapshot().isPreviousRun);
        QCOMPARE(m_window->List()->geometry(), Frame().View().rect());
        QCOMPARE(m_window->List()->model()->rowCount(), 1);
        QVERIFY(m_window->Pages().isEnabled());
        CheckEnabled({"SaveHtml", "SaveUds", "SaveAscii", "CopyData"});
    }

    void AReferenceThatCannotBeReadIsReportedOnlyInTheStatusBar() {
        m_window->CompareSled();
        const QString table = m_window->List()->CopyDataText();
        m_window->Compare({Sled(2)}, Unreadable("reference.001"));
        QCOMPARE(m_window->StatusText(), QString("The reference could not be read; nothing was compared."));
        QVERIFY(m_window->errorLists.texts.isEmpty());
        QVERIFY(m_window->messages.said.isEmpty());
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QVERIFY(!Frame().findChild<QProgressBar*>("progress")->isVisible());
        CheckPreviousRun(table);
        CheckEnabled({"CopyData"});
    }

    void AMissingReferenceIsReportedTheSameWay() {
        m_window->Compare({Sled(2)}, m_window->Path("nowhere.001").toStdString());
        QCOMPARE(m_window->StatusText(), QString("The reference could not be read; nothing was compared."));
        QVERIFY(m_window->errorLists.texts.isEmpty());
    }

    void SignalsWithoutACommonTimeAreReportedInTheErrorList() {
        const std::string early = m_window->Path("early.uds").toStdString();
        const std::string late = m_window->Path("late.uds").toStdString();
        MakeTimeSignal(std::vector<double>(100, 1.0), 0.001, 0).SaveUDS(early);
        MakeTimeSignal(std::vector<double>(100, 1.0), 0.001, 5000).SaveUDS(late);
        m_window->Compare({early, late}, "");
        QCOMPARE(m_window->errorLists.texts, QStringList({"Error Computing the time range for evaluation\r\n"}));
    }

private:
    void Open(std::unique_ptr<CWindowFixture> window) {
        m_window = std::move(window);
        m_pages = std::make_unique<QSignalSpy>(&Frame().View(), &CQuorvelView::PagesAvailable);
        m_choices = std::make_unique<QSignalSpy>(Frame().findChild<CDialogPane*>(), &CDialogPane::PageChosen);
    }

    QString Text(int row, int column) { return m_window->List()->model()->index(row, column).data().toString(); }
    CVerdict VerdictAt(int row, int column) {
        return static_cast<CVerdict>(m_window->List()->model()->index(row, column).data(VerdictRole).toInt());
    }

    /// A file that is neither a signal nor a list of points.
    std::string Unreadable(const QString& name) {
        QFile file(m_window->Path(name));
        if (!file.open(QIODevice::WriteOnly)) return {};
        file.write("neither a signal nor points");
        return file.fileName().toStdString();
    }

    /// What the error list says about it: why it is not a UDS file, and why it is not a list of points.
    QString UnreadableText(const QString& name) {
        return QDir::toNativeSeparators(m_window->Path(name)) +
               "\r\nFile size not a multiple of 512 bytes.\r\nFailure to parse the file: " + m_window->Path(name) +
               " for reading.\nFailure to parse the data.\r\n";
    }

    static void Press(QWidget& dialog, QDialogButtonBox::StandardButton button) {
        dialog.findChild<QDialogButtonBox*>()->button(button)->click();
    }
    static void FillCriticalValues(QWidget& dialog, const QString& value) {
        for (const int id : kCriticalValueIds) Control<QLineEdit>(dialog, id)->setText(value);
        Press(dialog, QDialogButtonBox::Ok);
    }
    static void FillCorridor(QWidget& dialog, const QString& size) {
        Control<QLineEdit>(dialog, kCorridorSizeId)->setText(size);
        Press(dialog, QDialogButtonBox::Ok);
    }

    static bool OpensDialog(CCommandId id) {
        return id == CCommandId::SelectFiles || id == CCommandId::CorridorSize || id == CCommandId::CriticalValues ||
               id == CCommandId::Customize || id == CCommandId::About;
    }
    void Confirm(QWidget& dialog, CCommandId id) {
        switch (id) {
            case CCommandId::SelectFiles:
                // The document's files, not those of the table.
                QCOMPARE(dialog.findChild<CFileList*>()->count(), 1);
                dialog.close();
                return;
            case CCommandId::CorridorSize:
                return FillCorridor(dialog, "17");
            case CCommandId::CriticalValues:
                return FillCriticalValues(dialog, "0.000001");
            case CCommandId::Customize:
                return Press(dialog, QDialogButtonBox::Ok);
            default:
                dialog.close();
        }
    }

    void CheckEnabled(const QStringList& more) {
        QStringList expected;
        for (const CCommand& command : Commands()) {
            if (kAlways.contains(command.name) || more.contains(command.name)) expected.append(command.name);
        }
        QCOMPARE(m_window->EnabledCommands(), expected);
    }

    /// The table of the previous run is shown, unchanged but marked, with a banner above it.
    void CheckPreviousRun(const QString& table) {
        QVERIFY(m_window->List()->isVisible());
        QCOMPARE(m_window->List()->CopyDataText(), table);
        QVERIFY(m_window->List()->Snapshot().isPreviousRun);
        QCOMPARE(VerdictAt(0, kResidualColumn), CVerdict::Good);  // judged by the limits of its own run
        QVERIFY(m_window->IsBannerShown());
        const auto* const banner = Frame().findChild<QLabel*>("banner");
        QCOMPARE(banner->text(), QString("The last run stopped. These are the results of the previous run."));
        QCOMPARE(m_window->List()->y(), banner->height());
        QVERIFY(!Frame().View().IsChartShown());
        QVERIFY(!m_window->Pages().isEnabled());
    }
    std::unique_ptr<QSignalSpy> m_pages;
    std::unique_ptr<QSignalSpy> m_choices;
};

QTEST_MAIN(CWindowRunsTest)
#include "window_runs_test.moc"
