#include "widgets/pdf_file.h"

#include "files/replacing_file.h"
#include "tests/support/failing_disk.h"
#include "tests/support/temp_folder.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrinter>
#include <QRegularExpression>
#include <QTest>

#include <cmath>
#include <string>

namespace {

const QPageLayout kSideways(QPageSize(QPageSize::Letter), QPageLayout::Landscape, QMarginsF(36.0, 72.0, 18.0, 9.0),
                            QPageLayout::Point);

bool PaintTwoPages(QPagedPaintDevice& device) {
    QPainter painter(&device);
    painter.fillRect(0, 0, 100, 100, Qt::black);
    if (!device.newPage()) return false;
    painter.fillRect(0, 0, 100, 100, Qt::black);
    return painter.end();
}

}  // namespace

class CPdfFileTest : public QObject {
    Q_OBJECT

private slots:
    void TheFileHasThePaperTheTitleAndThePages() {
        const std::string path = m_folder.Path("two.pdf");
        QVERIFY(WritePdfFile(path, {kSideways, "Velocity"}, PaintTwoPages) == ks::CWriteResult::Written);
        const QByteArray pdf = QByteArray::fromStdString(ReadAll(path));
        QVERIFY(pdf.startsWith("%PDF-") && pdf.trimmed().endsWith("%%EOF"));
        QCOMPARE(pdf.count("/Type /Page\n"), qsizetype{2});
        static const QRegularExpression paper(R"(/MediaBox \[0 0 792(\.0+)? 612(\.0+)?\])");
        QVERIFY(paper.match(QString::fromLatin1(pdf)).hasMatch());
        QByteArray title("\xFE\xFF");  // UTF-16, big-endian
        for (const char letter : QByteArray("Velocity")) title.append('\0').append(letter);
        QVERIFY(pdf.contains("/Title (" + title + ")"));
    }

    void ThePagesLieInsideTheMargins() {
        QSizeF inches;
        const PaintPages measure = [&inches](QPagedPaintDevice& device) {
            inches = QSizeF(device.width(), device.height()) / device.logicalDpiX();
            return PaintTwoPages(device);
        };
        QVERIFY(WritePdfFile(m_folder.Path("a.pdf"), {kSideways, {}}, measure) == ks::CWriteResult::Written);
        const QSizeF expected((792.0 - 36.0 - 18.0) / 72.0, (612.0 - 72.0 - 9.0) / 72.0);
        QVERIFY(std::abs(inches.width() - expected.width()) <= 0.002);
        QVERIFY(std::abs(inches.height() - expected.height()) <= 0.002);
    }

    void AFaultIsReportedAndLeavesTheOldFileUnchanged() {
        const std::string path = m_folder.Write("old.pdf", "old");
        const PaintPages fail = [](QPagedPaintDevice&) { return false; };
        QVERIFY(WritePdfFile(path, {kSideways, {}}, fail) == ks::CWriteResult::NotCompleted);
        {
            const CFileSizeLimit limit(500);
            QVERIFY(WritePdfFile(path, {kSideways, {}}, PaintTwoPages) == ks::CWriteResult::NotCompleted);
        }
        {
            const COrdinaryUser user;  // without write permission there
            QVERIFY(WritePdfFile(path, {kSideways, {}}, PaintTwoPages) == ks::CWriteResult::NotOpened);
        }
        QCOMPARE(ReadAll(path), std::string("old"));
    }

    void AFileThatCannotBeOpenedIsNotPainted() {
        bool isPainted = false;
        const PaintPages paint = [&isPainted](QPagedPaintDevice&) { return isPainted = true; };
        const std::string path = m_folder.Path("nowhere/a.pdf");
        QVERIFY(WritePdfFile(path, {kSideways, {}}, paint) == ks::CWriteResult::NotOpened);
        QVERIFY(!isPainted);
    }

    void AFullDeviceIsReported() {
        QVERIFY(WritePdfFile("/dev/full", {kSideways, {}}, PaintTwoPages) == ks::CWriteResult::NotCompleted);
    }

    void OnlyAPrinterWithTheNameOfAPdfFileMakesOne() {
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        QVERIFY(!MakesPdfFile(printer));
        printer.setOutputFileName("/tmp/plot");
        QVERIFY(MakesPdfFile(printer));
    }

private:
    CTempFolder m_folder;
};

QTEST_MAIN(CPdfFileTest)
#include "pdf_file_test.moc"
