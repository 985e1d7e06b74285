
#include "chart/testing/chart_window.h"
#include "chart/testing/sample_blocks.h"

#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>
#include <QTest>

#include <cstddef>
#include <limits>

/// The curves as the user sees them: pixels in their colors.
class PlotCurvesTest : public CChartWindowTest {
    Q_OBJECT

private slots:
    void cleanup() { Close(); }

    void everySeriesIsDrawnAtItsValuesInItsColor() {
        ShowThick(FlatPage(3));
        const QImage image = Picture();
        for (std::size_t series = 0; series < 3; ++series) {
            const QRect box = BoxOfColor(image, SeriesColor(series), kInsideFrame);
            QVERIFY(box.isValid());
            const double y = PlaceOf({5.5, static_cast<double>(series) + 1.0}).y();
            QVERIFY(IsNear(box.center().y(), y, 2.0));
            QVERIFY(box.height() <= 4);
            QVERIFY(box.width() > 450);
        }
    }

    void thePaddingOfAShorterSeriesIsNotDrawn() {
        CSamplePage page = FlatPage(2);
        PadEnd(page.block, 1, 50);
        ShowThick(page);
        const QImage image = Picture();
        const double middle = PlaceOf({5.5, 1.0}).x();
        const QRect whole = BoxOfColor(image, SeriesColor(0), kInsideFrame);
        const QRect half = BoxOfColor(image, SeriesColor(1), CurveArea());
        QVERIFY(whole.right() > middle + 100.0);
        QVERIFY(half.isValid());
        QVERIFY(half.right() <= middle + 2.0);
        const QPointF start = PlaceOf({5.0, 1.0});  // the padding's own x, almost 0, is not shown
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
        QVERIFY(BoxOfColor(
                    image, SeriesColor(0),
                    QRect(QPoint(static_cast<int>(from.x()) + 1, y - 10), QPoint(static_cast<int>(to.x()) - 1, y + 10)))
                    .isNull());
        QVERIFY(BoxOfColor(image, SeriesColor(0), QRect(static_cast<int>(to.x()) + 10, y - 10, 20, 20)).isValid());
        const QPointF infinite = PlaceOf({5.205, 1.0});
        QVERIFY(BoxOfColor(image, SeriesColor(0), QRect(static_cast<int>(infinite.x()) - 1, y - 10, 3, 20)).isNull());
    }

    void aSeriesThatRunsBackwardsIsDrawn() {
        ShowThick(SamplePage(1, 101, 6.0, 5.0, [](int, double) { return 1.0; }));
        const QRect box = BoxOfColor(Picture(), SeriesColor(0), kInsideFrame);
        QVERIFY(box.width() > 450);
    }

    void aSinglePointIsSeen() {
        ShowThick(SamplePage(1, 1, 5.0, 5.0, [](int, double) { return 1.0; }));
        const QPointF place = PlaceOf({5.0, 1.0});
        const QRect around(place.toPoint() - QPoint(6, 6), QSize(13, 13));
        QVERIFY(BoxOfColor(Picture(), SeriesColor(0), around).isValid());
    }
};

QTEST_MAIN(PlotCurvesTest)
#include "plot_curves_test.moc"
