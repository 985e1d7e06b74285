#include "chart/metafile/metafile_device.h"

#include "chart/testing/wmf_reader.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QTest>

#include <cmath>
#include <vector>

/// What a painter draws arrives in the metafile; each test paints and reads back.
class MetafileDeviceTest : public QObject {
    Q_OBJECT

    template <class Paint>
    static CWmfPicture Painted(Paint paint) {
        CMetafileDevice device({1000, 500});
        {
            QPainter painter(&device);
            QFont font("Liberation Sans");
            font.setPixelSize(40);
            painter.setFont(font);
            paint(painter);
        }
        return ReadWmf(device.Finish());
    }

    static QPen Pen(double width, Qt::PenStyle style = Qt::SolidLine) {
        return {QColor(10, 20, 30), width, style, Qt::FlatCap};
    }

private slots:
    void hasTheSizeItWasGiven() {
        const CWmfPicture picture = Painted([](QPainter&) {});
        QCOMPARE(picture.fault, std::string());
        QCOMPARE(picture.width, 1000);
        QCOMPARE(picture.height, 500);
        QCOMPARE(picture.unitsPerInch, 1440);
    }

    void aLineKeepsItsEndsWidthAndColor() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            painter.setPen(Pen(7.0));
            painter.drawLine(QLineF(10, 20, 300, 400));
        });
        QCOMPARE(picture.fault, std::string());
        QCOMPARE(picture.lines.size(), 1U);
        QVERIFY((picture.lines[0].points == std::vector<CWmfPlace>{{10, 20}, {300, 400}}));
        QCOMPARE(picture.lines[0].penWidth, 7);
        QCOMPARE(picture.lines[0].rgb, 0x0A141EU);
    }

    void theTransformAppliesToPlacesAndWidths() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            painter.translate(100, 50);
            painter.scale(2.0, 2.0);
            painter.setPen(Pen(3.0));
            painter.drawLine(QLineF(0, 0, 10, 20));
        });
        QVERIFY((picture.lines.at(0).points == std::vector<CWmfPlace>{{100, 50}, {120, 90}}));
        QCOMPARE(picture.lines[0].penWidth, 6);
    }

    void linesStayInsideTheClip() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            painter.setPen(Pen(1.0));
            painter.setClipRect(QRectF(100, 100, 200, 100));
            painter.drawLine(QLineF(0, 150, 1000, 150));
        });
        QVERIFY((picture.lines.at(0).points == std::vector<CWmfPlace>{{100, 150}, {300, 150}}));
    }

    void clipsNestAndAreRestored() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            const QLineF line(0, 150, 1000, 150);
            painter.setPen(Pen(1.0));
            painter.setClipRect(QRect(100, 100, 200, 100));
            painter.save();
            painter.translate(50, 0);
            painter.setClipRect(QRect(0, 0, 100, 500), Qt::IntersectClip);
            painter.drawLine(line);
            painter.restore();
            painter.drawLine(line);
            painter.setClipping(false);
            painter.drawLine(line);
        });
        QCOMPARE(picture.lines.size(), 3U);
        QVERIFY((picture.lines[0].points == std::vector<CWmfPlace>{{100, 150}, {150, 150}}));
        QVERIFY((picture.lines[1].points == std::vector<CWmfPlace>{{100, 150}, {300, 150}}));
        QVERIFY((picture.lines[2].points == std::vector<CWmfPlace>{{0, 150}, {1000, 150}}));
    }

    void nothingLeavesThePicture() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            painter.setPen(Pen(1.0));
            painter.setBrush(Qt::red);
            painter.drawLine(QLineF(-1e7, -1e7, 1e7, 1e7));
            painter.drawRect(QRectF(-500, -500, 5000, 5000));
        });
        QCOMPARE(picture.fault, std::string());
        QCOMPARE(picture.lines.size(), 1U);
        QCOMPARE(picture.areas.size(), 1U);
    }

    void dashesBecomeShortLinesOfTheirPattern() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            QPen pen = Pen(10.0);
            pen.setDashPattern({4.0, 2.0});
            painter.setPen(pen);
            painter.drawLine(QLineF(0, 100, 600, 100));
        });
        // 600 units hold ten times 40 of line and 20 of blank. The round ends of a metafile's pen add half a width on
        // both sides, so each stroke is one width shorter.
        QCOMPARE(picture.lines.size(), 10U);
        QVERIFY((picture.lines[0].points == std::vector<CWmfPlace>{{0, 100}, {30, 100}}));
        QVERIFY((picture.lines[1].points == std::vector<CWmfPlace>{{60, 100}, {90, 100}}));
    }

    void anAreaIsFilledWithoutAnOutline() {
        const CWmfPicture picture =
            Painted([](QPainter& painter) { painter.fillRect(10, 20, 30, 40, QColor(1, 2, 3)); });
        QCOMPARE(picture.fault, std::string());
        QCOMPARE(picture.areas.size(), 1U);
        QCOMPARE(picture.areas[0].rgb, 0x010203U);
        QCOMPARE(picture.areas[0].outlines.at(0).size(), 4U);
        QVERIFY(picture.lines.empty());
    }

    void aPolygonIsClosed() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            painter.setPen(Pen(1.0));
            painter.drawPolygon(QPolygonF({{0, 0}, {100, 0}, {100, 100}}));
        });
        QVERIFY((picture.lines.at(0).points == std::vector<CWmfPlace>{{0, 0}, {100, 0}, {100, 100}, {0, 0}}));
    }

    void aCurveOfAPathIsFollowed() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            painter.setPen(Pen(1.0));
            painter.drawEllipse(QPointF(500, 250), 200.0, 200.0);
        });
        QVERIFY(picture.lines.at(0).points.size() > 20);
        for (const CWmfPlace& place : picture.lines[0].points)
            QVERIFY(std::abs(std::hypot(place.x - 500, place.y - 250) - 200.0) < 1.5);
    }

    void aTextKeepsPlaceSizeColorAndWidth() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            painter.setPen(QColor(200, 100, 50));
            painter.drawText(QPointF(120, 230), "Time (seconds)");
        });
        QCOMPARE(picture.fault, std::string());
        QCOMPARE(picture.texts.size(), 1U);
        const CReadText& text = picture.texts[0];
        QCOMPARE(text.bytes, std::string("Time (seconds)"));
        QVERIFY((text.baseline == CWmfPlace{120, 230}));
        QCOMPARE(text.height, -40);
        QCOMPARE(text.rgb, 0xC86432U);
        QCOMPARE(text.tenthsOfDegree, 0);
        QFont font("Liberation Sans");
        font.setPixelSize(40);
        const double width = QFontMetricsF(font).horizontalAdvance("Time (seconds)");
        QVERIFY(std::abs(text.advance - width) <= 1.0);
    }

    void aTextTurnsWithThePainter() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            painter.translate(40, 400);
            painter.rotate(-90);
            painter.drawText(QPointF(0, 0), "Residual");
        });
        QCOMPARE(picture.texts.at(0).tenthsOfDegree, 900);
        QVERIFY((picture.texts[0].baseline == CWmfPlace{40, 400}));
    }

    void boldAndItalicLettersAreKept() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            QFont font = painter.font();
            font.setBold(true);
            font.setItalic(true);
            painter.setFont(font);
            painter.drawText(QPointF(10, 100), "Title");
        });
        QVERIFY(picture.texts.at(0).isBold);
        QVERIFY(picture.texts[0].isItalic);
    }

    void westernLettersStayText() {
        const CWmfPicture picture =
            Painted([](QPainter& painter) { painter.drawText(QPointF(10, 100), QString::fromUtf8("\u00e4\u00d7")); });
        QVERIFY(picture.HasText("\xE4\xD7"));
    }

    void otherLettersAreDrawnAsAreas() {
        const CWmfPicture picture =
            Painted([](QPainter& painter) { painter.drawText(QPointF(10, 100), QString::fromUtf8("\u03bb")); });
        QCOMPARE(picture.fault, std::string());
        QVERIFY(picture.texts.empty());
        QCOMPARE(picture.areas.size(), 1U);
    }

    void imagesAreLeftOut() {
        const CWmfPicture picture = Painted([](QPainter& painter) {
            QPixmap pixmap(10, 10);
            pixmap.fill(Qt::red);
            painter.drawPixmap(5, 5, pixmap);
        });
        QCOMPARE(picture.fault, std::string());
        QVERIFY(picture.areas.empty() && picture.lines.empty());
    }
};

QTEST_MAIN(MetafileDeviceTest)
#include "metafile_device_test.moc"
