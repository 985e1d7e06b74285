// What the main window prints.

#include "app/commands.h"
#include "app/specification_host.h"
#include "app/testing/window_test.h"
#include "tests/support/failing_disk.h"
#include "tests/support/failing_flush.h"
#include "tests/support/temp_folder.h"
#include "viewer/testing/pdf_text.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace {

/// The contents of all compressed streams of a PDF file.
QByteArray PdfStreams(const QByteArray& pdf) {
    QByteArray contents;
    qsizetype place = 0;
    while ((place = pdf.indexOf("stream\n", place)) >= 0) {
        place += 7;
        if (pdf.mid(place, 1) != "x") continue;  // not compressed
        // qUncompress expects the length of the result first; it only sizes the buffer, so a guess is fine.
        contents += qUncompress(QByteArray("\0\1\0\0", 4) + pdf.mid(place, pdf.indexOf("endstream", place) - place));
        place = pdf.indexOf("endstream", place) + 9;
    }
    return contents;
}

}  // namespace

class CWindowPrintingTest : public CWindowTest {
    Q_OBJECT

private slots:
    void init() {
        OpenWindow();
        m_window->CompareSled();
    }
    void cleanup() { CloseWindow(); }

    void ThePrintedChartIsMadeOfVectorsAndText() {
        QVERIFY2(PdfReaderFault().isEmpty(), qPrintable(PdfReaderFault()));
        m_window->ChoosePage("Velocity");
        m_window->printers.path = m_window->Path("plot.pdf");
        Trigger(CCommandId::Print);
        QCOMPARE(m_window->StatusText(), QString("The plot was printed."));
        const std::vector<CPdfPage> pages = ReadPdf(m_window->printers.path);
        QCOMPARE(pages.size(), std::size_t{1});
        QVERIFY(pages[0].size.width() > pages[0].size.height());
        // The letters of the rotated title are on separate lines, so blanks and line ends are ignored.
        const QString text = pages[0].lines.join("\n");
        for (const QString& part : {QString("Time (seconds)"), QString("Reference"), QString("s01002aa0.001"),
                                    QString("s01003aa0.001"), QString("s01004aa0.001")}) {
            QVERIFY2(text.contains(part), qPrintable(part));
        }
        QStringList words;
        for (const CPdfWord& word : pages[0].words) {
            words.append(word.text);
            QVERIFY(QRectF(QPointF(0, 0), pages[0].size).contains(word.box));
        }
        QVERIFY2(words.contains("Velocity") && words.contains("(kmph)"), qPrintable(words.join(' ')));
        const QByteArray pdf = Bytes(m_window->printers.path);
        QVERIFY(!pdf.contains("/Subtype /Image") && !pdf.contains("/Subtype/Image"));
        QVERIFY(PdfStreams(pdf).count(" l\n") > 400);  // four curves of some hundred visible points each
    }

    void TheDefaultPrinterPrintsTheChartWithoutAsking() {
        m_window->ChoosePage("Velocity");
        m_window->printers.path = m_window->Path("plot.pdf");
        Trigger(CCommandId::PrintDirect);
        QCOMPARE(m_window->printers.pageCounts, QList<int>());  // nobody was asked
        QCOMPARE(m_window->messages.said, QStringList());
        QCOMPARE(m_window->StatusText(), QString("The plot was printed."));
        const std::vector<CPdfPage> pages = ReadPdf(m_window->printers.path);
        QCOMPARE(pages.size(), std::size_t{1});
        QVERIFY(pages[0].size.width() > pages[0].size.height());
        QVERIFY(pages[0].lines.join("\n").contains("s01002aa0.001"));
    }

    void WithoutADefaultPrinterTheWindowSaysSo() {
        m_window->ChoosePage("Velocity");
        Trigger(CCommandId::PrintDirect);
        QCOMPARE(m_window->messages.said,
                 QStringList("error|Error|There is no default printer. Use File > Print... to choose a printer."));
        QCOMPARE(m_window->StatusText(), QString("Ready"));
    }

    void ACanceledPrinterPrintsNothing() {
        m_window->ChoosePage("Velocity");
        const QString status = m_window->StatusText();
        Trigger(CCommandId::Print);
        QCOMPARE(m_window->StatusText(), status);
        QVERIFY(m_window->messages.said.isEmpty());
    }

    void ThePlotStaysInsideTheMarginsThatTheUserChose() {
        m_window->ChoosePage("Velocity");
        m_window->printers.path = m_window->Path("plot.pdf");
        m_window->printers.layout = QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                                QMarginsF(100.0, 200.0, 50.0, 300.0), QPageLayout::Point);
        Trigger(CCommandId::Print);
        QCOMPARE(m_window->messages.said, QStringList());
        QCOMPARE(m_window->printers.pageCounts, QList<int>{1});
        const std::vector<CPdfPage> pages = ReadPdf(m_window->printers.path);
        QCOMPARE(pages.size(), std::size_t{1});
        QVERIFY(pages[0].size.width() < pages[0].size.height());
        const QRectF inside = QRectF(QPointF(0, 0), pages[0].size).adjusted(100.0, 200.0, -50.0, -300.0);
        QRectF used;
        for (const CPdfWord& word : pages[0].words) {
            QVERIFY2(inside.contains(word.box), qPrintable(word.text));
            used |= word.box;
        }
        // And it fills them: there are titles and numbers near every edge.
        QVERIFY(used.width() > 0.85 * inside.width() && used.height() > 0.85 * inside.height());
    }

    void APlotThatCannotBePrintedIsReported() {
        CheckNotPrinted(m_window->Path("no such folder/plot.pdf"));
        CheckNotPrinted(m_window->folder.path());
        CheckNotPrinted("/dev/full");
    }

    /// The toolkit empties the existing file first and reports no write errors.
    void APrintThatFailsLeavesTheOldFileUnchanged() {
        const CTempFolder folder;
        const std::string old = folder.Write("plot.pdf", "an old plot");
        const QString path = QString::fromStdString(old);
        {
            const CFileSizeLimit limit(1000);
            CheckNotPrinted(path);
        }
        QCOMPARE(ReadAll(old), std::string("an old plot"));
        {
            const COrdinaryUser user;  // without write permission there
            CheckNotPrinted(path);
        }
        QCOMPARE(ReadAll(old), std::string("an old plot"));
        QCOMPARE(folder.Listing(), std::string("plot.pdf\n"));
    }

    void APrintThatDamagesTheOldFileSaysSo() {
        const CTempFolder folder;
        const std::string old = folder.Write("plot.pdf", "an old plot");
        std::filesystem::create_hard_link(old, folder.Path("other name"));
        m_window->ChoosePage("Velocity");
        m_window->printers.path = QString::fromStdString(old);
        const CFailingFlush failing(kUntilInPlace);
        Trigger(CCommandId::Print);
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|" + QString::fromStdString(old) +
                                                       " could not be written completely, and "
                                                       "the existing file with this name is damaged."}));
    }

    void TheReportOfAFileOffersAChoiceOfItsPages() {
        CSpecificationHost host({m_window->settings, m_window->picker, m_window->messages, m_window->printers});
        QPrinter printer;
        QVERIFY(!host.AskPrinter(nullptr, printer, 7));
        QCOMPARE(m_window->printers.pageCounts, QList<int>{7});
    }

private:
    void CheckNotPrinted(const QString& path) {
        m_window->ChoosePage("Velocity");
        const QString status = m_window->StatusText();
        m_window->messages.said.clear();
        m_window->printers.path = path;
        Trigger(CCommandId::Print);
        QCOMPARE(m_window->messages.said, QStringList("error|Error|The plot could not be printed to " + path + "."));
        QCOMPARE(m_window->StatusText(), status);
    }

    static QByteArray Bytes(const QString& path) { return QByteArray::fromStdString(ReadAll(path.toStdString())); }
};

QTEST_MAIN(CWindowPrintingTest)
#include "window_printing_test.moc"
