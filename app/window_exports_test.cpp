// What holds for every export of the main window: loaded files, Cancel, and what is off.

#include "app/commands.h"
#include "app/dialogs/file_picker.h"
#include "app/settings.h"
#include "app/testing/control_ids.h"
#include "app/testing/exports_test.h"
#include "app/testing/widget_probe.h"
#include "compare/setting_keys.h"
#include "tests/support/failing_flush.h"
#include "tests/support/temp_folder.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>

#include <cmath>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

class CWindowExportsTest : public CExportsTest {
    Q_OBJECT

private slots:
    void init() { OpenWithSled(); }
    void cleanup() { CloseWindow(); }

    // The sentence was that of an old file that is unchanged, and the report gave none of its own.
    void ADamagedFileIsReported_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("page");
        QTest::newRow("bmp") << CommandNumber(CCommandId::SaveBmp) << "Velocity";
        QTest::newRow("wmf") << CommandNumber(CCommandId::SaveWmf) << "Velocity";
        QTest::newRow("html") << CommandNumber(CCommandId::SaveHtml) << "Summary";
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
};

QTEST_MAIN(CWindowExportsTest)
#include "window_exports_test.moc"
