#include "app/resources.h"

#include "app/testing/contrast.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <cstddef>
#include <set>
#include <vector>

namespace {

const QStringList kCommands = {"select-files",      "save-bmp",      "save-wmf",        "save-html", "save-uds",
                               "save-ascii",        "copy",          "copy-data",       "print",     "print-direct",
                               "uds-specification", "corridor-size", "critical-values", "about"};

QImage Drawn(const QString& name, int size) {
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    CommandIcon(name).paint(&painter, image.rect());
    return image;
}

/// The colors of the pixels that are at least half covered.
std::vector<QColor> Colors(const QImage& image) {
    std::vector<QColor> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() >= 128) colors.push_back(color);
        }
    }
    return colors;
}

}  // namespace

class CResourcesTest : public QObject {
    Q_OBJECT

private slots:
    void TheApplicationHasAnIcon() { QVERIFY(!ApplicationIcon().pixmap(64, 64).isNull()); }

    void AnUnknownCommandHasNoIcon() {
        QVERIFY(CommandIcon("none").isNull());
        QVERIFY(CommandIcon("").isNull());
    }

    void TheIconsAreLegibleOnLightAndDark_data() {
        QTest::addColumn<QString>("name");
        for (const QString& name : kCommands) QTest::newRow(qPrintable(name)) << name;
    }
    void TheIconsAreLegibleOnLightAndDark() {
        QFETCH(QString, name);
        QVERIFY(!CommandIcon(name).isNull());
        for (const int size : {16, 24, 32, 64}) {
            const std::vector<QColor> colors = Colors(Drawn(name, size));
            QVERIFY(colors.size() > static_cast<std::size_t>(size * size / 10));
            for (const QColor& color : colors) {
                QVERIFY(Contrast(color, Qt::white) >= 3.0);
                QVERIFY(Contrast(color, QColor(45, 45, 45)) >= 3.0);
            }
        }
    }

    void NoTwoCommandsLookAlike() {
        std::set<QByteArray> pictures;
        for (const QString& name : kCommands) {
            const QImage image = Drawn(name, 16);
            pictures.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
        }
        QCOMPARE(pictures.size(), static_cast<std::size_t>(kCommands.size()));
    }
};

QTEST_MAIN(CResourcesTest)
#include "resources_test.moc"
