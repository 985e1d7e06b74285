#include "chart/qcustomplot/qcustomplot_chart.h"

#include "chart/chart_control.h"
#include "chart/chart_sequences.h"
#include "chart/line_look.h"
#include "chart/make_chart.h"
#include "chart/testing/chart_window.h"
#include "chart/testing/sample_blocks.h"
#include "files/replacing_file.h"

#include <QColor>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QHelpEvent>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPicture>
#include <QPoint>
#include <QRect>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>

#include <memory>
#include <string>

/// The chart as a whole: its lifetime, its looks, and what it reports.
class QCustomPlotChartTest : public CChartWindowTest {
    Q_OBJECT

    QString ToolTipAt(const QPoint& place) {
        QHelpEvent help(QEvent::ToolTip, place, Plot().mapToGlobal(place));
        QCoreApplication::sendEvent(&Plot(), &help);
        return QToolTip::text();
    }

    void CheckLegendEnd(const QPoint& firstEntry) {
        for (int page = 0; page < 20; ++page) QTest::keyClick(&Plot(), Qt::Key_PageDown);
        const QString last = ToolTipAt(firstEntry);
        QTest::keyClick(&Plot(), Qt::Key_PageDown);
        QCOMPARE(ToolTipAt(firstEntry), last);
        QVERIFY(!last.isEmpty());
    }

private slots:
    void cleanup() { Close(); }

    void titlesAndNamesAreToldToScreenReaders() {
        CSamplePage page = FlatPage(2);
        page.block.xTitle = "Time (seconds)";
        page.block.yTitle = "Residual";
        Show(page);
        QCOMPARE(Plot().accessibleName(), "Chart");
        QCOMPARE(Plot().accessibleDescription(), "Residual over Time (seconds). Curves: Reference, v01001aa0.001");
    }

    void theChartFollowsItsParentsSize() {
        Show(FlatPage(1));
        ResizeChart(*m_chart, {640, 400});
        QCOMPARE(Plot().geometry(), QRect(0, 0, 640, 400));
        QCOMPARE(Plot().parentWidget(), m_window.get());
    }

    void theChartFollowsThePalette() {
        ShowThick(FlatPage(2));
        QPalette dark;
        dark.setColor(QPalette::Base, QColor(30, 30, 30));
        dark.setColor(QPalette::Text, QColor(235, 235, 235));
        m_window->setPalette(dark);
        const QImage image = Picture();
        QCOMPARE(image.pixel(2, 2), qRgb(30, 30, 30));
        QVERIFY(BoxOfColor(image, SeriesColor(1, CChartBackground::Dark), CurveArea()).isValid());
        QVERIFY(BoxOfColor(image, SeriesColor(1, CChartBackground::Light), CurveArea()).isNull());
    }

    void theContextMenuReachesTheParent() {
        Show(FlatPage(1));
        QContextMenuEvent menu(QContextMenuEvent::Mouse, kMiddle.toPoint(), kMiddle.toPoint());
        QCoreApplication::sendEvent(&Plot(), &menu);
        QCOMPARE(m_window->contextMenus, 1);
    }

    void theLegendTellsWholeNamesAndScrolls() {
        Show(FlatPage(300));
        const QPoint firstEntry(Plot().width() - 60, 18);
        const QString before = ToolTipAt(firstEntry);
        QVERIFY2(before.startsWith("v01"), qPrintable(before));
        QTest::keyClick(&Plot(), Qt::Key_PageDown);
        const QString after = ToolTipAt(firstEntry);
        QVERIFY2(after.startsWith("v01") && after > before, qPrintable(after));
        QTest::keyClick(&Plot(), Qt::Key_PageUp);
        QCOMPARE(ToolTipAt(firstEntry), before);
        Wheel(-1, firstEntry);
        QCOMPARE(ToolTipAt(firstEntry), after);
        CheckLegendEnd(firstEntry);
    }

    void aNewChartTakesTheOldOnesPlace() {
        Show(FlatPage(2));
        ShowAgain(FlatPage(1));
        QCOMPARE(m_window->findChildren<QWidget*>("chart").size(), 1);
        QCOMPARE(Plot().accessibleDescription(), " over . Curves: Reference");
    }

    void destroyingLeavesNothing() {
        Show(FlatPage(2));
        m_chart->Destroy();
        QVERIFY(!m_chart->Exists());
        QVERIFY(m_window->findChildren<QWidget*>("chart").isEmpty());
    }

    void theChartGoesWithItsParent() {
        Show(FlatPage(2));
        m_window.reset();
        QVERIFY(!m_chart->Exists());
    }

    void withoutAChartNothingHappens() {
        const std::unique_ptr<CChartControl> chart = MakeChartControl();
        chart->Apply();
        chart->Draw(0, 0);
        chart->Resized(10, 10);
        chart->CopyMetafile(kMetafileSize);
        QPicture picture;
        QPainter painter(&picture);
        chart->PaintOnto(painter, QRectF(0, 0, 100, 100));
        painter.end();
        QVERIFY(picture.boundingRect().isEmpty());
        const QTemporaryDir folder;
        const std::string path = folder.filePath("none").toStdString();
        QVERIFY(chart->ExportMetafile(kMetafileSize, path) == ks::CWriteResult::NotOpened);
        QVERIFY(chart->ExportBitmap(kBitmapSize, path) == ks::CWriteResult::NotOpened);
        QVERIFY(!QFile::exists(folder.filePath("none")));
    }

    /// The focus frame of some styles filled the whole chart with a tint.
    void theFocusIsAThinFrameInTheHighlightColor() {
        ShowThick(FlatPage(2));
        QPalette palette = m_window->palette();
        palette.setColor(QPalette::Highlight, QColor(200, 0, 100));
        m_window->setPalette(palette);
        QWidget& chart = Plot();
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
};

QTEST_MAIN(QCustomPlotChartTest)
#include "qcustomplot_chart_test.moc"
