#include "app/dropped_files.h"

#include "app/dialogs/data_type_filters.h"
#include "app/dialogs/file_picker.h"
#include "app/settings.h"
#include "compare/setting_keys.h"

#include <QDir>
#include <QFileDialog>
#include <QMimeData>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class CDroppedFilesTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
    }

    void FilesKeepTheirOrder() {
        const CDroppedFiles dropped = ExpandDropped({Write("b.001"), Write("a.001")}, "*.uds");
        QCOMPARE(dropped.files, Paths({"b.001", "a.001"}));
        QVERIFY(dropped.hitLists.isEmpty());
        QVERIFY(dropped.unreadableHitLists.isEmpty());
    }

    void AFolderGivesItsOwnMatchingFilesByName() {
        for (const char* const name : {"run/c.uds", "run/a.uds", "run/B.UDS", "run/note.txt", "run/deeper/d.uds"}) {
            Write(name);
        }
        QDir(m_folder->path()).mkdir("run/folder.uds");
        const CDroppedFiles dropped = ExpandDropped({m_folder->filePath("run")}, "*.uds");
        QCOMPARE(dropped.files, Paths({"run/B.UDS", "run/a.uds", "run/c.uds"}));
    }

    void AFolderWithoutMatchingFilesGivesNothing() {
        Write("run/note.txt");
        QVERIFY(ExpandDropped({m_folder->filePath("run")}, "*.uds").files.empty());
    }

    void AHitListGivesItsLinesUnchanged() {
        const QString list = Write("list.HIT", "one.001\r\n\r\n two.001\r\n");
        const CDroppedFiles dropped = ExpandDropped({Write("a.001"), list, Write("z.001")}, "*.uds");
        std::vector<std::string> expected = Paths({"a.001"});
        expected.insert(expected.end(), {"one.001", " two.001"});
        expected.push_back(Paths({"z.001"}).front());
        QCOMPARE(dropped.files, expected);
        QCOMPARE(dropped.hitLists, QStringList({list}));
    }

    void AHitListThatCannotBeReadIsNamed() {
        const QString missing = m_folder->filePath("missing.hit");
        const CDroppedFiles dropped = ExpandDropped({missing}, "*");
        QVERIFY(dropped.files.empty());
        QVERIFY(dropped.hitLists.isEmpty());
        QCOMPARE(dropped.unreadableHitLists, QStringList({missing}));
    }

    void OnlyLocalPathsAreTakenFromADrag() {
        QMimeData data;
        QVERIFY(LocalPaths(data).isEmpty());
        data.setUrls({QUrl("https://example.com/a.uds"), QUrl::fromLocalFile("/tmp/a b.uds")});
        QCOMPARE(LocalPaths(data), QStringList({"/tmp/a b.uds"}));
    }

    void TheSixDataTypesAreInOrder() {
        const std::vector<std::pair<std::string, std::string>> expected = {
            {"UDS Acceleration Data (*aa0.*)", "*aa0.*"}, {"UDS Displacement Data (*da0.*)", "*da0.*"},
            {"UDS Force Data (*fa0.*)", "*fa0.*"},        {"UDS Moment Data (*ta0.*)", "*ta0.*"},
            {"Processed UDS Data (*.uds)", "*.uds"},      {"All Files (*.*)", "*.*"}};
        QCOMPARE(DataTypeFilters().size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            QCOMPARE(DataTypeFilters()[i].text, expected[i].first);
            QCOMPARE(DataTypeFilters()[i].pattern, expected[i].second);
        }
        QCOMPARE(HitListFilters().size(), std::size_t{1});
        QCOMPARE(HitListFilters()[0].text, std::string("Hit list files (*.hit)"));
        QCOMPARE(HitListFilters()[0].pattern, std::string("*.hit"));
    }

    void TheStoredDataTypeDecidesWhatAFolderGives_data() {
        QTest::addColumn<int>("dataType");
        QTest::addColumn<QString>("wildcard");
        QTest::newRow("1") << 1 << "*aa0.*";
        QTest::newRow("5") << 5 << "*.uds";
        QTest::newRow("6: also files without a dot") << 6 << "*";
        QTest::newRow("below the range: the first, as in the pickers") << 0 << "*aa0.*";
        QTest::newRow("above the range: the first, as in the pickers") << 7 << "*aa0.*";
    }
    void TheStoredDataTypeDecidesWhatAFolderGives() {
        QFETCH(int, dataType);
        QFETCH(QString, wildcard);
        QSettings store(m_folder->filePath("quorvel.ini"), QSettings::IniFormat);
        CSettings settings(store);
        settings.Set(setting::kDataType, dataType);
        QCOMPARE(CurrentDataTypeWildcard(settings), wildcard);

        ks::CFileRequest request;
        request.filters = DataTypeFilters();
        request.filterIndex = settings.Get(setting::kDataType);
        const auto picker = CFileDialogs::MakeDialog(nullptr, request, CFileDialogs::CStyle::Drawn);
        const auto& filters = DataTypeFilters();
        const auto chosen = std::find_if(filters.begin(), filters.end(), [&](const ks::CFileFilter& filter) {
            return QString::fromStdString(filter.text) == picker->selectedNameFilter();
        });
        QVERIFY(chosen != filters.end());
        QCOMPARE(Wildcard(chosen->pattern), wildcard);
    }

    void WithoutAStoredDataTypeAFolderGivesForces() {
        QSettings store(m_folder->filePath("empty.ini"), QSettings::IniFormat);
        QCOMPARE(CurrentDataTypeWildcard(CSettings(store)), QString("*fa0.*"));
    }

private:
    QString Write(const QString& name, const QByteArray& bytes = "x") {
        const QString path = m_folder->filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("cannot write a test file");
        return path;
    }

    std::vector<std::string> Paths(const QStringList& names) const {
        std::vector<std::string> paths;
        for (const QString& name : names) {
            paths.push_back(QDir::toNativeSeparators(m_folder->filePath(name)).toStdString());
        }
        return paths;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_MAIN(CDroppedFilesTest)
#include "dropped_files_test.moc"
