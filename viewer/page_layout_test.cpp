#include "viewer/page.h"
#include "viewer/print_region.h"
#include "viewer/print_table.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <cmath>

namespace {

constexpr QSizeF kLetter{8.5, 11.0};
constexpr QSizeF kA4{210.0 / 25.4, 297.0 / 25.4};
constexpr int kDotsPerMeter = 3937;  // 100 per inch

/// The page at 100 dots per inch, on white.
QImage Painted(const CPage& page, QSize pixels) {
    QImage image(pixels, QImage::Format_Grayscale8);
    image.setDotsPerMeterX(kDotsPerMeter);
    image.setDotsPerMeterY(kDotsPerMeter);
    image.fill(Qt::white);
    QPainter painter(&image);
    page.Paint(painter);
    painter.end();
    return image;
}

QRect DarkBox(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128) box |= QRect(x, y, 1, 1);
    }
    return box;
}

bool Near(double value, double expected, double tolerance) {
    return std::abs(value - expected) <= tolerance;
}

}  // namespace

class CPageLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void ARowOfALetterPageIsAnInch() {
        const CPage page(kLetter);
        QVERIFY(Near(page.RowTop(CPage::kHeaderRow) - page.RowTop(0.0), 0.5, 1e-12));
        QVERIFY(Near(page.RowTop(CPage::kFooterRow) - page.RowTop(0.0), 10.3, 1e-12));
        QVERIFY(page.Size() == kLetter);
    }

    void OtherPaperHasItsRowsInProportion() {
        const CPage page(kA4);
        const double row = page.RowTop(1.0) - page.RowTop(0.0);
        QVERIFY(Near(page.RowTop(CPage::kFooterRow) - page.RowTop(0.0), 10.3 * row, 1e-12));
        const double footerEnd = page.RowTop(CPage::kFooterRow) + 12.0 * 1.107 / 72.0;  // height of this face's letters
        QVERIFY(footerEnd < page.Size().height() - page.RowTop(0.0));
    }

    void SmallPaperGetsThePageDrawnSmaller_data() {
        QTest::addColumn<QSizeF>("paper");
        QTest::newRow("A5") << QSizeF(148.0 / 25.4, 210.0 / 25.4);
        QTest::newRow("A5 sideways") << QSizeF(210.0 / 25.4, 148.0 / 25.4);
        QTest::newRow("a label") << QSizeF(2.0, 1.0);
    }
    void SmallPaperGetsThePageDrawnSmaller() {
        QFETCH(QSizeF, paper);
        const CPage page(paper);
        QVERIFY(page.Size().width() >= 8.2 - 1e-9);
        QVERIFY(page.Size().height() >= 6.0 - 1e-9);
        QVERIFY(Near(page.Size().width() / page.Size().height(), paper.width() / paper.height(), 1e-9));
        QVERIFY(page.RowTop(0.5) - page.RowTop(0.0) >= 16.0 / 72.0);  // header clear of the title
        QVERIFY(page.Body().isValid());
    }

    void ARuleIsPaintedAtItsPlace() {
        CPage page(kLetter);
        page.AddRule({1.0, 2.0}, {3.0, 2.0});
        const QRect box = DarkBox(Painted(page, {850, 1100}));
        QVERIFY(std::abs(box.left() - 100) <= 1 && std::abs(box.right() - 300) <= 1);
        QVERIFY(std::abs(box.center().y() - 200) <= 1 && box.height() <= 2);
    }

    void LinesAreAtTheMarginsAndBetweenThem() {
        const auto darkBox = [](Qt::AlignmentFlag alignment) {
            CPage page(kLetter);
            page.AddLine(0.0, alignment, "HHHH", kTitleFont);
            return DarkBox(Painted(page, {850, 1100}));
        };
        QVERIFY(std::abs(darkBox(Qt::AlignLeft).left() - 60) <= 2);
        QVERIFY(std::abs(darkBox(Qt::AlignRight).right() - 790) <= 2);
        QVERIFY(std::abs(darkBox(Qt::AlignHCenter).center().x() - 425) <= 2);
    }

    void APictureGetsItsAreaInThePaintersCoordinates() {
        CPage page(kLetter);
        page.AddPicture({1.0, 2.0, 3.0, 4.0},
                        [](QPainter& painter, const QRectF& area) { painter.fillRect(area, Qt::black); });
        QCOMPARE(DarkBox(Painted(page, {850, 1100})), QRect(100, 200, 300, 400));
    }

    // Fonts.

    void LettersHaveTheSizeOfTheirPoints() {
        // The letter T of this face is 0.611 of its size wide, E as well.
        QVERIFY(Near(kTitleFont.Width("TE"), 2.0 * 0.611 * 16.0 / 72.0, 0.003));
        QVERIFY(Near(kFooterFont.Width("TE"), 2.0 * 0.611 * 12.0 / 72.0, 0.003));
    }

    void ATextIsBrokenBetweenWords() {
        const double width = kFieldFont.Width("one two ") + 0.01;
        const QStringList lines = kFieldFont.Lines("one two three four", width);
        QCOMPARE(lines.join('|').simplified(), QString("one two |three |four").simplified());
    }

    void AWordWiderThanTheLineIsBrokenToo() {
        const QString word(70, 'W');
        const QStringList lines = kFieldFont.Lines(word, 2.0);
        QVERIFY(lines.size() > 1);
        QCOMPARE(lines.join(QString()), word);
        for (const QString& line : lines) QVERIFY(kFieldFont.Width(line) <= 2.0);
    }

    void AnEmptyTextHasOneLine() { QCOMPARE(kFieldFont.Lines({}, 1.0), QStringList({QString()})); }

    void ControlCharactersBecomeBlanks() { QCOMPARE(kFieldFont.Lines("a\nb\tc", 5.0), QStringList({"a b c"})); }

    // Tables and regions.

    void ColumnsAreNamedByTheirNumbers() {
        QCOMPARE(CPrintTable::ColumnName(0), QString("Col 1"));
        QCOMPARE(CPrintTable::ColumnName(1), QString("Col 2"));
        QCOMPARE(CPrintTable::ColumnName(2), QString("Col 3"));
        QCOMPARE(CPrintTable(3).ColumnCount(), 3);
    }

    void ATableHasAtLeastOneColumn() { QCOMPARE(CPrintTable(0).ColumnCount(), 1); }

    void ARowOfShortTextsIsOneLineHigh() {
        CPrintTable table(2);
        table.AddRow({"a", "b"});
        QVERIFY(Near(table.Height(4.0), kFieldFont.LineHeight(), 1e-9));
    }

    void TextsFlowRowByRow() {
        CPrintTable table(2);
        table.Flow({"a", "b", "c"}, 4.0);
        QVERIFY(Near(table.Height(4.0), 2.0 * kFieldFont.LineHeight(), 1e-9));
    }

    void ATextTooWideForItsColumnGetsARowOfItsOwn() {
        CPrintTable table(2);
        table.Flow({"a", QString(30, 'W'), "b", "c", "d"}, 6.0);  // about 4 inches
        QVERIFY(Near(table.Height(6.0), 4.0 * kFieldFont.LineHeight(), 1e-9));
    }

    void ARowIsAsHighAsItsHighestText() {
        CPrintTable table(2);
        table.AddRow({"a", QString(60, 'W')});
        QVERIFY(table.Height(4.0) >= 4.0 * kFieldFont.LineHeight());
    }

    void TextsTooManyAreLeftOut() {
        CPrintTable table(1);
        table.AddRow({"a", QString(60, 'W')});
        QVERIFY(Near(table.Height(2.0), kFieldFont.LineHeight(), 1e-9));
    }

    void ARegionKeepsToItsPlace() {
        CPrintTable table(2);
        table.Flow({"HHHH", "HHHH", "HHHH"}, 4.0);
        const CPrintRegion region("HHHH", table);
        CPage page(kLetter);
        region.PlaceOn(page, {2.0, 3.0}, 4.0);
        const QRect box = DarkBox(Painted(page, {850, 1100}));
        const QRect place(199, 299, 402, static_cast<int>(std::ceil(region.Height(4.0) * 100.0)) + 2);
        QVERIFY(place.contains(box));
        QVERIFY(std::abs(box.right() - 600) <= 1);  // the line below the title
    }
};

QTEST_MAIN(CPageLayoutTest)
#include "page_layout_test.moc"
