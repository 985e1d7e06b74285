#include "app/dialogs/customize_dialog.h"

#include "app/resources.h"
#include "app/testing/widget_probe.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

class CCustomizeDialogTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_select.setObjectName("selectFiles");
        m_select.setText("Select &Files...");
        m_select.setIcon(CommandIcon("select-files"));
        m_select.setStatusTip("Select the files to compare");
        m_separator.setObjectName("separator");
        m_separator.setSeparator(true);
        m_copy.setObjectName("copy");
        m_copy.setText("&Copy\tCtrl+C");
        m_nameless.setText("Nameless");
        m_about.setObjectName("about");
        m_about.setText("&About Quorvel...");
    }

    void ATextIsShownWithoutMnemonicAndShortcut_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("plain");
        QTest::newRow("mnemonic") << "Select &Files..."
                                  << "Select Files...";
        QTest::newRow("shortcut") << "&Copy\tCtrl+C"
                                  << "Copy";
        QTest::newRow("ampersand") << "&Save && Close"
                                   << "Save & Close";
        QTest::newRow("ampersand at the end") << "Save&"
                                              << "Save";
        QTest::newRow("plain") << "UDS Speification"
                               << "UDS Speification";
        QTest::newRow("empty") << ""
                               << "";
    }
    void ATextIsShownWithoutMnemonicAndShortcut() {
        QFETCH(QString, text);
        QFETCH(QString, plain);
        QCOMPARE(PlainActionText(text), plain);
    }

    void EveryActionIsAnEntryCheckedUnlessHidden() {
        const CCustomizeDialog dialog(Actions(), {"copy", "unknown"});
        QCOMPARE(dialog.windowTitle(), QString("Customize"));
        QCOMPARE(Entries(dialog), QStringList({"+Select Files...", "-Copy", "+About Quorvel..."}));
        QVERIFY(!List(dialog).item(0)->icon().isNull());
        QCOMPARE(List(dialog).item(0)->toolTip(), QString("Select the files to compare"));
    }

    void OkGivesTheIdsOfTheUncheckedEntries() {
        CCustomizeDialog dialog(Actions(), {"copy", "unknown"});
        List(dialog).item(0)->setCheckState(Qt::Unchecked);
        List(dialog).item(1)->setCheckState(Qt::Checked);
        List(dialog).item(2)->setCheckState(Qt::Unchecked);
        Press(dialog, "OK");
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
        QCOMPARE(dialog.HiddenIds(), QStringList({"selectFiles", "about"}));
    }

    void CancelKeepsTheIdsGiven() {
        CCustomizeDialog dialog(Actions(), {"copy"});
        List(dialog).item(0)->setCheckState(Qt::Unchecked);
        Press(dialog, "Cancel");
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
        QCOMPARE(dialog.HiddenIds(), QStringList({"copy"}));
    }

    void ShowAllChecksEveryEntryAndStaysOpen() {
        CCustomizeDialog dialog(Actions(), {"copy", "about"});
        dialog.show();
        Press(dialog, "Show All");
        QVERIFY(dialog.isVisible());
        QCOMPARE(Entries(dialog), QStringList({"+Select Files...", "+Copy", "+About Quorvel..."}));
        QCOMPARE(dialog.HiddenIds(), QStringList({"copy", "about"}));  // until OK
        Press(dialog, "OK");
        QCOMPARE(dialog.HiddenIds(), QStringList());
    }

    void TheKeyboardIsEnough() {
        CCustomizeDialog dialog(Actions(), {});
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(QApplication::focusWidget(), &List(dialog));
        QTest::keyClick(&List(dialog), Qt::Key_Down);
        QTest::keyClick(&List(dialog), Qt::Key_Space);
        QCOMPARE(Entries(dialog), QStringList({"+Select Files...", "-Copy", "+About Quorvel..."}));
        QTest::keyClick(&List(dialog), Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.HiddenIds(), QStringList({"copy"}));
    }

    void EscapeCancels() {
        CCustomizeDialog dialog(Actions(), {"copy"});
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.HiddenIds(), QStringList({"copy"}));
    }

    void WithoutActionsNothingIsHidden() {
        CCustomizeDialog dialog({}, {"copy"});
        QCOMPARE(Entries(dialog), QStringList());
        Press(dialog, "Show All");
        Press(dialog, "OK");
        QCOMPARE(dialog.HiddenIds(), QStringList());
    }

    void TheListIsNamedAndItsLabelLeadsToIt() {
        const CCustomizeDialog dialog(Actions(), {});
        QCOMPARE(List(dialog).accessibleName(), QString("Buttons on the toolbar"));
        QCOMPARE(dialog.findChild<QLabel*>("buttonLabel")->buddy(), &List(dialog));
    }

    void NoTextIsCutOff() {
        CCustomizeDialog dialog(Actions(), {});
        dialog.show();
        QCOMPARE(CutOffTexts(dialog), QStringList());
    }

private:
    QList<QAction*> Actions() { return {&m_select, &m_separator, &m_copy, &m_nameless, &m_about}; }

    static QListWidget& List(const CCustomizeDialog& dialog) { return *dialog.findChild<QListWidget*>("buttonList"); }

    /// The entries' texts, "+" before the checked ones, "-" before the others.
    static QStringList Entries(const CCustomizeDialog& dialog) {
        QStringList entries;
        for (int row = 0; row < List(dialog).count(); ++row) {
            const QListWidgetItem& entry = *List(dialog).item(row);
            entries.append((entry.checkState() == Qt::Checked ? '+' : '-') + entry.text());
        }
        return entries;
    }

    /// Clicks the button with this text; fails the test when there is none.
    static void Press(CCustomizeDialog& dialog, const QString& text) {
        const auto buttons = dialog.findChildren<QPushButton*>();
        for (QPushButton* const button : buttons) {
            if (PlainActionText(button->text()) == text) return button->click();
        }
        QFAIL(qPrintable("no button " + text));
    }

    QAction m_select, m_separator, m_copy, m_nameless, m_about;
};

QTEST_MAIN(CCustomizeDialogTest)
#include "customize_dialog_test.moc"
