#include "chart/qcustomplot/plot_paper.h"

#include "chart/chart_control.h"
#include "chart/chart_sequences.h"
#include "chart/line_look.h"
#include "chart/make_chart.h"
#include "chart/metafile/metafile_device.h"
#include "chart/testing/chart_files.h"
#include "chart/testing/chart_window.h"
#include "chart/testing/sample_blocks.h"
#include "chart/testing/wmf_reader.h"
#include "files/replacing_file.h"

#include <QApplication>
#include <QClipboard>
#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPalette>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>

namespace {

const QWidget* TopLevelPlot() {
    const QWidgetList widgets = QApplication::topLevelWidgets();
    const auto found = std::find_if(widgets.begin(), widgets.end(),
                                    [](const QWidget* widget) { return widget->objectName() == "chart"; });
    return found == widgets.end() ? nullptr : *found;
}

}  // namespace

/// Exported, copied and printed charts.
class PlotPaperTest : public CChartWindowTest {
    Q_OBJECT

private slots:
    void cleanup() { Close(); }

    void theBitmapIsEightHundredBySixHundredOnWhite() {
        ShowThick(FlatPage(2));
        const QTemporaryDir folder;
        const QString path = folder.filePath("chart.bmp");
        QVERIFY(m_chart->ExportBitmap(kBitmapSize, path.toStdString()) == ks::CWriteResult::Written);
        QCOMPARE(FileBytes(path).left(2), QByteArray("BM"));
        const QImage image = QImage(path).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(image.size(), QSize(800, 600));
        QCOMPARE(image.pixel(1, 1), qRgb(255, 255, 255));
        for (std::size_t series = 0; series < 2; ++series)
            QVERIFY(BoxOfColor(image, SeriesColor(series), QRect(100, 20, 480, 545)).width() > 400);
    }

    void theBitmapOfADarkChartIsOnWhite() {
        Show(FlatPage(1));
        QPalette dark;
        dark.setColor(QPalette::Base, Qt::black);
        dark.setColor(QPalette::Text, Qt::white);
        m_window->setPalette(dark);
        const QTemporaryDir folder;
        const QString path = folder.filePath("chart.bmp");
        QVERIFY(m_chart->ExportBitmap(kBitmapSize, path.toStdString()) == ks::CWriteResult::Written);
        QCOMPARE(QImage(path).pixel(1, 1), qRgb(255, 255, 255));
    }

    void theMetafileHoldsCurvesTitlesAndLegend() {
        CSamplePage page = FlatPage(3);
        page.block.xTitle = "Time (seconds)";
        page.block.yTitle = "Residual";
        Show(page);
        const CWmfPicture picture = ExportedMetafile(*m_chart);
        QCOMPARE(picture.fault, std::string());
        QCOMPARE(picture.width, 10000);
        QCOMPARE(picture.height, 5000);
        for (const char* text : {"Time (seconds)", "Residual", "Reference", "v01001aa0.001", "v01002aa0.001"})
            QVERIFY2(picture.HasText(text), text);
        QVERIFY(picture.HasText("5.5"));
        for (const CReadText& text : picture.texts) QCOMPARE(text.tenthsOfDegree, text.bytes == "Residual" ? 900 : 0);
        for (std::size_t series = 1; series < 3; ++series)
            QVERIFY(picture.PointsOfColor(LookOfLine(0, series, CChartBackground::Light).rgb) > 100);
    }

    void theMetafileShowsTheZoomedPartOnly() {
        ShowThick(SamplePage(2, 2001, 5.0, 6.0, [](int series, double x) { return series * 100.0 * (x - 5.5); }));
        Wheel(8, kMiddle);
        const CWmfPicture picture = ExportedMetafile(*m_chart);
        QCOMPARE(picture.fault, std::string());
        QVERIFY(!picture.HasText("6"));
        // The curve ends at the frame, whose lines are black as the reference's are.
        const auto isFrame = [](const CReadLine& line) { return line.rgb == 0 && line.points.front().x < 8000; };
        CWmfPlace low{10000, 5000};
        CWmfPlace high{0, 0};
        for (const CReadLine& line : picture.lines) {
            for (const CWmfPlace& place : line.points) {
                if (!isFrame(line)) continue;
                low = {std::min(low.x, place.x), std::min(low.y, place.y)};
                high = {std::max(high.x, place.x), std::max(high.y, place.y)};
            }
        }
        std::size_t curvePoints = 0;
        for (const CReadLine& line : picture.lines) {
            for (const CWmfPlace& place : line.points) {
                if (line.rgb != LookOfLine(6, 1, CChartBackground::Light).rgb || place.x > 8100) continue;
                ++curvePoints;
                QVERIFY(place.x >= low.x && place.x <= high.x && place.y >= low.y && place.y <= high.y);
            }
        }
        QVERIFY(curvePoints > 50);
        QVERIFY(high.x < 8500 && high.y < 4900);
    }

    void theMetafileOfLongCurvesStaysSmall() {
        Show(PulsePage(6, 20000));
        QVERIFY(ExportedMetafileBytes(*m_chart).size() < 1000000);
        QCOMPARE(ReadWmf(ExportedMetafileBytes(*m_chart).toStdString()).fault, std::string());
    }

    void aFileThatCannotBeOpenedIsReported() {
        Show(FlatPage(1));
        const QTemporaryDir folder;
        const std::string path = folder.filePath("missing/chart.wmf").toStdString();
        QVERIFY(m_chart->ExportMetafile(kMetafileSize, path) == ks::CWriteResult::NotOpened);
        QVERIFY(m_chart->ExportBitmap(kBitmapSize, path) == ks::CWriteResult::NotOpened);
    }

    void theClipboardHoldsMetafileAndPicture() {
        Show(FlatPage(2));
        m_chart->CopyMetafile(kMetafileSize);
        const QMimeData* data = QGuiApplication::clipboard()->mimeData();
        for (const char* type : {"application/x-openoffice-wmf;windows_formatname=\"Image WMF\"", "image/x-wmf"}) {
            QVERIFY2(data->hasFormat(type), type);
            const CWmfPicture picture = ReadWmf(data->data(type).toStdString());
            QCOMPARE(picture.fault, std::string());
            QCOMPARE(picture.width, 10000);
            QVERIFY(picture.HasText("Reference"));
        }
        const auto image = qvariant_cast<QImage>(data->imageData());
        QCOMPARE(image.size(), QSize(1600, 800));
        QCOMPARE(image.pixel(1, 1), qRgb(255, 255, 255));
    }

    void printingPaintsCurvesAsLinesIntoTheArea() {
        ShowThick(FlatPage(2));
        CMetafileDevice page({10000, 8000});
        QPainter painter(&page);
        m_chart->PaintOnto(painter, QRectF(1000, 2000, 8000, 4000));
        painter.end();
        const CWmfPicture picture = ReadWmf(page.Finish());
        QCOMPARE(picture.fault, std::string());
        QVERIFY(picture.HasText("Reference"));
        QVERIFY(picture.PointsOfColor(LookOfLine(6, 1, CChartBackground::Light).rgb) > 100);
        int right = 0;
        for (const CReadLine& line : picture.lines) {
            for (const CWmfPlace& place : line.points) {
                QVERIFY(place.x >= 1000 && place.x <= 9000 && place.y >= 2000 && place.y <= 6000);
                right = std::max(right, place.x);
            }
        }
        QVERIFY(right > 7000);
        // Thirteen pixels of 1/96 inch at 1440 units an inch.
        for (const CReadText& text : picture.texts) QVERIFY(IsNear(-text.height, 195.0, 5.0));
    }

    void aPrintedPdfHoldsNoPictures() {
        Show(FlatPage(2));
        const QTemporaryDir folder;
        const QString path = folder.filePath("chart.pdf");
        {
            QPdfWriter writer(path);
            QPainter painter(&writer);
            m_chart->PaintOnto(painter, QRectF(0, 0, writer.width(), writer.height()));
        }
        const QByteArray bytes = FileBytes(path);
        QVERIFY(bytes.startsWith("%PDF"));
        QVERIFY(bytes.contains("/Font"));
        QVERIFY(!bytes.contains("/Subtype /Image"));
    }

    void aChartWithoutAParentIsExported() {
        const std::unique_ptr<CChartControl> chart = MakeChartControl();
        CLineStyles styles;
        const CSamplePage page = FlatPage(2);
        ShowChart(*chart, nullptr, kBitmapSize, SharedBlock(page), page.names, styles);
        QVERIFY(TopLevelPlot() != nullptr && !TopLevelPlot()->isVisible());
        const QTemporaryDir folder;
        const QString path = folder.filePath("chart.wmf");
        QVERIFY(chart->ExportMetafile(kMetafileSize, path.toStdString()) == ks::CWriteResult::Written);
        QVERIFY(ReadWmf(FileBytes(path).toStdString()).HasText("v01001aa0.001"));
    }
};

QTEST_MAIN(PlotPaperTest)
#include "plot_paper_test.moc"
