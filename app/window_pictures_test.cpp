// The chart on the clipboard and as a picture.

#include "app/commands.h"
#include "app/testing/exports_test.h"
#include "chart/testing/wmf_reader.h"

#include <QClipboard>
#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <QSet>

#include <cstddef>
#include <string>

class CWindowPicturesTest : public CExportsTest {
    Q_OBJECT

private slots:
    void init() { OpenWithSled(); }
    void cleanup() { CloseWindow(); }

    // Clipboard.

    void CopyOffersTheChartAsMetafileAndAsPicture() {
        m_window->ChoosePage("Velocity");
        Trigger(CCommandId::Copy);
        const QMimeData& data = *QGuiApplication::clipboard()->mimeData();
        QVERIFY(data.hasImage());
        QVERIFY(!data.imageData().value<QImage>().isNull());
        for (const char* const format :
             {"image/x-wmf", "application/x-openoffice-wmf;windows_formatname=\"Image WMF\""}) {
            QVERIFY2(data.hasFormat(format), format);
            CheckMetafile(data.data(format));
        }
        QCOMPARE(m_window->StatusText(), QString("The plot was copied to the clipboard."));
    }

    void CopyWithoutAChartLeavesTheClipboardAlone() {
        QGuiApplication::clipboard()->setText("untouched");
        Trigger(CCommandId::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("untouched"));
    }

    // Pictures.

    void BmpWritesABitmapOf800By600() {
        m_window->ChoosePage("Velocity");
        const QString path = Save(CCommandId::SaveBmp, "plot.bmp");
        CheckSaveRequest("Save Bitmap as", {"Windows Bitmap(*.bmp)|*.bmp", "All Files (*.*)|*.*"});
        QCOMPARE(QImageReader(path).format(), QByteArray("bmp"));
        const QImage image(path);
        QCOMPARE(image.size(), QSize(800, 600));
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
        QSet<QRgb> colors;
        for (int y = 0; y < 600; ++y) {
            for (int x = 0; x < 800; ++x) colors.insert(image.pixel(x, y));
        }
        QVERIFY(colors.size() > 10);  // four curves, axes and letters, smoothed
        QCOMPARE(m_window->StatusText(), "The plot was saved as " + path + ".");
    }

    void WmfWritesAMetafileOf10000By5000() {
        m_window->ChoosePage("Velocity");
        const QString path = Save(CCommandId::SaveWmf, "plot.wmf");
        CheckSaveRequest("Save Metafile as", {"Windows Metafile(*.wmf)|*.wmf", "All Files (*.*)|*.*"});
        CheckMetafile(Bytes(path));
        QCOMPARE(m_window->StatusText(), "The plot was saved as " + path + ".");
    }

    void TheNextPictureStartsInTheFolderOfTheLast() {
        m_window->ChoosePage("Velocity");
        QVERIFY(QDir(m_window->folder.path()).mkdir("plots"));
        Save(CCommandId::SaveBmp, "plots/plot.bmp");
        Save(CCommandId::SaveWmf, "plots/plot.wmf");
        QCOMPARE(m_window->picker.requests.back().folder, Folder("plots/").toStdString());
    }

    void APictureThatCannotBeWrittenIsReported_data() {
        QTest::addColumn<int>("id");
        QTest::newRow("bmp") << CommandNumber(CCommandId::SaveBmp);
        QTest::newRow("wmf") << CommandNumber(CCommandId::SaveWmf);
    }
    void APictureThatCannotBeWrittenIsReported() {
        QFETCH(int, id);
        m_window->ChoosePage("Velocity");
        const QString path = Save(static_cast<CCommandId>(id), "no such folder/plot");
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|The plot could not be written to " + path + "."}));
    }

private:
    /// The velocity page as a metafile: sound, of the agreed size, with titles, legend and four curves.
    static void CheckMetafile(const QByteArray& bytes) {
        const CWmfPicture picture = ReadWmf({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        QCOMPARE(picture.fault, std::string());
        QCOMPARE(picture.width, 10000);
        QCOMPARE(picture.height, 5000);
        for (const char* const text :
             {"Time (seconds)", "Velocity (kmph)", "Reference", "s01002aa0.001", "s01003aa0.001", "s01004aa0.001"}) {
            QVERIFY2(picture.HasText(text), text);
        }
        std::size_t points = 0;
        for (const CReadLine& line : picture.lines) points += line.points.size();
        QVERIFY(points > 1000);
    }
};

QTEST_MAIN(CWindowPicturesTest)
#include "window_pictures_test.moc"
