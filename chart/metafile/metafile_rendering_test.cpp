#include "chart/chart_control.h"
#include "chart/chart_sequences.h"
#include "chart/line_look.h"
#include "chart/make_chart.h"
#include "chart/testing/sample_blocks.h"
#include "chart/testing/wmf_reader.h"
#include "files/replacing_file.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

constexpr double kPixelsPerUnit = 0.1;

bool IsDark(QRgb pixel) {
    return qGray(pixel) < 128;
}

int DarkPixels(const QImage& image, const QRect& part) {
    const QRect inside = part & image.rect();
    int count = 0;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            if (IsDark(image.pixel(x, y))) ++count;
    }
    return count;
}

/// Where a text is, in pixels: from its baseline up, at any rotation.
QRect Place(const CReadText& text) {
    const double x = text.baseline.x * kPixelsPerUnit;
    const double y = text.baseline.y * kPixelsPerUnit;
    const double along = text.advance * kPixelsPerUnit;
    const double across = -text.height * kPixelsPerUnit;
    const bool isUpright = text.tenthsOfDegree == 0;
    const QRectF place =
        isUpright ? QRectF(x, y - across, along, across) : QRectF(x - across, y - along, across, along);
    return place.toAlignedRect();
}

/// The first or last quarter of a text's place along its line.
QRect Quarter(const CReadText& text, bool isFirst) {
    const QRect all = Place(text);
    if (text.tenthsOfDegree == 0)
        return {isFirst ? all.left() : all.right() - all.width() / 4, all.top(), all.width() / 4, all.height()};
    return {all.left(), isFirst ? all.bottom() - all.height() / 4 : all.top(), all.width(), all.height() / 4};
}

bool HasColorNear(const QImage& image, const QPoint& place, QRgb color) {
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const QPoint at = place + QPoint(dx, dy);
            if (image.rect().contains(at) && (image.pixel(at) & 0xFFFFFFU) == color) return true;
        }
    }
    return false;
}

}  // namespace

/// Draws an exported metafile with libwmf, which is independent of our writer, and checks the picture.
class MetafileRenderingTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        const QString program = QStandardPaths::findExecutable("wmf2gd");
        QVERIFY2(!program.isEmpty(), "wmf2gd is missing: install libwmf-bin and fonts-urw-base35 with scripts/setup.");

        CSamplePage page = SamplePage(
            4, 501, 0.0, 1.0, [](int series, double x) { return (series + 1) * std::sin(6.28 * x) + 3.0 * series; });
        page.block.lineStyleMode = 2;
        page.block.xTitle = "Time (seconds)";
        page.block.yTitle = "Acceleration (G's) along the axis";
        const std::unique_ptr<CChartControl> chart = MakeChartControl();
        CLineStyles styles;
        ShowChart(*chart, nullptr, kBitmapSize, SharedBlock(page), page.names, styles);
        const QTemporaryDir folder;
        const QString metafile = folder.filePath("chart.wmf");
        QVERIFY(chart->ExportMetafile(kMetafileSize, metafile.toStdString()) == ks::CWriteResult::Written);
        QFile file(metafile);
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_written = ReadWmf(file.readAll().toStdString());
        QCOMPARE(m_written.fault, std::string());

        const QString picture = folder.filePath("chart.png");
        QProcess process;
        process.start(program,
                      {"-t", "png", "--maxwidth=1000", "--maxheight=500", "--maxpect", "-o", picture, metafile});
        QVERIFY(process.waitForFinished());
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError().right(200).constData());
        m_drawn = QImage(picture).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(m_drawn.size(), QSize(1000, 500));
    }

    void thePaperIsWhite() {
        for (const QPoint& corner : {QPoint(2, 2), QPoint(997, 2), QPoint(2, 497), QPoint(997, 497)})
            QCOMPARE(m_drawn.pixel(corner) & 0xFFFFFFU, 0xFFFFFFU);
    }

    void everyCurveRunsThroughItsPoints() {
        for (std::size_t series = 0; series < 4; ++series) {
            const std::uint32_t color = LookOfLine(5, series, CChartBackground::Light).rgb;
            int points = 0;
            int seen = 0;
            for (const CReadLine& line : m_written.lines) {
                if (line.rgb != color || line.points.size() < 10) continue;
                for (const CWmfPlace& place : line.points) {
                    ++points;
                    const QPoint pixel(static_cast<int>(place.x * kPixelsPerUnit),
                                       static_cast<int>(place.y * kPixelsPerUnit));
                    if (HasColorNear(m_drawn, pixel, color)) ++seen;
                }
            }
            QVERIFY(points > 300);
            QVERIFY2(seen > points * 95 / 100, "Part of a curve is missing.");  // other curves cover the rest
        }
    }

    void everyTextFillsItsPlaceFromEndToEnd() {
        QVERIFY(m_written.texts.size() > 10);
        for (const CReadText& text : m_written.texts) {
            QVERIFY2(DarkPixels(m_drawn, Place(text)) > 4, text.bytes.c_str());
            if (text.bytes.size() < 8) continue;
            QVERIFY2(DarkPixels(m_drawn, Quarter(text, true)) > 8, text.bytes.c_str());
            QVERIFY2(DarkPixels(m_drawn, Quarter(text, false)) > 8, text.bytes.c_str());
        }
    }

    void titlesStandAlone() {
        for (const CReadText& text : m_written.texts) {
            if (text.bytes != "Time (seconds)" && text.tenthsOfDegree == 0) continue;
            const QRect place = Place(text).adjusted(-3, -3, 3, 5);  // letters reach below the baseline
            const QRect around = place.adjusted(-6, -1, 6, 1);
            QCOMPARE(DarkPixels(m_drawn, around), DarkPixels(m_drawn, place));
        }
    }

private:
    CWmfPicture m_written;
    QImage m_drawn;
};

QTEST_MAIN(MetafileRenderingTest)
#include "metafile_rendering_test.moc"
