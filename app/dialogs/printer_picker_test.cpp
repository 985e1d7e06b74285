#include "app/dialogs/printer_picker.h"

#include "app/testing/dialog_driver.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

class CPrinterPickerTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(m_dialogs.TakeFaults(), QStringList()); }

    void OnlySeveralPagesHaveARangeToChoose_data() {
        QTest::addColumn<bool>("several");
        QTest::newRow("one page") << false;
        QTest::newRow("several pages") << true;
    }
    void OnlySeveralPagesHaveARangeToChoose() {
        QFETCH(bool, several);
        QPrinter printer(QPrinter::HighResolution);
        const auto dialog = CPrinterDialogs::MakeDialog(nullptr, printer, several ? 2 : 1);
        QCOMPARE(dialog->testOption(QAbstractPrintDialog::PrintPageRange), several);
        QCOMPARE(dialog->testOption(QAbstractPrintDialog::PrintCollateCopies), several);
        dialog->show();
        const auto* const range = dialog->findChild<QRadioButton*>("printRange");
        QVERIFY(range);
        QCOMPARE(range->isEnabled(), several);
    }

    void TheDefaultPrinterIsThatOfTheMachine() {
        QPrinter printer(QPrinter::HighResolution);
        const QPrinterInfo expected = QPrinterInfo::defaultPrinter();
        QCOMPARE(CPrinterDialogs().TakeDefault(printer), !expected.isNull());
        if (!expected.isNull()) QCOMPARE(printer.printerName(), expected.printerName());
    }

    void TheRangeEndsWithTheLastPage() {
        QPrinter printer(QPrinter::HighResolution);
        const auto dialog = CPrinterDialogs::MakeDialog(nullptr, printer, 3);
        QCOMPARE(dialog->minPage(), 1);
        QCOMPARE(dialog->maxPage(), 3);
        dialog->show();
        for (const char* name : {"from", "to"}) {
            auto* const page = dialog->findChild<QSpinBox*>(name);
            QVERIFY(page);
            page->setValue(9);
            QCOMPARE(page->value(), 3);
            page->setValue(0);
            QCOMPARE(page->value(), 1);
        }
    }

    void MarginsAndOrientationOfTheDialogReachThePrinter() {
        const QTemporaryDir folder;
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);  // even where there are printers
        printer.setPageOrientation(QPageLayout::Landscape);
        m_dialogs.Expect([&](QWidget& dialog) {
            m_dialogs.Expect([](QWidget& properties) {
                properties.findChild<QRadioButton*>("portrait")->click();
                properties.findChild<QDoubleSpinBox*>("leftMargin")->setValue(100.0);
                properties.findChild<QDoubleSpinBox*>("topMargin")->setValue(80.0);
                properties.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
            });
            dialog.findChild<QPushButton*>("properties")->click();
            dialog.findChild<QLineEdit*>("filename")->setText(folder.filePath("plot.pdf"));
            dialog.findChild<QDialogButtonBox*>()->buttons().front()->click();
        });
        QVERIFY(CPrinterDialogs().Pick(nullptr, printer, 1));
        QCOMPARE(printer.outputFileName(), folder.filePath("plot.pdf"));
        QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Portrait);
        const QMarginsF margins = printer.pageLayout().margins(QPageLayout::Millimeter);
        QCOMPARE(margins.left(), 100.0);
        QCOMPARE(margins.top(), 80.0);
    }

    void ACanceledDialogIsReported() {
        QPrinter printer(QPrinter::HighResolution);
        m_dialogs.Expect([](QWidget& dialog) { dialog.close(); });
        QVERIFY(!CPrinterDialogs().Pick(nullptr, printer, 3));
    }

private:
    CDialogDriver m_dialogs;
};

QTEST_MAIN(CPrinterPickerTest)
#include "printer_picker_test.moc"
