// What the main window exports: the clipboard, pictures, reports, signals and tables.

#include <QClipboard>
#include <QHeaderView>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/commands.h"
#include "app/dialogs/file_picker.h"
#include "app/table/summary_model.h"
#include "app/testing/control_ids.h"
#include "app/testing/widget_probe.h"
#include "app/testing/window_test.h"
#include "chart/testing/wmf_reader.h"
#include "compare/document.h"
#include "compare/export.h"
#include "compare/setting_keys.h"
#include "compare/verdict.h"
#include "files/replacing_file.h"
#include "signal/nsignal.h"
#include "tests/support/failing_flush.h"
#include "tests/support/temp_folder.h"

namespace {

constexpr const char* kUdsFolder = "Settings/UdsOutputDir";
constexpr const char* kAsciiFolder = "Settings/AsciiOutputDir";

QStringList FilterTexts(const ks::CFileRequest& request) {
    QStringList texts;
    for (const ks::CFileFilter& filter : request.filters) {
        texts.append(QString::fromStdString(filter.text + "|" + filter.pattern));
    }
    return texts;
}

bool AreClose(double actual, double expected) {
    return std::abs(actual - expected) <= 1e-6 * std::max(1.0, std::abs(expected));
}

/// Number of points in which two columns differ; -1 for columns of different lengths.
int Differences(const std::vector<double>& actual, const std::vector<double>& expected) {
    if (actual.size() != expected.size()) return -1;
    int count = 0;
    for (std::size_t i = 0; i < actual.size(); ++i) count += AreClose(actual[i], expected[i]) ? 0 : 1;
    return count;
}

}  // namespace

class CWindowExportsTest : public CWindowTest {
    Q_OBJECT

private slots:
    void init() {
        OpenWindow();
        m_window->CompareSled();
    }
    void cleanup() { CloseWindow(); }

    // Clipboard.

    void CopyDataPutsTheTableOnTheClipboardAsItIsShown() {
        m_window->List()->horizontalHeader()->moveSection(2, 0);
        Trigger(CCommandId::CopyData);
        const QMimeData& data = *QGuiApplication::clipboard()->mimeData();
        QVERIFY(data.hasText());
        QString expected;
        const QAbstractItemModel& model = *m_window->List()->model();
        for (int row = -1; row < model.rowCount(); ++row) {
            QStringList cells;
            for (const int column : {2, 0, 1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}) {
                cells.append(row < 0 ? model.headerData(column, Qt::Horizontal).toString()
                                     : model.index(row, column).data().toString());
            }
            expected += cells.join('\t') + "\r\n";
        }
        QCOMPARE(data.text(), expected);
        QVERIFY(expected.startsWith("Avg Residual\tFilename\tPeak Value\tStd Dev of Residual\t"));
        QCOMPARE(expected.count("\r\n"), qsizetype{4});
        QCOMPARE(m_window->StatusText(), QString("The table was copied to the clipboard."));
    }

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
        QTest::newRow("bmp") << int{CommandNumber(CCommandId::SaveBmp)};
        QTest::newRow("wmf") << int{CommandNumber(CCommandId::SaveWmf)};
    }
    void APictureThatCannotBeWrittenIsReported() {
        QFETCH(int, id);
        m_window->ChoosePage("Velocity");
        const QString path = Save(static_cast<CCommandId>(id), "no such folder/plot");
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|The plot could not be written to " + path + "."}));
    }

    // The sentence was that of an old file that is unchanged, and the report gave none of its own.
    void ADamagedFileIsReported_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("page");
        QTest::newRow("bmp") << int{CommandNumber(CCommandId::SaveBmp)} << "Velocity";
        QTest::newRow("wmf") << int{CommandNumber(CCommandId::SaveWmf)} << "Velocity";
        QTest::newRow("html") << int{CommandNumber(CCommandId::SaveHtml)} << "Summary";
    }
    void ADamagedFileIsReported() {
        QFETCH(int, id);
        QFETCH(QString, page);
        const CTempFolder folder;
        const std::string old = folder.Write("old", "old");
        std::filesystem::create_hard_link(old, folder.Path("other name"));
        m_window->ChoosePage(page);
        m_window->picker.answers = {CPickedFiles{{QString::fromStdString(old)}, 1}};
        const CFailingFlush failing(kUntilInPlace);
        Trigger(static_cast<CCommandId>(id));
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|" + QString::fromStdString(old) +
                                                       " could not be written completely, and "
                                                       "the existing file with this name is damaged."}));
    }

    // HTML report.

    void HtmlWritesTheTableAsItIsShown() {
        m_window->List()->horizontalHeader()->moveSection(3, 0);
        const QString path = Save(CCommandId::SaveHtml, "report.html");
        CheckSaveRequest("Save Results to HTML File",
                         {"HTML Files (*.html)|*.html", "HTML Files (*.htm)|*.htm", "All Files (*.*)|*.*"});
        QCOMPARE(m_window->picker.requests.back().folder, std::string());
        const QByteArray bytes = Bytes(path);
        QCOMPARE(bytes, QByteArray::fromStdString(HtmlReport(m_window->List()->DisplayedTable())));
        CheckReport(QString::fromLatin1(bytes), {3, 0, 1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15});
        QCOMPARE(m_window->store.value(kUdsFolder).toString(), Folder());
        QCOMPARE(m_window->StatusText(), "The report was saved as " + path + ".");
    }

    void AReportThatCannotBeOpenedEndsTheCommandSilently() {
        Save(CCommandId::SaveHtml, "no such folder/report.html");
        QVERIFY(m_window->messages.said.isEmpty());
        QVERIFY(m_window->errorLists.texts.isEmpty());
        QVERIFY(!m_window->store.contains(kUdsFolder));
    }

    void TheReportStartsInTheFolderOfTheLastUdsOutput() {
        m_window->store.setValue(kUdsFolder, Folder());
        Save(CCommandId::SaveHtml, "report.html");
        QCOMPARE(m_window->picker.requests.back().folder, Folder().toStdString());
    }

    // Signals.

    void EverySeriesOfEveryPageIsSavedAndReadBack_data() {
        QTest::addColumn<bool>("isForce");
        QTest::newRow("sled") << false;
        QTest::newRow("force") << true;
    }
    void EverySeriesOfEveryPageIsSavedAndReadBack() {
        QFETCH(bool, isForce);
        if (isForce) m_window->CompareForce();
        const CQuorvelDoc& document = m_window->frame->Document();
        const QStringList pages = m_window->PageNames().mid(1);
        for (const QString& page : pages) {
            m_window->ChoosePage(page);
            const std::size_t count = document.Series().size();
            QVERIFY(count >= 2);
            m_window->picker.requests.clear();
            for (std::size_t j = 0; j < count; ++j) m_window->picker.answers.push_back(Picked(SeriesFile(j)));
            Trigger(CCommandId::SaveUds);
            QCOMPARE(m_window->picker.requests.size(), count);
            for (std::size_t j = 0; j < count; ++j) {
                const ks::CFileRequest& request = m_window->picker.requests[j];
                QCOMPARE(request.title, "Save " + document.SeriesNames()[j] + " as");
                QVERIFY(request.kind == ks::CPickerKind::Save && request.filters.empty() &&
                        request.suggestedName.empty());
                QVERIFY(request.shouldHideReadOnly && request.shouldAskBeforeOverwriting &&
                        request.defaultExtension.empty());
                const QString place = page + QString(", series %1").arg(j);
                ks::CNSignal record;
                record.LoadUDS(SeriesFile(j).toStdString());
                const ks::CNSignal& series = *document.Series()[j];
                QVERIFY2(Differences(record.GetY(), series.GetY()) == 0, qPrintable(place));
                QVERIFY2(Differences(record.GetX(), series.GetX()) == 0, qPrintable(place));
                QVERIFY2(record.GetYUNITS() == series.GetYUNITS(), qPrintable(place));
                QVERIFY2(record.GetXUNITS() == series.GetXUNITS(), qPrintable(place));
            }
        }
        QVERIFY(m_window->messages.said.isEmpty());
        QVERIFY(m_window->errorLists.texts.isEmpty());
    }

    void CancelSkipsOneSeriesAndTheLastFolderIsStored() {
        m_window->ChoosePage("Acceleration");
        QVERIFY(QDir(m_window->folder.path()).mkdir("last"));
        m_window->picker.answers = {Picked("first.uds"), std::nullopt, Picked("last/third.uds"), std::nullopt};
        Trigger(CCommandId::SaveUds);
        QCOMPARE(m_window->picker.requests.size(), std::size_t{4});
        for (const ks::CFileRequest& request : m_window->picker.requests) QCOMPARE(request.folder, std::string("C:\\"));
        QVERIFY(QFile::exists(m_window->Path("first.uds")));
        QVERIFY(QFile::exists(m_window->Path("last/third.uds")));
        QCOMPARE(m_window->store.value(kUdsFolder).toString(), Folder("last/"));
        QCOMPARE(m_window->StatusText(), "2 curves were saved, the last as " + m_window->Path("last/third.uds") + ".");
    }

    void TheSummaryHasNoCurvesToSaveAndAsksForNoName_data() {
        QTest::addColumn<int>("id");
        QTest::newRow("uds") << CommandNumber(CCommandId::SaveUds);
        QTest::newRow("ascii") << CommandNumber(CCommandId::SaveAscii);
    }
    /// The ASCII command used to ask for a name and then to write an empty file.
    void TheSummaryHasNoCurvesToSaveAndAsksForNoName() {
        QFETCH(int, id);
        Trigger(static_cast<CCommandId>(id));
        QVERIFY(m_window->picker.requests.empty());
        QCOMPARE(m_window->StatusText(), QString("This page has no curves to save."));
        m_window->ChoosePage("Velocity");
        m_window->ChoosePage("Summary");  // the document still holds the curves of the page before
        Trigger(static_cast<CCommandId>(id));
        QVERIFY(m_window->picker.requests.empty());
    }

    // ASCII table.

    void AsciiWritesTheSeriesOfThePageSideBySide_data() {
        QTest::addColumn<QString>("page");
        QTest::addColumn<bool>("isPadded");
        QTest::newRow("curves of different lengths") << "Acceleration" << true;
        QTest::newRow("curves of one length") << "Cross Correlation" << false;
        QTest::newRow("distributions") << "Cummulative Density" << true;
    }
    void AsciiWritesTheSeriesOfThePageSideBySide() {
        QFETCH(QString, page);
        QFETCH(bool, isPadded);
        m_window->ChoosePage(page);
        const QString path = Save(CCommandId::SaveAscii, "table.txt");
        CheckSaveRequest("Save ASCII data As", {});
        QCOMPARE(m_window->picker.requests.back().folder, std::string("C:\\"));
        const CQuorvelDoc& document = m_window->frame->Document();
        const QByteArray bytes = Bytes(path);
        const QString other = Folder() + "other.txt";
        QVERIFY(WriteAsciiTable(other.toStdString(), document.ChartBlock(), document.CurrentPageId()) ==
                ks::CWriteResult::Written);
        QCOMPARE(bytes, Bytes(other));
        CheckTable(bytes, document);
        QCOMPARE(bytes.contains("0.0 0.0 "), isPadded);
        QCOMPARE(m_window->store.value(kAsciiFolder).toString(), Folder());
        QVERIFY(!m_window->store.contains(kUdsFolder));
        QCOMPARE(m_window->StatusText(), "Saved as " + path + ".");
    }

    void ATableThatCannotBeWrittenIsReportedAndItsFolderNotStored() {
        m_window->ChoosePage("Velocity");
        Save(CCommandId::SaveBmp, "plot.bmp");
        const QString path = Save(CCommandId::SaveAscii, "no such folder/table.txt");
        QCOMPARE(m_window->StatusText(), QString("Ready"));  // the message of an earlier command is gone
        QCOMPARE(m_window->errorLists.texts, QStringList({"The ASCII data could not be written to " + path + ".\r\n"}));
        QVERIFY(!m_window->store.contains(kAsciiFolder));
    }

    // Loaded files.

    void ALoadedFileIsNeverReplaced_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("name");
        QTest::newRow("bmp over a signal") << CommandNumber(CCommandId::SaveBmp) << "Velocity"
                                           << "signal.001";
        QTest::newRow("wmf over the reference") << CommandNumber(CCommandId::SaveWmf) << "Velocity"
                                                << "reference.001";
        QTest::newRow("html over a signal") << CommandNumber(CCommandId::SaveHtml) << "Summary"
                                            << "signal.001";
        QTest::newRow("uds over a signal") << CommandNumber(CCommandId::SaveUds) << "Velocity"
                                           << "signal.001";
        QTest::newRow("uds over the reference, through a link") << CommandNumber(CCommandId::SaveUds) << "Velocity"
                                                                << "link.001";
        QTest::newRow("ascii over the reference") << CommandNumber(CCommandId::SaveAscii) << "Velocity"
                                                  << "reference.001";
        QTest::newRow("ascii by another path") << CommandNumber(CCommandId::SaveAscii) << "Velocity"
                                               << "./signal.001";
    }
    void ALoadedFileIsNeverReplaced() {
        QFETCH(int, id);
        QFETCH(QString, page);
        QFETCH(QString, name);
        CompareOwnFiles();
        m_window->ChoosePage(page);
        const QString path = Save(static_cast<CCommandId>(id), name);
        CheckRefused(path);
        QVERIFY(!m_window->store.contains(kUdsFolder));
        QVERIFY(!m_window->store.contains(kAsciiFolder));
    }

    void TheOtherCurvesAreStillSavedWhenOneIsRefused() {
        CompareOwnFiles();
        m_window->ChoosePage("Velocity");
        m_window->picker.answers = {Picked("reference.001"), Picked("second.uds")};
        Trigger(CCommandId::SaveUds);
        QCOMPARE(m_window->messages.said, QStringList(Refusal(m_window->Path("reference.001"))));
        CheckOwnFiles();
        QVERIFY(QFile::exists(m_window->Path("second.uds")));
        QCOMPARE(m_window->StatusText(), "Saved as " + m_window->Path("second.uds") + ".");
    }

    void ALoadedFileIsNeverPrintedOver() {
        CompareOwnFiles();
        m_window->ChoosePage("Velocity");
        m_window->printers.path = m_window->Path("signal.001");
        Trigger(CCommandId::Print);
        CheckRefused(m_window->printers.path);
    }

    void AHitListIsNotSavedOverALoadedFile() {
        CompareOwnFiles();
        m_window->picker.answers.push_back(Picked("signal.001"));
        m_window->dialogs.Expect([](QWidget& dialog) {
            Control<QPushButton>(dialog, kSaveHitListId)->click();
            dialog.close();
        });
        Trigger(CCommandId::SelectFiles);
        CheckRefused(m_window->Path("signal.001"));
    }

    void AFileThatIsNoLongerLoadedCanBeReplaced() {
        CompareOwnFiles();
        m_window->CompareSled();
        m_window->ChoosePage("Velocity");
        const QString path = Save(CCommandId::SaveBmp, "signal.001");
        QCOMPARE(m_window->messages.said, QStringList());
        QCOMPARE(QImageReader(path).format(), QByteArray("bmp"));
    }

    // Cancel.

    void ACanceledPickerWritesAndStoresNothing_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("page");
        QTest::newRow("bmp") << CommandNumber(CCommandId::SaveBmp) << "Velocity";
        QTest::newRow("wmf") << CommandNumber(CCommandId::SaveWmf) << "Velocity";
        QTest::newRow("html") << CommandNumber(CCommandId::SaveHtml) << "Summary";
        QTest::newRow("uds") << CommandNumber(CCommandId::SaveUds) << "Velocity";
        QTest::newRow("ascii") << CommandNumber(CCommandId::SaveAscii) << "Velocity";
    }
    void ACanceledPickerWritesAndStoresNothing() {
        QFETCH(int, id);
        QFETCH(QString, page);
        m_window->ChoosePage(page);
        m_window->store.sync();
        const QStringList files = QDir(m_window->folder.path()).entryList(QDir::Files);
        const QString status = m_window->StatusText();
        Trigger(static_cast<CCommandId>(id));
        QVERIFY(!m_window->picker.requests.empty());
        m_window->store.sync();
        QCOMPARE(QDir(m_window->folder.path()).entryList(QDir::Files), files);
        QVERIFY(!m_window->store.contains(kUdsFolder));
        QVERIFY(!m_window->store.contains(kAsciiFolder));
        QCOMPARE(m_window->StatusText(), status);
        QVERIFY(m_window->messages.said.isEmpty());
    }

    void AFolderThatIsGoneIsOfferedAndStaysRemembered() {
        const QString gone = m_window->Path("gone/");
        m_window->settings.Set(setting::kUdsOutputDir, gone);
        m_window->settings.Set(setting::kAsciiOutputDir, gone);
        Trigger(CCommandId::SaveHtml);
        m_window->ChoosePage("Velocity");
        Trigger(CCommandId::SaveUds);
        Trigger(CCommandId::SaveAscii);
        for (const ks::CFileRequest& request : m_window->picker.requests) QCOMPARE(request.folder, gone.toStdString());
        QCOMPARE(m_window->picker.requests.size(), std::size_t{6});  // the report, four curves and the table
        QCOMPARE(m_window->settings.Get(setting::kUdsOutputDir), gone);
        QCOMPARE(m_window->settings.Get(setting::kAsciiOutputDir), gone);
    }

    // What is off.

    void PrintPreviewIsOffEverywhere() {
        for (const QString& page : m_window->PageNames()) {
            m_window->ChoosePage(page);
            QVERIFY(!m_window->IsEnabled(CCommandId::PrintPreview));
            QCOMPARE(m_window->IsEnabled(CCommandId::Print), page != "Summary");
            QCOMPARE(m_window->IsEnabled(CCommandId::PrintDirect), page != "Summary");
            QCOMPARE(m_window->IsEnabled(CCommandId::CopyData), page == "Summary");
            QCOMPARE(m_window->IsEnabled(CCommandId::SaveHtml), page == "Summary");
        }
    }

private:
    /// Compares copies of two samples, "signal.001" with "reference.001"; "link.001" is a link to the latter.
    void CompareOwnFiles() {
        const QString signal = m_window->Path("signal.001"), reference = m_window->Path("reference.001");
        QVERIFY(QFile::copy(QString::fromStdString(Sled(2)), signal));
        QVERIFY(QFile::copy(QString::fromStdString(Sled(1)), reference));
        QVERIFY(QFile::link(reference, m_window->Path("link.001")));
        m_window->Compare({signal.toStdString()}, reference.toStdString());
    }
    void CheckOwnFiles() {
        QVERIFY(Bytes(m_window->Path("signal.001")) == Bytes(QString::fromStdString(Sled(2))));
        QVERIFY(Bytes(m_window->Path("reference.001")) == Bytes(QString::fromStdString(Sled(1))));
    }
    static QString Refusal(const QString& path) {
        return "error|Error|" + path + " is one of the files being compared. Choose another name.";
    }
    /// The user was told, nothing was written, and no message claims otherwise.
    void CheckRefused(const QString& path) {
        QCOMPARE(m_window->messages.said, QStringList(Refusal(path)));
        QCOMPARE(m_window->StatusText(), QString("Ready"));
        CheckOwnFiles();
        QCOMPARE(QDir(m_window->folder.path()).entryList({"*.001"}, QDir::Files).size(), qsizetype{3});
    }

    static int CommandNumber(CCommandId id) { return static_cast<int>(id); }
    QString Folder(const QString& below = {}) const { return m_window->folder.path() + "/" + below; }
    QString SeriesFile(std::size_t j) const { return m_window->Path(QString("series%1.uds").arg(j)); }
    std::optional<CPickedFiles> Picked(const QString& name) const {
        return CPickedFiles{{QDir::isAbsolutePath(name) ? name : m_window->Path(name)}, 1};
    }
    static QByteArray Bytes(const QString& path) { return QByteArray::fromStdString(ReadAll(path.toStdString())); }

    /// Runs a save command whose user chooses `name` in this test's folder; gives the path.
    QString Save(CCommandId id, const QString& name) {
        m_window->picker.answers.push_back(Picked(name));
        Trigger(id);
        return m_window->Path(name);
    }

    void CheckSaveRequest(const QString& title, const QStringList& filters) {
        QCOMPARE(m_window->picker.requests.size(), std::size_t{1});
        const ks::CFileRequest& request = m_window->picker.requests[0];
        QVERIFY(request.kind == ks::CPickerKind::Save);
        QCOMPARE(QString::fromStdString(request.title), title);
        QCOMPARE(FilterTexts(request), filters);
        QVERIFY(request.shouldHideReadOnly && request.shouldAskBeforeOverwriting);
    }

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

    /// Every cell of the report, columns in this order, against the table shown.
    void CheckReport(const QString& report, const std::vector<int>& order) {
        static const QRegularExpression header("<TD><B>([^<]*)</B></TD>\r\n");
        static const QRegularExpression cell("\t<TD (bgcolor=\"(#[0-9A-F]{6})\" )?>([^<]*)</TD>\r\n");
        const QAbstractItemModel& model = *m_window->List()->model();
        auto headers = header.globalMatch(report);
        for (const int column : order) {
            QVERIFY(headers.hasNext());
            QCOMPARE(headers.next().captured(1), model.headerData(column, Qt::Horizontal).toString());
        }
        QVERIFY(!headers.hasNext());
        const std::map<CVerdict, QString> colors = {
            {CVerdict::None, ""}, {CVerdict::Good, "#00E000"}, {CVerdict::Bad, "#E00000"}};
        QSet<QString> seen;
        auto cells = cell.globalMatch(report);
        for (int row = 0; row < model.rowCount(); ++row) {
            for (const int column : order) {
                QVERIFY(cells.hasNext());
                const QRegularExpressionMatch match = cells.next();
                const QModelIndex index = model.index(row, column);
                QCOMPARE(match.captured(3), index.data().toString());
                QCOMPARE(match.captured(2), colors.at(static_cast<CVerdict>(index.data(kVerdictRole).toInt())));
                seen.insert(match.captured(2));
            }
        }
        QVERIFY(!cells.hasNext());
        QCOMPARE(seen.size(), qsizetype{3});
    }

    /// Every number of an ASCII table against the series: six significant digits, "0.0" twice after a series' end.
    static void CheckTable(const QByteArray& bytes, const CQuorvelDoc& document) {
        QVERIFY(bytes.endsWith(" \r\n"));
        const QList<QByteArray> lines = bytes.chopped(2).split('\n');
        const CSeriesList& series = document.Series();
        QCOMPARE(lines.size(), qsizetype{document.ChartBlock().pointCount});
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const QList<QByteArray> cells = lines[i].trimmed().split(' ');
            QCOMPARE(cells.size(), static_cast<qsizetype>(2 * series.size()));
            for (std::size_t j = 0; j < series.size(); ++j) {
                const auto row = static_cast<std::size_t>(i);
                const auto column = static_cast<qsizetype>(2 * j);
                const bool isPadded = row >= series[j]->GetPointCount() || series[j]->GetX()[row] == 0x1p-52;
                const QByteArray x = isPadded ? "0.0" : QByteArray::number(series[j]->GetX()[row], 'g', 6);
                const QByteArray y = isPadded ? "0.0" : QByteArray::number(series[j]->GetY()[row], 'g', 6);
                if (cells[column] != x) QCOMPARE(cells[column], x);
                if (cells[column + 1] != y) QCOMPARE(cells[column + 1], y);
            }
        }
    }
};

QTEST_MAIN(CWindowExportsTest)
#include "window_exports_test.moc"
