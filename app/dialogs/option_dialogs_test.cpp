#include "app/dialogs/about_dialog.h"
#include "app/dialogs/corridor_dialog.h"
#include "app/dialogs/critical_values_dialog.h"
#include "app/dialogs/error_dialog.h"
#include "app/testing/control_ids.h"
#include "app/testing/error_list_watcher.h"
#include "app/testing/recorded_messages.h"
#include "app/testing/widget_probe.h"
#include "compare/critical_values.h"
#include "compare/plots/page_table.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace {

constexpr const char* kNotPositive = "error|Error|You must enter a positive Value for the corridor Size";

QStringList LabelTexts(const QWidget& dialog) {
    QStringList texts;
    const auto labels = dialog.findChildren<QLabel*>();
    for (const QLabel* const label : labels) {
        if (!label->text().isEmpty()) texts.append(label->text());
    }
    return texts;
}

}  // namespace

class COptionDialogsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_messages.said.clear(); }

    // Corridor size.

    void TheCorridorDialogShowsTheSizeGiven() {
        const CCorridorDlg dialog(4.0, m_messages);
        QCOMPARE(dialog.windowTitle(), QString("Enter Corridor Size"));
        QCOMPARE(Edit(dialog, kCorridorSizeId).text(), QString("4"));
        QVERIFY(dialog.Size() == 4.0);
    }

    void ASizeThatIsNotPositiveKeepsTheCorridorDialogOpen_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("written");
        QTest::newRow("zero") << "0"
                              << "0";
        QTest::newRow("zero with decimals is written back plainly") << " 0.000 "
                                                                    << "0";
        QTest::newRow("negative zero") << "-0"
                                       << "-0";
        QTest::newRow("negative") << "-2.50"
                                  << "-2.5";
    }
    void ASizeThatIsNotPositiveKeepsTheCorridorDialogOpen() {
        QFETCH(QString, typed);
        QFETCH(QString, written);
        CCorridorDlg dialog(4.0, m_messages);
        dialog.show();
        Edit(dialog, kCorridorSizeId).setText(typed);
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(m_messages.said, QStringList({kNotPositive}));
        QVERIFY(dialog.isVisible());
        QCOMPARE(Edit(dialog, kCorridorSizeId).text(), written);

        Edit(dialog, kCorridorSizeId).setText("2.5");
        QTest::keyClick(&dialog, Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int{QDialog::Accepted});
        QVERIFY(dialog.Size() == 2.5);
        QCOMPARE(m_messages.said.size(), qsizetype{1});
    }

    void ASizeThatIsNoNumberKeepsTheCorridorDialogOpen() {
        CCorridorDlg dialog(4.0, m_messages);
        dialog.show();
        Edit(dialog, kCorridorSizeId).setText("wide");
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(
            m_messages.said,
            QStringList({"error|Error|Enter a number for \"Corridor size\". Use a decimal point, for example 0.25."}));
        QVERIFY(dialog.isVisible());
        QCOMPARE(Edit(dialog, kCorridorSizeId).text(), QString("wide"));
        QVERIFY(dialog.Size() == 4.0);
    }

    void CancelLeavesTheCorridorDialogWithoutACheck() {
        CCorridorDlg dialog(4.0, m_messages);
        dialog.show();
        Edit(dialog, kCorridorSizeId).setText("0");
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int{QDialog::Rejected});
        QVERIFY(dialog.Size() == 4.0);
        QVERIFY(m_messages.said.isEmpty());
    }

    // Critical values.

    void TheCriticalValuesDialogShowsTheSixLimits() {
        const ksres::CCriticalValuesDlg dialog({}, m_messages);
        QCOMPARE(dialog.windowTitle(), QString("Edit Critical Values"));
        QCOMPARE(Texts(dialog), QStringList({"5", "20", "0.1", "0.05", "2.58", "0.2"}));
    }

    void TheCriticalValuesDialogHasItsLabels() {
        const ksres::CCriticalValuesDlg dialog({}, m_messages);
        const QStringList expected = {"Average Residual < ",   "% of PeakReference", "Standard Deviation < ",
                                      "% of PeakReference",    "Less than",          "% outside 4 G corridor",
                                      "Correlation Factor < ", "T Statistic <",      "Moment Differences <"};
        QCOMPARE(LabelTexts(dialog), expected);
        QCOMPARE(BuddyId(dialog, "Average Residual < "), kAverageResidualId);
        QCOMPARE(BuddyId(dialog, "Standard Deviation < "), kStandardDeviationId);
        QCOMPARE(BuddyId(dialog, "Less than"), kCorridorShareId);
        QCOMPARE(BuddyId(dialog, "Correlation Factor < "), kCorrelationId);
        QCOMPARE(BuddyId(dialog, "T Statistic <"), kTStatisticId);
        QCOMPARE(BuddyId(dialog, "Moment Differences <"), kMomentId);
    }

    void OkReturnsAllSixLimits() {
        ksres::CCriticalValuesDlg dialog({}, m_messages);
        dialog.show();
        const QStringList typed = {"1.5", "0", "-3", "1e-3", "+5", "6.25"};
        for (int i = 0; i < 6; ++i) Edit(dialog, kCriticalValueIds[i]).setText(typed[i]);
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(dialog.result(), int{QDialog::Accepted});
        QVERIFY(dialog.Values().averageResidual == 1.5);
        QVERIFY(dialog.Values().standardDeviation == 0.0);
        QVERIFY(dialog.Values().corridor == -3.0);
        QVERIFY(dialog.Values().correlation == 0.001);
        QVERIFY(dialog.Values().tStatistic == 5.0);
        QVERIFY(dialog.Values().moment == 6.25);
        QVERIFY(m_messages.said.isEmpty());
    }

    void EveryCriterionHasItsField() {
        CCriticalValues values;
        double number = 0.0;
        QStringList expected;
        for (const CCriterion& criterion : Criteria()) {
            values.*criterion.limit = ++number;
            expected.append(QString::number(number));
        }
        const ksres::CCriticalValuesDlg dialog(values, m_messages);
        QStringList shown;
        for (const QLineEdit* const edit : dialog.findChildren<QLineEdit*>()) shown.append(edit->text());
        QCOMPARE(shown, expected);
    }

    void EveryFieldTellsTheMeaningOfItsCriterion() {
        const ksres::CCriticalValuesDlg dialog({}, m_messages);
        for (const CCriterion& criterion : Criteria()) {
            QCOMPARE(Edit(dialog, criterion.controlId).toolTip(), QString::fromUtf8(criterion.meaning));
        }
    }

    void TabGoesThroughTheFieldsAndThenToTheButtons() {
        ksres::CCriticalValuesDlg dialog({}, m_messages);
        dialog.show();
        for (const int id : kCriticalValueIds) {
            QVERIFY(dialog.focusWidget() == &Edit(dialog, id));
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        }
        const auto& buttons = *dialog.findChild<QDialogButtonBox*>();
        QVERIFY(buttons.isAncestorOf(dialog.focusWidget()));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QVERIFY(buttons.isAncestorOf(dialog.focusWidget()));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        QVERIFY(dialog.focusWidget() == &Edit(dialog, kAverageResidualId));
    }

    void CancelKeepsTheLimits() {
        ksres::CCriticalValuesDlg dialog({}, m_messages);
        dialog.show();
        Edit(dialog, kAverageResidualId).setText("99");
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QCOMPARE(dialog.result(), int{QDialog::Rejected});
        QVERIFY(dialog.Values().averageResidual == 5.0);
        QVERIFY(CriticalValues().averageResidual == 5.0);
    }

    void ALimitThatIsNoNumberKeepsTheDialogOpen_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("name");
        QTest::newRow("1") << kAverageResidualId << "Average Residual";
        QTest::newRow("2") << kStandardDeviationId << "Standard Deviation";
        QTest::newRow("3") << kCorridorShareId << QString::fromUtf8("Less than … % outside 4 G corridor");
        QTest::newRow("4") << kCorrelationId << "Correlation Factor";
        QTest::newRow("5") << kTStatisticId << "T Statistic";
        QTest::newRow("6") << kMomentId << "Moment Differences";
    }
    void ALimitThatIsNoNumberKeepsTheDialogOpen() {
        QFETCH(int, id);
        QFETCH(QString, name);
        ksres::CCriticalValuesDlg dialog({}, m_messages);
        dialog.show();
        Edit(dialog, kMomentId).setText("7");
        Edit(dialog, id).setText("inf");
        QTest::keyClick(&dialog, Qt::Key_Return);
        const QString message = "error|Error|Enter a number for \"%1\". Use a decimal point, for example 0.25.";
        QCOMPARE(m_messages.said, QStringList({message.arg(name)}));
        QVERIFY(dialog.isVisible());
        QVERIFY(dialog.focusWidget() == &Edit(dialog, id));
        QVERIFY(dialog.Values().moment == 0.2);
    }

    // Error list.

    void TheErrorListShowsEveryMessageOnALineOfItsOwn() {
        ksres::CErrorDialog dialog;
        dialog.AddMessage("first <b>message</b>");
        dialog.AddMessage("second\nmessage");
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QString("Error and Warning Messages"));
        const auto& edit = *Control<QPlainTextEdit>(dialog, kErrorTextId);
        QCOMPARE(edit.toPlainText(), QString("first <b>message</b>\nsecond\nmessage\n"));
        QVERIFY(edit.isReadOnly());
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        QVERIFY(!dialog.isVisible());
    }

    void MessagesOpenOneErrorListWithAllOfThem() {
        const CErrorListWatcher lists;
        ksres::CErrorDialog::ShowMessages({{"", "first"}, {"", "second"}}, nullptr);
        QCOMPARE(lists.texts, QStringList({"first\r\nsecond\r\n"}));
    }

    void EveryMessageEndsWithALineEnd() {
        ksres::CErrorDialog dialog;
        dialog.AddMessage("one");
        dialog.AddMessage("two");
        QCOMPARE(dialog.Text(), QString("one\r\ntwo\r\n"));
    }

    void MessagesAboutOneFileAreUnderItsPath() {
        ksres::CErrorDialog dialog;
        dialog.AddMessages({{"", "first"},
                            {"in/a.uds", "one"},
                            {"in/a.uds", "two"},
                            {"in/b.uds", "three"},
                            {"", "in/c.uds: four"},
                            {"", "last"}});
        const QString a = QDir::toNativeSeparators("in/a.uds"), b = QDir::toNativeSeparators("in/b.uds");
        QCOMPARE(dialog.Text(),
                 "first\r\n\r\n" + a + "\r\none\r\ntwo\r\n\r\n" + b + "\r\nthree\r\n\r\nin/c.uds: four\r\nlast\r\n");
    }

    void WithoutMessagesNoErrorListOpens() {
        const CErrorListWatcher lists;
        ksres::CErrorDialog::ShowMessages({}, nullptr);
        QCOMPARE(lists.texts, QStringList());
    }

    void AnErrorListWithoutTextSaysSo() {
        ksres::CErrorDialog dialog;
        dialog.show();
        QCOMPARE(Control<QPlainTextEdit>(dialog, kErrorTextId)->toPlainText(), QString("No Error Messages:"));
        QCOMPARE(dialog.Text(), QString());
    }

    void TheErrorListClosesWithEscape() {
        ksres::CErrorDialog dialog;
        dialog.AddMessage("one");
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
    }

    // About box.

    void TheAboutBoxNamesProgramAndVersion() {
        const CKsAboutDlg dialog({"Quorvel", "4.0.0.1"});
        QCOMPARE(dialog.windowTitle(), QString("About: Quorvel"));
        const QStringList texts = LabelTexts(dialog);
        QVERIFY(texts.contains("Quorvel"));
        QVERIFY(texts.contains("Quorvel, Version 1.0"));
        QVERIFY(texts.contains("Version: 4.0.0.1"));
        QVERIFY(texts.contains(AboutDescription()));
    }

    void TheAboutBoxSaysWhatIsMissing() {
        const CKsAboutDlg dialog({"", ""});
        QCOMPARE(dialog.windowTitle(), QString("About: No Application Title"));
        const QStringList texts = LabelTexts(dialog);
        QVERIFY(texts.contains("No Application Title"));
        QVERIFY(texts.contains("Version: No Version"));
    }

    void TheBuildKnowsItsTitleAndVersion() {
        QCOMPARE(AboutTextsOfBuild().title, QString("Quorvel"));
        QVERIFY(QRegularExpression("^\\d+\\.\\d+\\.\\d+$").match(AboutTextsOfBuild().version).hasMatch());
    }

    /// The fixed line names major and minor version, the other one all three numbers.
    void TheAboutBoxShowsOneVersion() {
        const CKsAboutDlg dialog(AboutTextsOfBuild());
        const QString fixed = dialog.findChild<QLabel*>("staticLabel")->text();
        const QString full = dialog.findChild<QLabel*>("versionLabel")->text();
        QCOMPARE(fixed, QString("Quorvel, Version 1.0"));
        QVERIFY2(full.startsWith("Version: " + fixed.section(' ', -1) + '.'), qPrintable(full));
    }

    void TheDescriptionIsOneSentenceWithAllPages() {
        QVERIFY(AboutDescription().contains(
            " 'Summary', 'Input Data', 'Standard Deviation', 'Corridor', '90 Percentile Corridor', 'Residuals', "
            "'Acceleration', 'Velocity', 'Displacement', 'Cummulative Density', 'Cross Correlation', "));
        QVERIFY(AboutDescription().endsWith("', ..."));
        QCOMPARE(AboutDescription().count('\''), 2 * static_cast<qsizetype>(PageTable().size()));
        QCOMPARE(AboutDescription().count('.'), qsizetype{3});
    }

    void TheAboutBoxShowsTheIcon() {
        const CKsAboutDlg dialog(AboutTextsOfBuild());
        const QPixmap icon = dialog.findChild<QLabel*>("iconLabel")->pixmap(Qt::ReturnByValue);
        QCOMPARE(icon.deviceIndependentSize().toSize(), QSize(64, 64));
        QVERIFY(icon.toImage().pixelColor(32, 4).alpha() == 255);
    }

    // All of them.

    void NothingIsCutOffAtTheSmallestSize() {
        CCorridorDlg corridor(4.0, m_messages);
        ksres::CCriticalValuesDlg limits({0.30000001192092896, -0.30000001192092896, 3, 4, 5, 6}, m_messages);
        ksres::CErrorDialog errors;
        CKsAboutDlg about(AboutTextsOfBuild());
        for (QDialog* const dialog : {static_cast<QDialog*>(&corridor), static_cast<QDialog*>(&limits),
                                      static_cast<QDialog*>(&errors), static_cast<QDialog*>(&about)}) {
            dialog->show();
            dialog->resize(dialog->minimumSizeHint());
            QCoreApplication::processEvents();
            QVERIFY2(CutOffTexts(*dialog).isEmpty(), qPrintable(CutOffTexts(*dialog).join(";")));
        }
        for (const int id : {kAverageResidualId, kStandardDeviationId}) {
            const QLineEdit& edit = Edit(limits, id);
            QVERIFY(edit.width() > edit.fontMetrics().horizontalAdvance(edit.text()));
        }
    }

private:
    static QLineEdit& Edit(const QWidget& dialog, int id) { return *Control<QLineEdit>(dialog, id); }

    static QStringList Texts(const QWidget& dialog) {
        QStringList texts;
        for (const int id : kCriticalValueIds) texts.append(Edit(dialog, id).text());
        return texts;
    }

    static int BuddyId(const QWidget& dialog, const QString& text) {
        const auto labels = dialog.findChildren<QLabel*>();
        for (const QLabel* const label : labels) {
            if (label->text() == text && label->buddy()) return label->buddy()->property("controlId").toInt();
        }
        return 0;
    }

    CRecordedMessages m_messages;
};

QTEST_MAIN(COptionDialogsTest)
#include "option_dialogs_test.moc"
