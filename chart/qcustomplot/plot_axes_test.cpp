
#include "chart/testing/chart_files.h"
#include "chart/testing/chart_window.h"
#include "chart/testing/sample_blocks.h"
#include "chart/testing/wmf_reader.h"

#include <QEvent>
#include <QImage>
#include <QLocale>
#include <QPointF>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>

/// Zoom, pan and readout, by wheel, mouse and keys.
class PlotAxesTest : public CChartWindowTest {
    Q_OBJECT

private slots:
    void cleanup() { Close(); }

    void theFirstLooksShowAllTheData() {
        ShowThick(FlatPage(3));
        CheckAllShown();
    }

    void aPageWithoutPointsHasAxesFromZeroToOne() {
        CSamplePage page = FlatPage(1);
        PadEnd(page.block, 0, page.block.pointCount);
        ShowThick(page);
        const QPointF origin = PlaceOf({0.0, 0.0});
        QVERIFY(origin.x() > 20.0 && origin.x() < 120.0);
        QVERIFY(origin.y() > 400.0 && origin.y() < 480.0);
    }

    void theWheelZoomsAtThePointer() {
        ShowThick(FlatPage(3));
        const QPointF at(200, 300);
        const QPointF before = DataAt(at);
        const QPointF resolution = Resolution();
        Wheel(1, at);
        const QPointF after = DataAt(at);
        // Longer tick labels may push the axes a few pixels to the right.
        QVERIFY(IsNear(after.x(), before.x(), 8.0 * resolution.x()) && IsNear(after.y(), before.y(), resolution.y()));
        QVERIFY(IsNear(Resolution().x() / resolution.x(), 0.8, 2e-2));
        QVERIFY(IsNear(Resolution().y() / resolution.y(), 0.8, 1e-2));
        Wheel(-1, at);
        QVERIFY(IsNear(Resolution().x() / resolution.x(), 1.0, 1e-2));
    }

    void draggingMovesTheDataWithThePointer() {
        ShowThick(FlatPage(3));
        Wheel(5, kMiddle);
        const QPointF before = DataAt(kMiddle);
        QTest::mousePress(&Plot(), Qt::LeftButton, {}, kMiddle.toPoint());
        Move(kMiddle + QPointF(-60, 40), Qt::LeftButton);
        QTest::mouseRelease(&Plot(), Qt::LeftButton, {}, (kMiddle + QPointF(-60, 40)).toPoint());
        const QPointF after = DataAt(kMiddle + QPointF(-60, 40));
        QVERIFY(IsNear(after.x(), before.x(), 2e-3));
        QVERIFY(IsNear(after.y(), before.y(), 5e-3));
    }

    void aDoubleClickShowsAllAgain() {
        ShowThick(FlatPage(3));
        Wheel(7, kMiddle);
        DoubleClick();
        CheckAllShown();
    }

    void keysZoomAndReset() {
        ShowThick(FlatPage(3));
        const QPointF resolution = Resolution();
        for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Equal}) {
            QTest::keyClick(&Plot(), key);
            QVERIFY(IsNear(Resolution().x() / resolution.x(), 0.8, 1e-2));
            QTest::keyClick(&Plot(), Qt::Key_Minus);
            QVERIFY(IsNear(Resolution().x() / resolution.x(), 1.0, 1e-2));
        }
        for (const Qt::Key key : {Qt::Key_0, Qt::Key_Home}) {
            Wheel(7, kMiddle);
            QTest::keyClick(&Plot(), key);
            CheckAllShown();
        }
    }

    void arrowKeysPan() {
        ShowThick(FlatPage(3));
        Wheel(5, kMiddle);
        const QPointF start = DataAt(kMiddle);
        QTest::keyClick(&Plot(), Qt::Key_Right);
        QTest::keyClick(&Plot(), Qt::Key_Up);
        const QPointF moved = DataAt(kMiddle);
        QVERIFY(moved.x() > start.x() && moved.y() > start.y());
        QTest::keyClick(&Plot(), Qt::Key_Left);
        QTest::keyClick(&Plot(), Qt::Key_Down);
        QVERIFY(IsNear(DataAt(kMiddle).x(), start.x(), 1e-3) && IsNear(DataAt(kMiddle).y(), start.y(), 1e-3));
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
        m_readouts.clear();
        Move({5, 5});
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&Plot(), &leave);
        QCOMPARE(m_readouts, QStringList({QString(), QString()}));
    }

    /// They used to follow the user's locale, unlike the table.
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
        QStringList labels;
        for (const CReadText& text : ExportedMetafile(*m_chart).texts)
            labels.append(QString::fromLatin1(text.bytes.c_str()));
        QVERIFY2(labels.contains("12345.5") && labels.contains(QString("1") + QChar(0xD7) + "10"),
                 qPrintable(labels.join('|')));
        static const QRegularExpression form("^X: 12345\\.\\d+   Y: -?\\d(\\.\\d+)?e\\+3[78]$");
        const QString readout = ReadoutAt({300, 200});
        QVERIFY2(form.match(readout).hasMatch(), qPrintable(readout));
    }

    void theReadoutEndsWithTheChart() {
        Show(FlatPage(1));
        m_readouts.clear();
        Move(kMiddle);
        m_chart->Destroy();
        QCOMPARE(m_readouts.size(), 2);
        QVERIFY(m_readouts[0].startsWith("X: "));
        QCOMPARE(m_readouts[1], QString());
    }
};

QTEST_MAIN(PlotAxesTest)
#include "plot_axes_test.moc"
