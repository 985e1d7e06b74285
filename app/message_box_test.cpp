#include "app/message_box.h"

#include "app/testing/dialog_driver.h"
#include "app/testing/recorded_messages.h"

#include <QMessageBox>
#include <QTest>

class CMessageBoxTest : public QObject {
    Q_OBJECT

private slots:
    void AMessageBoxShowsIconCaptionAndText_data() {
        QTest::addColumn<CMessageIcon>("icon");
        QTest::addColumn<QMessageBox::Icon>("shown");
        QTest::newRow("information") << CMessageIcon::Information << QMessageBox::Information;
        QTest::newRow("warning") << CMessageIcon::Warning << QMessageBox::Warning;
        QTest::newRow("error") << CMessageIcon::Error << QMessageBox::Critical;
    }
    void AMessageBoxShowsIconCaptionAndText() {
        QFETCH(CMessageIcon, icon);
        QFETCH(QMessageBox::Icon, shown);
        bool hasOpened = false;
        CDialogDriver dialogs;
        dialogs.Expect([&](QWidget& window) {
            const auto* const box = qobject_cast<QMessageBox*>(&window);
            QVERIFY(box);
            QCOMPARE(box->icon(), shown);
            QCOMPARE(box->windowTitle(), QString("Caption"));
            QCOMPARE(box->text(), QString("No <b>markup</b> & such"));
            QCOMPARE(box->textFormat(), Qt::PlainText);
            hasOpened = true;
            QTest::keyClick(&window, Qt::Key_Return);
        });
        CMessageBoxes().Show(nullptr, icon, "Caption", "No <b>markup</b> & such");
        QVERIFY(hasOpened);
        QCOMPARE(dialogs.TakeFaults(), QStringList());
    }

    void AnErrorHasTheCaptionOfAllErrors() {
        CRecordedMessages messages;
        messages.ShowError(nullptr, "text");
        QCOMPARE(messages.said, QStringList({"error|Error|text"}));
    }
};

QTEST_MAIN(CMessageBoxTest)
#include "message_box_test.moc"
