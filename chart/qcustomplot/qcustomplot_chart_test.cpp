#include "chart/qcustomplot/qcustomplot_chart.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <clocale>
#include <cmath>
#include <optional>

#include "chart/chart_sequences.h"
#include "chart/line_look.h"
#include "chart/metafile/metafile_device.h"
#include "chart/testing/sample_blocks.h"
#include "chart/testing/wmf_reader.h"

namespace {

constexpr CChartSize kWindow{800, 500};
constexpr std::int32_t kAllThick = 3;
const QPointF kMiddle(300, 250);
const QRect kInsideFrame(100, 20, 500, 440);  // whatever the width of names and labels

/// Remembers the context menu a chart passes on.
class CWindow : public QWidget {
public:
    int contextMenus = 0;

protected:
    void contextMenuEvent(QContextMenuEvent*) override { ++contextMenus; }
};

CSamplePage FlatPage(std::int32_t seriesCount) {
    return SamplePage(seriesCount, 101, 5.0, 6.0, [](int series, double) { return series + 1.0; });
}

QRgb SeriesColour(std::size_t series, ChartBackground background = ChartBackground::Light) {
    return 0xFF000000U | LookOfLine(6, series, background).rgb;
}

/// The box around all pixels of exactly one colour.
QRect BoxOfColour(const QImage& image, QRgb colour, const QRect& part) {
    QRect box;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            if (image.pixel(x, y) == colour) box |= QRect(x, y, 1, 1);
    return box;
}

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

/// The chart as its reader meets it: pixels, coordinates in the readout, files.
class QCustomPlotChartTest : public QObject {
    Q_OBJECT

    void Show(const CSamplePage& page, CChartSize size = kWindow) {
        m_chart.reset();
        m_window = std::make_unique<CWindow>();
        m_window->resize(size.width, size.height);
        QPalette light;
        light.setColor(QPalette::Base, Qt::white);
        light.setColor(QPalette::Text, Qt::black);
        m_window->setPalette(light);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_chart = std::make_unique<CQCustomPlotChart>();
        CLineStyles styles;
        ShowChart(*m_chart, m_window.get(), size, page.block, page.names, styles);
    }

    void ShowThick(CSamplePage page) {
        page.block.lineStyleMode = kAllThick;
        Show(page);
    }

    [[nodiscard]] QImage Picture() const {
        QCoreApplication::processEvents();  // a replot may be queued
        return m_window->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    /// Left of the legend, whose samples have the curves' colours as well.
    [[nodiscard]] static QRect CurveArea() { return {0, 0, 640, kWindow.height}; }

    void Move(const QPointF& to, Qt::MouseButtons buttons = Qt::NoButton) {
        QMouseEvent move(QEvent::MouseMove, to, m_chart->Widget()->mapToGlobal(to), Qt::NoButton, buttons,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(m_chart->Widget(), &move);
    }

    QString ReadoutAt(const QPointF& place) {
        QSignalSpy spy(m_chart.get(), &CQCustomPlotChart::ReadoutChanged);
        Move(place);
        return spy.isEmpty() ? QString() : spy.last().at(0).toString();
    }

    /// The data coordinates under a place of the window.
    QPointF DataAt(const QPointF& place) {
        static const QRegularExpression form("^X: (\\S+)   Y: (\\S+)$");
        const QRegularExpressionMatch match = form.match(ReadoutAt(place));
        if (!match.hasMatch()) return {std::nan(""), std::nan("")};
        return {match.captured(1).toDouble(), match.captured(2).toDouble()};
    }

    /// Data per pixel in both directions.
    QPointF Resolution() {
        const QPointF difference = DataAt({400, 150}) - DataAt({200, 350});
        return {difference.x() / 200.0, difference.y() / 200.0};
    }

    QPointF PlaceOf(const QPointF& data) {
        const QPointF from = DataAt(kMiddle);
        const QPointF resolution = Resolution();
        return {kMiddle.x() + (data.x() - from.x()) / resolution.x(),
                kMiddle.y() - (data.y() - from.y()) / resolution.y()};
    }

    void Wheel(int clicks, const QPointF& at) {
        QWheelEvent wheel(at, m_chart->Widget()->mapToGlobal(at), {}, {0, 120 * clicks}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_chart->Widget(), &wheel);
    }

    void DoubleClick() {
        const QPoint at = kMiddle.toPoint();
        QTest::mouseDClick(m_chart->Widget(), Qt::LeftButton, {}, at);
    }

    QString ToolTipAt(const QPoint& place) {
        QHelpEvent help(QEvent::ToolTip, place, m_chart->Widget()->mapToGlobal(place));
        QCoreApplication::sendEvent(m_chart->Widget(), &help);
        return QToolTip::text();
    }

    static bool Near(double actual, double expected, double tolerance) {
        return std::abs(actual - expected) <= tolerance;
    }

    /// The whole of FlatPage is on show: x from 5 to 6 and y with its margin.
    void CheckAllShown() {
        const QPointF resolution = Resolution();
        const QPointF start = PlaceOf({5.0, 1.0});
        QVERIFY(start.x() > 20.0 && start.x() < 120.0);
        const QPointF end = PlaceOf({6.0, 3.0});
        QVERIFY(end.x() > 560.0 && end.x() < 800.0);
        QVERIFY(Near(resolution.x() * (end.x() - start.x()), 1.0, 1e-3));
        QVERIFY(end.y() > 15.0 && start.y() < 470.0 && start.y() - end.y() > 300.0);
    }

private slots:
    void initTestCase() { std::setlocale(LC_NUMERIC, "C"); }

    void cleanup() {
        m_chart.reset();
        m_window.reset();
    }

    void everySeriesIsDrawnAtItsValuesInItsColour() {
        ShowThick(FlatPage(3));
        const QImage image = Picture();
        for (std::size_t series = 0; series < 3; ++series) {
            const QRect box = BoxOfColour(image, SeriesColour(series), kInsideFrame);
            QVERIFY(box.isValid());
            const double y = PlaceOf({5.5, static_cast<double>(series) + 1.0}).y();
            QVERIFY(Near(box.center().y(), y, 2.0));
            QVERIFY(box.height() <= 4);
            QVERIFY(box.width() > 450);
        }
    }

    void theFirstLooksShowAllTheData() {
        ShowThick(FlatPage(3));
        CheckAllShown();
    }

    void thePaddingOfAShorterSeriesIsNotDrawn() {
        CSamplePage page = FlatPage(2);
        PadEnd(page.block, 1, 50);
        ShowThick(page);
        const QImage image = Picture();
        const double middle = PlaceOf({5.5, 1.0}).x();
        const QRect whole = BoxOfColour(image, SeriesColour(0), kInsideFrame);
        const QRect half = BoxOfColour(image, SeriesColour(1), CurveArea());
        QVERIFY(whole.right() > middle + 100.0);
        QVERIFY(half.isValid());
        QVERIFY(half.right() <= middle + 2.0);
        const QPointF start = PlaceOf({5.0, 1.0});  // the padding's own x, almost 0, is not on show
        QVERIFY(start.x() > 20.0 && start.x() < 120.0);
    }

    void missingPointsLeaveAGap() {
        CSamplePage page = FlatPage(1);
        for (std::size_t point = 40; point <= 60; ++point) page.block.y[point] = page.block.paddingValue;
        page.block.y[20] = std::numeric_limits<double>::infinity();
        page.block.y[21] = std::numeric_limits<double>::quiet_NaN();
        ShowThick(page);
        const QImage image = Picture();
        const QPointF from = PlaceOf({5.395, 1.0});
        const QPointF to = PlaceOf({5.605, 1.0});
        const int y = static_cast<int>(from.y());
        QVERIFY(BoxOfColour(
                    image, SeriesColour(0),
                    QRect(QPoint(static_cast<int>(from.x()) + 1, y - 10), QPoint(static_cast<int>(to.x()) - 1, y + 10)))
                    .isNull());
        QVERIFY(BoxOfColour(image, SeriesColour(0), QRect(static_cast<int>(to.x()) + 10, y - 10, 20, 20)).isValid());
        const QPointF infinite = PlaceOf({5.205, 1.0});
        QVERIFY(BoxOfColour(image, SeriesColour(0), QRect(static_cast<int>(infinite.x()) - 1, y - 10, 3, 20)).isNull());
    }

    void aSeriesThatRunsBackwardsIsDrawn() {
        ShowThick(SamplePage(1, 101, 6.0, 5.0, [](int, double) { return 1.0; }));
        const QRect box = BoxOfColour(Picture(), SeriesColour(0), kInsideFrame);
        QVERIFY(box.width() > 450);
    }

    void aSinglePointIsSeen() {
        ShowThick(SamplePage(1, 1, 5.0, 5.0, [](int, double) { return 1.0; }));
        const QPointF place = PlaceOf({5.0, 1.0});
        const QRect around(place.toPoint() - QPoint(6, 6), QSize(13, 13));
        QVERIFY(BoxOfColour(Picture(), SeriesColour(0), around).isValid());
    }

    void aPageWithoutPointsHasAxesFromZeroToOne() {
        CSamplePage page = FlatPage(1);
        PadEnd(page.block, 0, page.block.pointCount);
        ShowThick(page);
        const QPointF origin = PlaceOf({0.0, 0.0});
        QVERIFY(origin.x() > 20.0 && origin.x() < 120.0);
        QVERIFY(origin.y() > 400.0 && origin.y() < 480.0);
    }

    void titlesAndNamesAreToldToScreenReaders() {
        CSamplePage page = FlatPage(2);
        page.block.xTitle = "Time (seconds)";
        page.block.yTitle = "Residual";
        Show(page);
        QCOMPARE(m_chart->Widget()->accessibleName(), "Chart");
        QCOMPARE(m_chart->Widget()->accessibleDescription(),
                 "Residual over Time (seconds). Curves: Reference, v01001aa0.001");
    }

    void theWheelZoomsAtThePointer() {
        ShowThick(FlatPage(3));
        const QPointF at(200, 300);
        const QPointF before = DataAt(at);
        const QPointF resolution = Resolution();
        Wheel(1, at);
        const QPointF after = DataAt(at);
        // Longer tick labels may push the axes a few pixels to the right.
        QVERIFY(Near(after.x(), before.x(), 8.0 * resolution.x()) && Near(after.y(), before.y(), resolution.y()));
        QVERIFY(Near(Resolution().x() / resolution.x(), 0.8, 2e-2));
        QVERIFY(Near(Resolution().y() / resolution.y(), 0.8, 1e-2));
        Wheel(-1, at);
        QVERIFY(Near(Resolution().x() / resolution.x(), 1.0, 1e-2));
    }

    void draggingMovesTheDataWithThePointer() {
        ShowThick(FlatPage(3));
        Wheel(5, kMiddle);
        const QPointF before = DataAt(kMiddle);
        QTest::mousePress(m_chart->Widget(), Qt::LeftButton, {}, kMiddle.toPoint());
        Move(kMiddle + QPointF(-60, 40), Qt::LeftButton);
        QTest::mouseRelease(m_chart->Widget(), Qt::LeftButton, {}, (kMiddle + QPointF(-60, 40)).toPoint());
        const QPointF after = DataAt(kMiddle + QPointF(-60, 40));
        QVERIFY(Near(after.x(), before.x(), 2e-3));
        QVERIFY(Near(after.y(), before.y(), 5e-3));
    }

    void aDoubleClickShowsAllAgain() {
        ShowThick(FlatPage(3));
        Wheel(7, kMiddle);
        DoubleClick();
        CheckAllShown();
    }

    void resetZoomShowsAllAgain() {
        ShowThick(FlatPage(3));
        Wheel(7, kMiddle);
        m_chart->ResetZoom();
        CheckAllShown();
    }

    void keysZoomAndReset() {
        ShowThick(FlatPage(3));
        const QPointF resolution = Resolution();
        for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Equal}) {
            QTest::keyClick(m_chart->Widget(), key);
            QVERIFY(Near(Resolution().x() / resolution.x(), 0.8, 1e-2));
            QTest::keyClick(m_chart->Widget(), Qt::Key_Minus);
            QVERIFY(Near(Resolution().x() / resolution.x(), 1.0, 1e-2));
        }
        for (const Qt::Key key : {Qt::Key_0, Qt::Key_Home}) {
            Wheel(7, kMiddle);
            QTest::keyClick(m_chart->Widget(), key);
            CheckAllShown();
        }
    }

    void arrowKeysPan() {
        ShowThick(FlatPage(3));
        Wheel(5, kMiddle);
        const QPointF start = DataAt(kMiddle);
        QTest::keyClick(m_chart->Widget(), Qt::Key_Right);
        QTest::keyClick(m_chart->Widget(), Qt::Key_Up);
        const QPointF moved = DataAt(kMiddle);
        QVERIFY(moved.x() > start.x() && moved.y() > start.y());
        QTest::keyClick(m_chart->Widget(), Qt::Key_Left);
        QTest::keyClick(m_chart->Widget(), Qt::Key_Down);
        QVERIFY(Near(DataAt(kMiddle).x(), start.x(), 1e-3) && Near(DataAt(kMiddle).y(), start.y(), 1e-3));
    }

    void zoomEndsWhereDoublesEnd() {
        ShowThick(FlatPage(3));
        Wheel(1000, kMiddle);
        Wheel(500, kMiddle);
        const QPointF deepest = DataAt(kMiddle);
        QVERIFY(deepest.x() >= 5.0 && deepest.x() <= 6.0);
        QVERIFY(Resolution().x() > 0.0);
        Wheel(-3000, kMiddle);
        QVERIFY(Resolution().x() * 600.0 < 25.0);
        DoubleClick();
        CheckAllShown();
    }

    void theReadoutIsEmptyOutsideTheAxes() {
        Show(FlatPage(1));
        QSignalSpy spy(m_chart.get(), &CQCustomPlotChart::ReadoutChanged);
        Move({5, 5});
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(m_chart->Widget(), &leave);
        QCOMPARE(spy.size(), 2);
        QCOMPARE(spy[0][0].toString(), QString());
        QCOMPARE(spy[1][0].toString(), QString());
    }

    /// They followed the user's locale, unlike the table beside the chart.
    void numbersAreTheSameInEveryLocale_data() {
        QTest::addColumn<QString>("locale");
        for (const char* locale : {"C", "de_DE", "ar_EG", "en_US", "fr_CH"}) QTest::newRow(locale) << locale;
    }
    void numbersAreTheSameInEveryLocale() {
        QFETCH(QString, locale);
        const auto restore = qScopeGuard([before = QLocale()] { QLocale::setDefault(before); });
        const CSamplePage page =
            SamplePage(1, 101, 12345.0, 12346.0, [](int, double x) { return 3e38 * (x - 12345.5); });
        QLocale::setDefault(QLocale::c());
        Show(page);
        const QImage image = Picture();

        QLocale::setDefault(QLocale(locale));
        Show(page);
        QVERIFY(Picture() == image);
        const QStringList labels = Texts(ExportedMetafile());
        QVERIFY2(labels.contains("12345.5") && labels.contains(QString("1") + QChar(0xD7) + "10"),
                 qPrintable(labels.join('|')));
        static const QRegularExpression form("^X: 12345\\.\\d+   Y: -?\\d(\\.\\d+)?e\\+3[78]$");
        const QString readout = ReadoutAt({300, 200});
        QVERIFY2(form.match(readout).hasMatch(), qPrintable(readout));
    }

    void theReadoutEndsWithTheChart() {
        Show(FlatPage(1));
        QSignalSpy spy(m_chart.get(), &CQCustomPlotChart::ReadoutChanged);
        Move(kMiddle);
        m_chart->Destroy();
        QCOMPARE(spy.size(), 2);
        QVERIFY(spy[0][0].toString().startsWith("X: "));
        QCOMPARE(spy[1][0].toString(), QString());
    }

    void theChartFollowsItsParentsSize() {
        Show(FlatPage(1));
        ResizeChart(*m_chart, {640, 400});
        QCOMPARE(m_chart->Widget()->geometry(), QRect(0, 0, 640, 400));
        QCOMPARE(m_chart->Widget()->parentWidget(), m_window.get());
    }

    void theChartFollowsThePalette() {
        ShowThick(FlatPage(2));
        QPalette dark;
        dark.setColor(QPalette::Base, QColor(30, 30, 30));
        dark.setColor(QPalette::Text, QColor(235, 235, 235));
        m_window->setPalette(dark);
        const QImage image = Picture();
        QCOMPARE(image.pixel(2, 2), qRgb(30, 30, 30));
        QVERIFY(BoxOfColour(image, SeriesColour(1, ChartBackground::Dark), CurveArea()).isValid());
        QVERIFY(BoxOfColour(image, SeriesColour(1, ChartBackground::Light), CurveArea()).isNull());
    }

    void theContextMenuReachesTheParent() {
        Show(FlatPage(1));
        QContextMenuEvent menu(QContextMenuEvent::Mouse, kMiddle.toPoint(), kMiddle.toPoint());
        QCoreApplication::sendEvent(m_chart->Widget(), &menu);
        QCOMPARE(m_window->contextMenus, 1);
    }

    void theLegendTellsWholeNamesAndScrolls() {
        Show(FlatPage(300));
        const QPoint firstEntry(m_chart->Widget()->width() - 60, 18);
        const QString before = ToolTipAt(firstEntry);
        QVERIFY2(before.startsWith("v01"), qPrintable(before));
        QTest::keyClick(m_chart->Widget(), Qt::Key_PageDown);
        const QString after = ToolTipAt(firstEntry);
        QVERIFY2(after.startsWith("v01") && after > before, qPrintable(after));
        QTest::keyClick(m_chart->Widget(), Qt::Key_PageUp);
        QCOMPARE(ToolTipAt(firstEntry), before);
        Wheel(-1, firstEntry);
        QCOMPARE(ToolTipAt(firstEntry), after);
        CheckLegendEnd(firstEntry);
    }

    void aNewChartTakesTheOldOnesPlace() {
        Show(FlatPage(2));
        CLineStyles styles;
        const CSamplePage page = FlatPage(1);
        ShowChart(*m_chart, m_window.get(), kWindow, page.block, page.names, styles);
        QCOMPARE(m_window->findChildren<QWidget*>("chart").size(), 1);
        QCOMPARE(m_chart->Widget()->accessibleDescription(), " over . Curves: Reference");
    }

    void destroyingLeavesNothing() {
        Show(FlatPage(2));
        m_chart->Destroy();
        QVERIFY(!m_chart->Exists());
        QVERIFY(m_chart->Widget() == nullptr);
        QVERIFY(m_window->findChildren<QWidget*>("chart").isEmpty());
    }

    void theChartGoesWithItsParent() {
        Show(FlatPage(2));
        m_window.reset();
        QVERIFY(!m_chart->Exists());
    }

    void withoutAChartNothingHappens() {
        CQCustomPlotChart chart;
        chart.Apply();
        chart.Draw(0, 0);
        chart.Resized(10, 10);
        chart.CopyMetafile(kMetafileSize);
        chart.ResetZoom();
        QPicture picture;
        QPainter painter(&picture);
        chart.PaintOnto(painter, QRectF(0, 0, 100, 100));
        painter.end();
        QVERIFY(picture.boundingRect().isEmpty());
        const QTemporaryDir folder;
        const std::string path = folder.filePath("none").toStdString();
        QVERIFY(chart.ExportMetafile(kMetafileSize, path) == ks::WriteResult::NotOpened);
        QVERIFY(chart.ExportBitmap(kBitmapSize, path) == ks::WriteResult::NotOpened);
        QVERIFY(!QFile::exists(folder.filePath("none")));
    }

    void theBitmapIsEightHundredBySixHundredOnWhite() {
        ShowThick(FlatPage(2));
        const QTemporaryDir folder;
        const QString path = folder.filePath("chart.bmp");
        QVERIFY(m_chart->ExportBitmap(kBitmapSize, path.toStdString()) == ks::WriteResult::Written);
        QCOMPARE(FileBytes(path).left(2), QByteArray("BM"));
        const QImage image = QImage(path).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(image.size(), QSize(800, 600));
        QCOMPARE(image.pixel(1, 1), qRgb(255, 255, 255));
        for (std::size_t series = 0; series < 2; ++series)
            QVERIFY(BoxOfColour(image, SeriesColour(series), QRect(100, 20, 480, 545)).width() > 400);
    }

    void theBitmapOfADarkChartIsOnWhite() {
        Show(FlatPage(1));
        QPalette dark;
        dark.setColor(QPalette::Base, Qt::black);
        dark.setColor(QPalette::Text, Qt::white);
        m_window->setPalette(dark);
        const QTemporaryDir folder;
        const QString path = folder.filePath("chart.bmp");
        QVERIFY(m_chart->ExportBitmap(kBitmapSize, path.toStdString()) == ks::WriteResult::Written);
        QCOMPARE(QImage(path).pixel(1, 1), qRgb(255, 255, 255));
    }

    void theMetafileHoldsCurvesTitlesAndLegend() {
        CSamplePage page = FlatPage(3);
        page.block.xTitle = "Time (seconds)";
        page.block.yTitle = "Residual";
        Show(page);
        const CWmfPicture picture = ExportedMetafile();
        QCOMPARE(picture.fault, std::string());
        QCOMPARE(picture.width, 10000);
        QCOMPARE(picture.height, 5000);
        for (const char* text : {"Time (seconds)", "Residual", "Reference", "v01001aa0.001", "v01002aa0.001"})
            QVERIFY2(picture.HasText(text), text);
        QVERIFY(picture.HasText("5.5"));
        for (const CReadText& text : picture.texts) QCOMPARE(text.tenthsOfDegree, text.bytes == "Residual" ? 900 : 0);
        for (std::size_t series = 1; series < 3; ++series)
            QVERIFY(picture.PointsOfColour(LookOfLine(0, series, ChartBackground::Light).rgb) > 100);
    }

    void theMetafileShowsTheZoomedPartOnly() {
        ShowThick(SamplePage(2, 2001, 5.0, 6.0, [](int series, double x) { return series * 100.0 * (x - 5.5); }));
        Wheel(8, kMiddle);
        const CWmfPicture picture = ExportedMetafile();
        QCOMPARE(picture.fault, std::string());
        QVERIFY(!picture.HasText("6"));
        // The curve ends at the frame, whose lines are black as the reference's are.
        const auto isFrame = [](const CReadLine& line) { return line.rgb == 0 && line.points.front().x < 8000; };
        CWmfPlace low{10000, 5000};
        CWmfPlace high{0, 0};
        for (const CReadLine& line : picture.lines)
            for (const CWmfPlace& place : line.points) {
                if (!isFrame(line)) continue;
                low = {std::min(low.x, place.x), std::min(low.y, place.y)};
                high = {std::max(high.x, place.x), std::max(high.y, place.y)};
            }
        std::size_t curvePoints = 0;
        for (const CReadLine& line : picture.lines)
            for (const CWmfPlace& place : line.points) {
                if (line.rgb != LookOfLine(6, 1, ChartBackground::Light).rgb || place.x > 8100) continue;
                ++curvePoints;
                QVERIFY(place.x >= low.x && place.x <= high.x && place.y >= low.y && place.y <= high.y);
            }
        QVERIFY(curvePoints > 50);
        QVERIFY(high.x < 8500 && high.y < 4900);
    }

    void theMetafileOfLongCurvesStaysSmall() {
        Show(PulsePage(6, 20000));
        QVERIFY(ExportedMetafileBytes().size() < 1000000);
        QCOMPARE(ReadWmf(ExportedMetafileBytes().toStdString()).fault, std::string());
    }

    void aFileThatCannotBeOpenedIsReported() {
        Show(FlatPage(1));
        const QTemporaryDir folder;
        const std::string path = folder.filePath("missing/chart.wmf").toStdString();
        QVERIFY(m_chart->ExportMetafile(kMetafileSize, path) == ks::WriteResult::NotOpened);
        QVERIFY(m_chart->ExportBitmap(kBitmapSize, path) == ks::WriteResult::NotOpened);
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
        QVERIFY(picture.PointsOfColour(LookOfLine(6, 1, ChartBackground::Light).rgb) > 100);
        int right = 0;
        for (const CReadLine& line : picture.lines)
            for (const CWmfPlace& place : line.points) {
                QVERIFY(place.x >= 1000 && place.x <= 9000 && place.y >= 2000 && place.y <= 6000);
                right = std::max(right, place.x);
            }
        QVERIFY(right > 7000);
        // Thirteen pixels of 1/96 inch at 1440 units an inch.
        for (const CReadText& text : picture.texts) QVERIFY(Near(-text.height, 195.0, 5.0));
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
        CQCustomPlotChart chart;
        CLineStyles styles;
        const CSamplePage page = FlatPage(2);
        ShowChart(chart, nullptr, kBitmapSize, page.block, page.names, styles);
        QVERIFY(!chart.Widget()->isVisible());
        const QTemporaryDir folder;
        const QString path = folder.filePath("chart.wmf");
        QVERIFY(chart.ExportMetafile(kMetafileSize, path.toStdString()) == ks::WriteResult::Written);
        QVERIFY(ReadWmf(FileBytes(path).toStdString()).HasText("v01001aa0.001"));
    }

    /// The frame of some styles fills the whole chart with a tint.
    void theFocusIsAThinFrameInTheHighlightColour() {
        ShowThick(FlatPage(2));
        QPalette palette = m_window->palette();
        palette.setColor(QPalette::Highlight, QColor(200, 0, 100));
        m_window->setPalette(palette);
        QWidget& chart = *m_chart->Widget();
        const QImage without = Picture();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        chart.setFocus();
        QVERIFY(chart.hasFocus());
        const QImage with = Picture();
        for (int y = 0; y < with.height(); ++y) {
            for (int x = 0; x < with.width(); ++x) {
                const bool isEdge = !with.rect().adjusted(1, 1, -1, -1).contains(x, y);
                const QRgb expected = isEdge ? QColor(200, 0, 100).rgb() : without.pixel(x, y);
                if (with.pixel(x, y) != expected) QFAIL(qPrintable(QString("%1, %2").arg(x).arg(y)));
            }
        }
        QCOMPARE(QColor(with.pixel(with.rect().center())), QColor(Qt::white));
    }

private:
    static QStringList Texts(const CWmfPicture& picture) {
        QStringList texts;
        for (const CReadText& text : picture.texts) texts.append(QString::fromLatin1(text.bytes.c_str()));
        return texts;
    }

    void CheckLegendEnd(const QPoint& firstEntry) {
        for (int page = 0; page < 20; ++page) QTest::keyClick(m_chart->Widget(), Qt::Key_PageDown);
        const QString last = ToolTipAt(firstEntry);
        QTest::keyClick(m_chart->Widget(), Qt::Key_PageDown);
        QCOMPARE(ToolTipAt(firstEntry), last);
        QVERIFY(!last.isEmpty());
    }

    [[nodiscard]] QByteArray ExportedMetafileBytes() const {
        const QTemporaryDir folder;
        const QString path = folder.filePath("chart.wmf");
        if (m_chart->ExportMetafile(kMetafileSize, path.toStdString()) != ks::WriteResult::Written) return {};
        return FileBytes(path);
    }

    [[nodiscard]] CWmfPicture ExportedMetafile() const { return ReadWmf(ExportedMetafileBytes().toStdString()); }

    std::unique_ptr<CWindow> m_window;
    std::unique_ptr<CQCustomPlotChart> m_chart;
};

QTEST_MAIN(QCustomPlotChartTest)
#include "qcustomplot_chart_test.moc"
