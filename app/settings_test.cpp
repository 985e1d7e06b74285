#include "app/settings.h"

#include "compare/setting_keys.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class CSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_store.reset();
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        Reopen();
    }

    void TextsStartWithTheirDefaults() {
        QCOMPARE(m_settings->Get(setting::kInputDir), QString("Q:\\uds\\vehdb"));
        QCOMPARE(m_settings->Get(setting::kReferenceDir), QString("Q:\\uds\\vehdb"));
        QCOMPARE(m_settings->Get(setting::kHitlistDir), QString("c:\\"));
        QCOMPARE(m_settings->Get(setting::kUdsOutputDir), QString("C:\\"));
        QCOMPARE(m_settings->Get(setting::kAsciiOutputDir), QString("C:\\"));
        QCOMPARE(m_settings->Get(setting::kDataType), 3);
        QVERIFY(m_store->allKeys().isEmpty());
    }

    void ValuesLieInTheGroupSettingsAndComeBackFromTheFile() {
        m_settings->Set(setting::kInputDir, "C:\\data, \"odd\" @ 100 %\\");
        m_settings->Set(setting::kReferenceDir, QString::fromUtf8("/mess/größe/"));
        m_settings->Set(setting::kDataType, 6);
        m_settings->Set(setting::kReferenceType, 1);
        m_settings->Set(setting::kHitlistDir, "");
        m_settings->Set(setting::kUdsOutputDir, "/uds/");
        m_settings->Set(setting::kAsciiOutputDir, "/ascii/");
        const QStringList keys = {"Settings/AsciiOutputDir", "Settings/DataType",     "Settings/HitlistDir",
                                  "Settings/InputDir",       "Settings/ReferenceDir", "Settings/ReferenceType",
                                  "Settings/UdsOutputDir"};
        QCOMPARE(m_store->allKeys(), keys);
        Reopen();
        QCOMPARE(m_settings->Get(setting::kInputDir), QString("C:\\data, \"odd\" @ 100 %\\"));
        QCOMPARE(m_settings->Get(setting::kReferenceDir), QString::fromUtf8("/mess/größe/"));
        QCOMPARE(m_settings->Get(setting::kDataType), 6);
        QCOMPARE(m_settings->Get(setting::kReferenceType), 1);
        QCOMPARE(m_settings->Get(setting::kHitlistDir), QString());
        QCOMPARE(m_settings->Get(setting::kUdsOutputDir), QString("/uds/"));
        QCOMPARE(m_settings->Get(setting::kAsciiOutputDir), QString("/ascii/"));
    }

    void TheReportSharesTheFolderOfTheUdsOutputButNotItsFallback() {
        QCOMPARE(m_settings->Get(setting::kHtmlOutputDir), QString());
        m_settings->Set(setting::kUdsOutputDir, "/out/");
        QCOMPARE(m_settings->Get(setting::kHtmlOutputDir), QString("/out/"));
        m_settings->Set(setting::kHtmlOutputDir, "/report/");
        QCOMPARE(m_settings->Get(setting::kUdsOutputDir), QString("/report/"));
    }

    void ATextIsNoNumber() {
        m_store->setValue("Settings/DataType", "many");
        QCOMPARE(m_settings->Get(setting::kDataType), 3);
    }

    void RecentFilesAreFourNewestFirst() {
        for (const char* const name : {"/a.hit", "/b.hit", "/c.hit", "/d.hit", "/e.hit"}) {
            m_settings->AddRecentFile(name);
        }
        Reopen();
        QCOMPARE(m_settings->RecentFiles(), Native({"/e.hit", "/d.hit", "/c.hit", "/b.hit"}));
        const QStringList keys = {"Recent File List/File1", "Recent File List/File2", "Recent File List/File3",
                                  "Recent File List/File4"};
        QCOMPARE(m_store->allKeys(), keys);
    }

    void ARecentFileUsedAgainMovesToTheFront() {
        for (const char* const name : {"/a.hit", "/b.hit", "/c.hit", "/x/../a.hit"}) m_settings->AddRecentFile(name);
        QCOMPARE(m_settings->RecentFiles(), Native({"/a.hit", "/c.hit", "/b.hit"}));
    }

    void ARecentFileCanBeDropped() {
        for (const char* const name : {"/a.hit", "/b.hit", "/c.hit"}) m_settings->AddRecentFile(name);
        m_settings->RemoveRecentFile("/b.hit");
        m_settings->RemoveRecentFile("/never.hit");
        QCOMPARE(m_settings->RecentFiles(), Native({"/c.hit", "/a.hit"}));
        QVERIFY(!m_store->contains("Recent File List/File3"));
    }

    void ARelativeRecentFileIsStoredInFull() {
        m_settings->AddRecentFile("list.hit");
        QCOMPARE(m_settings->RecentFiles(), Native({QDir::current().absoluteFilePath("list.hit")}));
    }

    void TheWindowLayoutHasAGroupOfItsOwn() {
        QVERIFY(m_settings->WindowGeometry().isEmpty());
        QVERIFY(m_settings->WindowState().isEmpty());
        QCOMPARE(m_settings->HiddenToolbarActions(), QStringList({"PrintDirect"}));
        m_settings->SetWindowLayout(QByteArray("\0geo\xff", 5), "state");
        m_settings->SetHiddenToolbarActions({"EditCopy", "FilePrint"});
        Reopen();
        QCOMPARE(m_settings->WindowGeometry(), QByteArray("\0geo\xff", 5));
        QCOMPARE(m_settings->WindowState(), QByteArray("state"));
        QCOMPARE(m_settings->HiddenToolbarActions(), QStringList({"EditCopy", "FilePrint"}));
        m_settings->SetHiddenToolbarActions({});
        Reopen();
        QCOMPARE(m_settings->HiddenToolbarActions(), QStringList());
        for (const QString& key : m_store->allKeys()) QVERIFY2(key.startsWith("Main Window/"), qPrintable(key));
    }

private:
    void Reopen() {
        m_settings.reset();
        m_store.reset();
        m_store = std::make_unique<QSettings>(m_folder->filePath("quorvel.ini"), QSettings::IniFormat);
        m_settings = std::make_unique<CSettings>(*m_store);
    }

    static QStringList Native(const QStringList& paths) {
        QStringList native;
        for (const QString& path : paths) native.append(QDir::toNativeSeparators(path));
        return native;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_store;
    std::unique_ptr<CSettings> m_settings;
};

QTEST_GUILESS_MAIN(CSettingsTest)
#include "settings_test.moc"
