#include "viewer/report.h"

#include "files/replacing_file.h"
#include "signal/nsignal.h"
#include "tests/support/temp_folder.h"
#include "viewer/printer.h"
#include "viewer/report_pdf.h"
#include "viewer/testing/pdf_text.h"
#include "viewer/testing/two_component_file.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QRect>
#include <QRectF>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;

constexpr std::chrono::year_month_day kDay{year(2024), month(2), day(9)};
constexpr double kSideMargin = 0.6 * 72.0;
constexpr double kEdge = 0.25 * 72.0;

ks::CNSignal Loaded(const CTempFolder& folder, const std::string& bytes) {
    ks::CNSignal record;
    record.LoadUDS(folder.Write("record.uds", bytes));
    return record;
}

/// A cell of a laid-out line is what is between gaps.
bool HasCell(const std::vector<CPdfPage>& pages, const QString& cell) {
    const QRegularExpression pattern("(^| {2,})" + QRegularExpression::escape(cell) + "( {2,}|$)");
    return std::any_of(pages.begin(), pages.end(), [&](const CPdfPage& page) {
        return std::any_of(page.lines.begin(), page.lines.end(),
                           [&](const QString& line) { return line.contains(pattern); });
    });
}

QStringList MissingCells(const std::vector<CPdfPage>& pages, const QStringList& cells) {
    QStringList missing;
    for (const QString& cell : cells)
        if (!HasCell(pages, cell)) missing.append(cell);
    return missing;
}

/// Counted in the words of all pages, joined without blanks.
qsizetype LettersOf(const std::vector<CPdfPage>& pages, QChar letter) {
    qsizetype count = 0;
    for (const CPdfPage& page : pages)
        for (const CPdfWord& word : page.words) count += word.text.count(letter);
    return count;
}

QStringList WordsOutsideMargins(const std::vector<CPdfPage>& pages) {
    QStringList outside;
    for (const CPdfPage& page : pages) {
        const QRectF paper(QPointF(), page.size);
        const QRectF inside = paper.adjusted(kSideMargin, kEdge, -kSideMargin, -kEdge).adjusted(-0.5, -0.5, 0.5, 0.5);
        for (const CPdfWord& word : page.words) {
            if (!inside.contains(word.box))
                outside.append(QString("%1 at %2 %3").arg(word.text).arg(word.box.left()).arg(word.box.top()));
        }
    }
    return outside;
}

/// Words that overlap. The boxes of letters extend above and below the ink, so they may touch.
QStringList OverlappingWords(const std::vector<CPdfPage>& pages) {
    QStringList overlapping;
    for (const CPdfPage& page : pages) {
        for (std::size_t i = 0; i < page.words.size(); ++i) {
            for (std::size_t j = i + 1; j < page.words.size(); ++j) {
                const QRectF common = page.words[i].box.intersected(page.words[j].box);
                if (common.width() > 1.0 && common.height() > 2.0)
                    overlapping.append(page.words[i].text + '/' + page.words[j].text);
            }
        }
    }
    return overlapping;
}

const CPdfWord* FindWord(const CPdfPage& page, const QString& text) {
    const auto found =
        std::find_if(page.words.begin(), page.words.end(), [&](const CPdfWord& word) { return word.text == text; });
    return found == page.words.end() ? nullptr : &*found;
}

bool Near(double value, double expected, double tolerance) {
    return std::abs(value - expected) <= tolerance;
}

// The plot as a picture.

constexpr int kDotsPerInch = 150;

QImage Picture(const CReport& report, int page, QSizeF paper) {
    QImage image((paper * kDotsPerInch).toSize(), QImage::Format_Grayscale8);
    image.setDotsPerMeterX(qRound(kDotsPerInch / 0.0254));
    image.setDotsPerMeterY(qRound(kDotsPerInch / 0.0254));
    image.fill(Qt::white);
    QPainter painter(&image);
    report.Paint(painter, page);
    painter.end();
    return image;
}

bool IsInk(const QImage& image, int x, int y) {
    return qGray(image.pixel(x, y)) < 100;  // the grid is lighter
}

/// The frame around the curves: the lowest two long lines across are its edges.
QRect Frame(const QImage& image) {
    const int longLine = image.width() / 2;
    std::vector<QRect> lines;
    for (int y = 0; y < image.height(); ++y) {
        int start = 0;
        for (int x = 0; x <= image.width(); ++x) {
            if (x < image.width() && IsInk(image, x, y)) continue;
            if (x - start > longLine) lines.emplace_back(start, y, x - start, 1);
            start = x + 1;
        }
    }
    if (lines.size() < 2) return {};
    const QRect bottom = lines.back();
    for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
        if (bottom.top() - line->top() > kDotsPerInch && std::abs(line->left() - bottom.left()) <= 2)
            return {QPoint(bottom.left(), line->top()), QPoint(bottom.right(), bottom.bottom())};
    }
    return {};
}

/// Rows with ink in a column, the frame and its ticks left out.
std::vector<int> InkedRows(const QImage& image, const QRect& frame, int x) {
    constexpr int kTicks = 14;
    std::vector<int> rows;
    for (int y = frame.top() + kTicks; y < frame.bottom() - kTicks; ++y)
        if (IsInk(image, x, y)) rows.push_back(y);
    return rows;
}

}  // namespace

class CReportTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY2(PdfReaderFault().isEmpty(), qPrintable(PdfReaderFault()));
        m_record = Loaded(m_folder, TwoComponentFile());
        m_wideRecord = Loaded(m_folder, WideTextFile());
    }

    // What is on the pages, for every mode and paper.

    void TheReportHoldsEveryLabelAndValue_data() { AddKinds(); }
    void TheReportHoldsEveryLabelAndValue() {
        const std::vector<CPdfPage> pages = Written(m_record);
        QVERIFY(!pages.empty());
        for (const CExpectedGroup& group : ExpectedGroups()) {
            QCOMPARE(MissingCells(pages, {group.title}).join(", "), QString());
            QCOMPARE(MissingCells(pages, group.lines).join(", "), QString());
        }
    }

    void OnlyTheFullReportHoldsTheFurtherFields_data() { AddKinds(); }
    void OnlyTheFullReportHoldsTheFurtherFields() {
        const QStringList missing = MissingCells(Written(m_record), ExpectedFurtherLines());
        QCOMPARE(missing.join(", "), (IsFull() ? QStringList() : ExpectedFurtherLines()).join(", "));
    }

    void TheSpecificationIsOnePageAndTheFullReportTwo_data() { AddKinds(); }
    void TheSpecificationIsOnePageAndTheFullReportTwo() {
        QCOMPARE(Written(m_record).size(), IsFull() ? std::size_t{2} : std::size_t{1});
    }

    void ThePagesHaveTheSizeOfThePaper_data() { AddKinds(); }
    void ThePagesHaveTheSizeOfThePaper() {
        const QSizeF size = IsLetter() ? QSizeF(612, 792) : QSizeF(595, 842);
        for (const CPdfPage& page : Written(m_record)) {
            QVERIFY(Near(page.size.width(), size.width(), 1.0));
            QVERIFY(Near(page.size.height(), size.height(), 1.0));
        }
    }

    void EveryPageHasHeaderTitleAndFooter_data() { AddKinds(); }
    void EveryPageHasHeaderTitleAndFooter() {
        const std::vector<CPdfPage> pages = Written(m_wideRecord);
        QVERIFY(pages.size() >= 2);
        for (std::size_t page = 0; page < pages.size(); ++page) {
            const std::vector<CPdfPage> alone{pages[page]};
            QVERIFY(HasCell(alone, IsFull() ? "Full UDS File Report" : "UDS File Specification Report"));
            QVERIFY(HasCell(alone, "Test Number: 1234"));
            QVERIFY(HasCell(alone, "Curve Number: 17"));
            QVERIFY(HasCell(alone, QString("Page: %1").arg(page + 1)));
            QVERIFY(HasCell(alone, "Date: 2/9/2024"));
        }
    }

    void TextStaysInsideTheMargins_data() { AddKinds(); }
    void TextStaysInsideTheMargins() {
        QCOMPARE(WordsOutsideMargins(Written(m_record)).join(", "), QString());
        QCOMPARE(WordsOutsideMargins(Written(m_wideRecord)).join(", "), QString());
    }

    void NoTextOverlapsAnother_data() { AddKinds(); }
    void NoTextOverlapsAnother() {
        QCOMPARE(OverlappingWords(Written(m_record)).join(", "), QString());
        QCOMPARE(OverlappingWords(Written(m_wideRecord)).join(", "), QString());
    }

    void NoLetterOfAWideTextIsLost() {
        // Labeled texts of the file, in letters: test 15 + 10 + 3 + 25 + 70, vehicles 2 (15 + 25 + 4 + 25), occupants
        // 2 (6 + 1 + 2 + 20 + 20), AIS 1, curve 12 + 30 + 3 20, curve data 70 + 20 + 70, sensor 2 + 2. The label
        // "Weight:" is there four times.
        const qsizetype expected = 123 + 2 * 69 + 2 * 49 + 1 + 102 + 160 + 4 + 4;
        for (const CReportPaper paper : {CReportPaper::Letter, CReportPaper::A4})
            QCOMPARE(LettersOf(Pages(m_wideRecord, CReportMode::Specification, paper), 'W'), expected);
    }

    // Where header, title, and footer are.

    void HeaderTitleAndFooterKeepTheirRowsAndSizes() {
        const std::vector<CPdfPage> pages = Pages(m_record, CReportMode::Specification, CReportPaper::Letter);
        QCOMPARE(pages.size(), std::size_t{1});
        const CPdfWord* const title = FindWord(pages[0], "UDS");
        const CPdfWord* const header = FindWord(pages[0], "Test");
        const CPdfWord* const footer = FindWord(pages[0], "Page:");
        QVERIFY(title && header && footer);
        QVERIFY(Near(header->box.top() - title->box.top(), 0.5 * 72.0, 0.5));
        QVERIFY(Near(footer->box.top() - title->box.top(), 10.3 * 72.0, 1.0));
        // Widths of the letters of this face, in thousandths of its size: T 611, e 444, s 389, t 278; P 556, a 444,
        // g 500, colon 278.
        QVERIFY(Near(header->box.width(), 1.722 * 16.0, 0.3));
        QVERIFY(Near(footer->box.width(), 2.222 * 12.0, 0.3));
    }

    void EightBlanksPartTheNumbersOfTheHeader() {
        const std::vector<CPdfPage> pages = Pages(m_record, CReportMode::Specification, CReportPaper::Letter);
        const CPdfWord* const number = FindWord(pages.at(0), "1234");
        const CPdfWord* const curve = FindWord(pages.at(0), "Curve");
        QVERIFY(number && curve);
        QVERIFY(Near(curve->box.left() - number->box.right(), 8.0 * 0.25 * 16.0, 0.5));  // a blank is a quarter em
    }

    // What is missing.

    void AFileOfOneComponentKeepsTheLabelsOfTheSecond() {
        ks::CNSignal record = m_record;
        record.SetSecondComponent(false);
        const auto pages = Pages(record, CReportMode::Full, CReportPaper::A4);
        QVERIFY(HasCell(pages, "Vehicle Two"));
        QVERIFY(HasCell(pages, "Make: MAKE A"));
        QVERIFY(!HasCell(pages, "Make: MAKE B"));
        QVERIFY(!HasCell(pages, "CMPDSC2: DESCRIPTION B"));
        QVERIFY(HasCell(pages, "CMPDSC2:"));
    }

    void AnEmptyRecordHasAReport() {
        QCOMPARE(Pages({}, CReportMode::Full, CReportPaper::Letter).size(), std::size_t{2});
    }

    // The plot.

    void ThePlotNamesAxesAndFile() {
        const auto pages = Pages(m_record, CReportMode::Full, CReportPaper::Letter);
        const QStringList names = {"TIME (SECONDS)", "record.uds", "Plot of the Curve"};
        QCOMPARE(MissingCells(pages, names).join(", "), QString());
        QVERIFY(FindWord(pages.back(), "ACCELERATION") != nullptr);  // upright
        QVERIFY(MissingCells(Pages(m_record, CReportMode::Specification, CReportPaper::Letter), names) == names);
    }

    void TitlesTooLongForThePlotAreShortened() {
        const auto pages = Pages(m_wideRecord, CReportMode::Full, CReportPaper::Letter);
        const QString ellipsis(QChar(0x2026));
        const auto& words = pages.back().words;
        const auto isShortened = [&](const CPdfWord& word) { return word.text.endsWith(ellipsis); };
        QCOMPARE(std::count_if(words.begin(), words.end(), isShortened), std::ptrdiff_t{2});
        const CPdfWord* const title = FindWord(pages.back(), "Plot");
        QVERIFY(title != nullptr);
        for (const CPdfWord& word : words)
            if (isShortened(word)) QVERIFY(word.box.top() > title->box.bottom());
    }

    void ThePlotDrawsTheCurve() {
        // Y falls from 4 to 0 over 2 s. The frame holds the times exactly and 5 % more than the values.
        ks::CNSignal record;
        record.SetData({0.0, 1.0, 2.0}, {4.0, 2.0, 0.0});
        const QSizeF letter(8.5, 11.0);
        const CReport report({record, "ramp", CReportMode::Full, QDate(2024, 2, 9)}, letter);
        const QImage image = Picture(report, report.PageCount() - 1, letter);
        const QRect frame = Frame(image);
        QVERIFY(frame.width() > 3 * kDotsPerInch && frame.height() > 2 * kDotsPerInch);
        for (const double share : {0.2, 0.4, 0.6, 0.8}) {
            const int x = frame.left() + qRound(share * frame.width());
            const std::vector<int> rows = InkedRows(image, frame, x);
            QVERIFY(!rows.empty());
            const double fromTop = (0.2 + 4.0 * share) / 4.4;  // 4.2 at the top, -0.2 at the bottom
            const double expected = frame.top() + fromTop * frame.height();
            QVERIFY(Near(rows.front(), expected, 5.0) && Near(rows.back(), expected, 5.0));
        }
    }

    /// They ended the name, as a tab does in a list of names.
    void ControlCharactersInANameAreBlanks() {
        const std::string path = m_folder.Path("named.pdf");
        const ks::CWriteResult result =
            WriteReportPdf(path, m_record, "folder/one\ttwo\nthree.uds", CReportMode::Full, {CReportPaper::A4, kDay});
        QVERIFY(result == ks::CWriteResult::Written);
        const auto pages = ReadPdf(QString::fromStdString(path));
        QCOMPARE(MissingCells(pages, {"one two three.uds"}).join(", "), QString());
    }

    void PaintingIsTheSameOnEveryDeviceAndEveryTime() {
        const QSizeF letter(8.5, 11.0);
        const CReport report({m_wideRecord, "a.uds", CReportMode::Full, QDate(2024, 2, 9)}, letter);
        const int last = report.PageCount() - 1;
        const QImage first = Picture(report, last, letter);
        QImage other(100, 130, QImage::Format_Grayscale8);  // of another resolution, which makes the room look smaller
        QPainter painter(&other);
        report.Paint(painter, last);
        painter.end();
        QVERIFY(Picture(report, last, letter) == first);
    }

    void NumbersOfThePlotAreTheSameInEveryLocale_data() {
        QTest::addColumn<QString>("locale");
        for (const char* locale : {"de_DE", "ar_EG", "en_US"}) QTest::newRow(locale) << locale;
    }
    void NumbersOfThePlotAreTheSameInEveryLocale() {
        QFETCH(QString, locale);
        const auto restore = qScopeGuard([before = QLocale()] { QLocale::setDefault(before); });
        QLocale::setDefault(QLocale(locale));
        ks::CNSignal record = m_record;
        record.SetData({0.0, 0.5}, {0.0, 12345.5});
        const auto pages = Pages(record, CReportMode::Full, CReportPaper::A4);
        for (const char* label : {"0.1", "0.4", "0", "10000"})
            QVERIFY2(FindWord(pages.back(), label) != nullptr, label);
    }

    void TitlesOfAPlotOnSmallPaperAreShortenedToItsSize() {
        QPrinter printer;
        printer.setOutputFileName(QString::fromStdString(m_folder.Path("small.pdf")));
        printer.setPageSize(QPageSize(QPageSize::A6));
        const CPrinter report({m_wideRecord, "a.uds", CReportMode::Full, QDate(2024, 2, 9)});
        QVERIFY(report.Print(printer) == CPrintResult::Printed);
        const auto pages = ReadPdf(printer.outputFileName());
        const QRectF paper(QPointF(), pages.back().size);
        const QString ellipsis(QChar(0x2026));
        qsizetype shortened = 0;
        for (const CPdfWord& word : pages.back().words) {
            if (word.text.endsWith(ellipsis)) ++shortened;
            QVERIFY2(paper.contains(word.box), qPrintable(word.text));
        }
        QCOMPARE(shortened, qsizetype{2});
    }

    void ThePlotIsNoPictureOfPixels() {
        const std::string bytes = ReadAll(Write(m_record, CReportMode::Full, CReportPaper::A4));
        QVERIFY(bytes.starts_with("%PDF-"));
        QVERIFY(bytes.find("/Subtype /Image") == std::string::npos);
        QVERIFY(bytes.find("/Subtype/Image") == std::string::npos);
    }

    // Printers.

    void APageRangeChosenForThePrinterIsFollowed() {
        QPrinter printer;
        printer.setOutputFileName(QString::fromStdString(m_folder.Path("range.pdf")));
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(2, 7);
        const CPrinter report({m_record, "a.uds", CReportMode::Full, QDate(2024, 2, 9)});
        QVERIFY(report.Print(printer) == CPrintResult::Printed);
        const auto pages = ReadPdf(printer.outputFileName());
        QCOMPARE(pages.size(), std::size_t{1});
        QVERIFY(HasCell(pages, "Page: 2"));
    }

    /// A blank page was printed, and an existing file was lost.
    void ARangeOutsideTheReportIsReportedAndOpensNothing() {
        const std::string old = m_folder.Write("old.pdf", "old");
        const CPrinter report({m_record, "a.uds", CReportMode::Full, QDate(2024, 2, 9)});
        for (const std::string& path : {old, m_folder.Path("none.pdf")}) {
            QPrinter printer;
            printer.setOutputFileName(QString::fromStdString(path));
            printer.setPrintRange(QPrinter::PageRange);
            printer.setFromTo(3, 7);
            QVERIFY(report.Print(printer) == CPrintResult::NoPages);
            QVERIFY(printer.printerState() == QPrinter::Idle);
        }
        QCOMPARE(ReadAll(old), std::string("old"));
        QVERIFY(!std::filesystem::exists(m_folder.Path("none.pdf")));
        QPageRanges outside;
        outside.addPage(3);
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        QPdfWriter writer(&file);
        QVERIFY(!report.PaintOn(writer, outside));
        QVERIFY(file.data().isEmpty());
    }

    void ThePagesCanBeCountedForEveryPaper() {
        const CPrinter report({m_record, "a.uds", CReportMode::Full, QDate(2024, 2, 9)});
        for (const QPageSize::PageSizeId paper : {QPageSize::Letter, QPageSize::A4}) {
            QCOMPARE(report.PageCount(QPageLayout(QPageSize(paper), QPageLayout::Portrait, QMarginsF(20, 20, 20, 20))),
                     2);
        }
        QCOMPARE(CPrinter({m_record, "a.uds", CReportMode::Specification, QDate(2024, 2, 9)})
                     .PageCount(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {})),
                 1);
    }

    void PaperSidewaysTakesMorePages() {
        QPrinter printer;
        printer.setOutputFileName(QString::fromStdString(m_folder.Path("sideways.pdf")));
        printer.setPageSize(QPageSize(QPageSize::Letter));
        printer.setPageOrientation(QPageLayout::Landscape);
        const CPrinter report({m_wideRecord, "a.uds", CReportMode::Full, QDate(2024, 2, 9)});
        QVERIFY(report.Print(printer) == CPrintResult::Printed);
        const auto pages = ReadPdf(printer.outputFileName());
        QVERIFY(pages.size() > 2);
        QVERIFY(Near(pages[0].size.width(), 792.0, 1.0) && Near(pages[0].size.height(), 612.0, 1.0));
        QCOMPARE(WordsOutsideMargins(pages).join(", "), QString());
        QCOMPARE(OverlappingWords(pages).join(", "), QString());
    }

    void APrinterThatDoesNotOpenIsReported() {
        QPrinter printer;  // no printer and no file
        printer.setPrinterName("no such printer");
        const CPrinter report({m_record, "a.uds", CReportMode::Full, QDate(2024, 2, 9)});
        QVERIFY(report.Print(printer) == CPrintResult::NotOpened);
    }

    // The file.

    void TheDateIsTodayUnlessGiven() {
        const std::string path = m_folder.Path("today.pdf");
        const QDate before = QDate::currentDate();
        QVERIFY(WriteReportPdf(path, m_record, "a.uds", CReportMode::Specification) == ks::CWriteResult::Written);
        const QDate after = QDate::currentDate();
        const auto pages = ReadPdf(QString::fromStdString(path));
        const auto hasDate = [&](const QDate& date) {
            return HasCell(pages, QString("Date: %1/%2/%3").arg(date.month()).arg(date.day()).arg(date.year()));
        };
        QVERIFY(hasDate(before) || hasDate(after));
    }

    void AnOldFileIsReplaced() {
        const std::string path = m_folder.Write("old.pdf", "old");
        QVERIFY(WriteReportPdf(path, m_record, "a.uds", CReportMode::Specification) == ks::CWriteResult::Written);
        QVERIFY(ReadAll(path).starts_with("%PDF-"));
    }

    void AMissingFolderIsReported() {
        const std::string path = m_folder.Path("nowhere/a.pdf");
        QVERIFY(WriteReportPdf(path, m_record, "a.uds", CReportMode::Full) == ks::CWriteResult::NotOpened);
    }

    void AFullDeviceIsReported() {
        QVERIFY(WriteReportPdf("/dev/full", m_record, "a.uds", CReportMode::Full) == ks::CWriteResult::NotCompleted);
    }

private:
    void AddKinds() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("paper");
        for (const CReportMode mode : {CReportMode::Specification, CReportMode::Full}) {
            for (const CReportPaper paper : {CReportPaper::Letter, CReportPaper::A4}) {
                const QByteArray name = QByteArray(mode == CReportMode::Full ? "full" : "specification") + " on " +
                                        (paper == CReportPaper::A4 ? "A4" : "Letter");
                QTest::newRow(name.constData()) << static_cast<int>(mode) << static_cast<int>(paper);
            }
        }
    }
    /// Of the current row.
    static int Column(const char* name) { return *static_cast<const int*>(QTest::qData(name, QMetaType::Int)); }
    static bool IsFull() { return Column("mode") == static_cast<int>(CReportMode::Full); }
    static bool IsLetter() { return Column("paper") == static_cast<int>(CReportPaper::Letter); }

    std::vector<CPdfPage> Written(const ks::CNSignal& record) {
        return Pages(record, static_cast<CReportMode>(Column("mode")), static_cast<CReportPaper>(Column("paper")));
    }
    std::string Write(const ks::CNSignal& record, CReportMode mode, CReportPaper paper) {
        const std::string path = m_folder.Path("report.pdf");
        const ks::CWriteResult result = WriteReportPdf(path, record, "some/folder/record.uds", mode, {paper, kDay});
        return result == ks::CWriteResult::Written ? path : std::string();
    }
    std::vector<CPdfPage> Pages(const ks::CNSignal& record, CReportMode mode, CReportPaper paper) {
        return ReadPdf(QString::fromStdString(Write(record, mode, paper)));
    }

    CTempFolder m_folder;
    ks::CNSignal m_record, m_wideRecord;
};

QTEST_MAIN(CReportTest)
#include "report_test.moc"
