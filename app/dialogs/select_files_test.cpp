#include "app/dialogs/select_files.h"

#include "app/dialogs/data_type_filters.h"
#include "app/dialogs/file_list.h"
#include "app/dialogs/file_picker.h"
#include "app/settings.h"
#include "app/testing/control_ids.h"
#include "app/testing/recorded_messages.h"
#include "app/testing/scripted_picker.h"
#include "app/testing/widget_probe.h"
#include "compare/document_host.h"
#include "compare/setting_keys.h"
#include "tests/support/failing_flush.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>
namespace {

constexpr const char* kUnreadable = "error|Error|Unable to read Hit list file";
constexpr const char* kNoSignal = "error|Error|You must select at least one signal";
constexpr const char* kTimes = "warning|Error|Max time must be > min time";

}  // namespace

class CSelectFilesTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_dialog.reset();
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        m_store = std::make_unique<QSettings>(m_folder->filePath("quorvel.ini"), QSettings::IniFormat);
        m_settings = std::make_unique<CSettings>(*m_store);
        m_picker = CScriptedPicker();
        m_messages.said.clear();
    }
    void cleanup() { m_dialog.reset(); }

    // Opening.

    void TheControlsAreLabeled_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("text");
        QTest::newRow("add") << kAddFilesId << "Add Files ...";
        QTest::newRow("remove") << kRemoveFilesId << "Remove";
        QTest::newRow("read") << kReadHitListId << "Read Hitlist";
        QTest::newRow("save") << kSaveHitListId << "Save Hitlist";
        QTest::newRow("one file") << kSingleReferenceId << "Slect Signal:";
        QTest::newRow("browse") << kBrowseReferenceId << "...";
        QTest::newRow("average") << kAverageReferenceId << "Compare to Average";
        QTest::newRow("filter") << kFilterId << "Filter all signals prior to analysis -->";
        QTest::newRow("truncate") << kTruncateId << "Trancate all signals -->";
    }
    void TheControlsAreLabeled() {
        QFETCH(int, id);
        QFETCH(QString, text);
        Open({});
        QCOMPARE(m_dialog->windowTitle(), QString("Select Uds Files"));
        QCOMPARE(Button(id).text(), text);
    }

    void TheFieldsHaveLabelsOfTheirOwn() {
        Open({});
        QCOMPARE(LabelOf(kFileListId), QString("Signals to be Evaluated:"));
        QCOMPARE(LabelOf(kMinTimeId), QString("Min Time:"));
        QCOMPARE(LabelOf(kMaxTimeId), QString("Max Time:"));
        QStringList items;
        for (int i = 0; i < ClassCombo().count(); ++i) items.append(ClassCombo().itemText(i));
        QCOMPARE(items, QStringList({"CFC60", "CFC180", "CFC600", "CFC1000"}));
    }

    void TheFirstTimeTheDefaultsAreShown() {
        Open({});
        QCOMPARE(List().count(), 0);
        QCOMPARE(Edit(kReferencePathId).text(), QString());
        QVERIFY(Radio(kSingleReferenceId).isChecked());
        QVERIFY(!Radio(kAverageReferenceId).isChecked());
        QVERIFY(Check(kFilterId).isChecked());
        QVERIFY(!Check(kTruncateId).isChecked());
        QCOMPARE(ClassCombo().currentText(), QString("CFC60"));
        QCOMPARE(Edit(kMinTimeId).text(), QString("0"));
        QCOMPARE(Edit(kMaxTimeId).text(), QString("0.30000001192092896"));
    }

    void TheOfferedChoiceIsShownAndReturnedUnchanged() {
        CFileSelection offered;
        offered.files = {"b.001", "a.001", "b.001"};
        offered.referencePath = "ref.001";
        offered.isReferenceAverage = true;
        offered.shouldFilter = false;
        offered.shouldFilterReference = false;
        offered.shouldTruncate = true;
        offered.channelClass = 600;
        offered.windowStart = -0.01;
        offered.windowEnd = 0.1;
        Open(offered);
        QVERIFY(Radio(kAverageReferenceId).isChecked());
        QCOMPARE(Edit(kReferencePathId).text(), QString("ref.001"));
        QCOMPARE(Files(), QString("b.001 a.001 b.001"));
        PressOk();
        QVERIFY(m_messages.said.isEmpty());
        QCOMPARE(m_dialog->result(), int{QDialog::Accepted});
        const CFileSelection& chosen = m_dialog->Selection();
        QCOMPARE(chosen.files, offered.files);
        QCOMPARE(chosen.referencePath, offered.referencePath);
        QVERIFY(chosen.isReferenceAverage && !chosen.shouldFilter && !chosen.shouldFilterReference &&
                chosen.shouldTruncate);
        QCOMPARE(chosen.channelClass, 600);
        QVERIFY(chosen.windowStart == -0.01 && chosen.windowEnd == 0.1);
    }

    void OpeningAndCancelingWritesNoSetting() {
        Open({});
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        QCOMPARE(m_dialog->result(), int{QDialog::Rejected});
        QVERIFY(!m_dialog->isVisible());
        QVERIFY(m_store->allKeys().isEmpty());
        QVERIFY(m_messages.said.isEmpty());
    }

    // Which controls are enabled.

    void TheChecksDecideWhatIsEnabled_data() {
        QTest::addColumn<bool>("average");
        QTest::addColumn<bool>("filter");
        QTest::addColumn<bool>("truncate");
        for (int row = 0; row < 8; ++row) {
            QTest::addRow("%d", row) << ((row & 1) != 0) << ((row & 2) != 0) << ((row & 4) != 0);
        }
    }
    void TheChecksDecideWhatIsEnabled() {
        QFETCH(bool, average);
        QFETCH(bool, filter);
        QFETCH(bool, truncate);
        CFileSelection offered;
        offered.isReferenceAverage = average;
        offered.shouldFilter = filter;
        offered.shouldTruncate = truncate;
        Open(offered);
        CheckEnabled(average, filter, truncate);
        Button(average ? kSingleReferenceId : kAverageReferenceId).click();
        CheckEnabled(!average, filter, truncate);
        Button(kFilterId).click();
        CheckEnabled(!average, !filter, truncate);
        Button(kTruncateId).click();
        CheckEnabled(!average, !filter, !truncate);
    }

    void EntriesCanBeMovedOnceOneIsSelected() {
        Open(WithFiles({"a", "b"}));
        auto& up = *m_dialog->findChild<QPushButton*>("moveUpButton");
        auto& down = *m_dialog->findChild<QPushButton*>("moveDownButton");
        List().clearSelection();
        QVERIFY(!up.isEnabled() && !down.isEnabled());
        Select({1});
        QVERIFY(up.isEnabled() && down.isEnabled());
        up.click();
        QCOMPARE(Files(), QString("b a"));
        down.click();
        QCOMPARE(Files(), QString("a b"));
    }

    // Channel class.

    void TheClassSelectsItsItem_data() {
        QTest::addColumn<int>("channelClass");
        QTest::addColumn<int>("item");
        QTest::addColumn<int>("returned");
        QTest::newRow("60") << 60 << 0 << 60;
        QTest::newRow("180") << 180 << 1 << 180;
        QTest::newRow("600") << 600 << 2 << 600;
        QTest::newRow("1000") << 1000 << 3 << 1000;
        QTest::newRow("unknown class") << 1001 << -1 << 60;
        QTest::newRow("no class") << 0 << -1 << 60;
    }
    void TheClassSelectsItsItem() {
        QFETCH(int, channelClass);
        QFETCH(int, item);
        QFETCH(int, returned);
        CFileSelection offered = Complete();
        offered.channelClass = channelClass;
        Open(offered);
        QCOMPARE(ClassCombo().currentIndex(), item);
        PressOk();
        QCOMPARE(m_dialog->Selection().channelClass, returned);
    }

    void AnotherItemGivesAnotherClass() {
        for (const auto& [text, expected] :
             {std::pair{"CFC60", 60}, std::pair{"CFC180", 180}, std::pair{"CFC600", 600}, std::pair{"CFC1000", 1000}}) {
            CFileSelection offered = Complete();
            offered.channelClass = expected == 60 ? 1000 : 60;
            Open(offered);
            ClassCombo().setCurrentText(text);
            PressOk();
            QCOMPARE(m_dialog->Selection().channelClass, expected);
        }
    }

    // Adding files.

    void AddFilesAsksForSeveralSignalFiles() {
        Open({});
        Button(kAddFilesId).click();
        QCOMPARE(m_picker.requests.size(), std::size_t{1});
        const ks::CFileRequest& request = m_picker.requests[0];
        QCOMPARE(request.kind, ks::CPickerKind::OpenSeveral);
        QCOMPARE(request.title, std::string("Select Uds File(s) to Evaluate"));
        QVERIFY(request.mustExist && request.shouldHideReadOnly);
        CheckSignalFilters(request);
        QCOMPARE(request.filterIndex, 3);
        QCOMPARE(request.folder, std::string("Q:\\uds\\vehdb"));
    }

    void AddedFilesFollowTheOthersWithoutACheckForDuplicates() {
        Open(WithFiles({"first"}));
        m_picker.answers = {CPickedFiles{{"/one/z.001", "/one/a.001", "/two/first"}, 5},
                            CPickedFiles{{"/one/z.001"}, 2}};
        Button(kAddFilesId).click();
        QCOMPARE(Files(), QString("first /one/z.001 /one/a.001 /two/first"));
        QCOMPARE(m_settings->Get(setting::kDataType), 5);
        QCOMPARE(m_settings->Get(setting::kInputDir), QString("/two/"));
        Button(kAddFilesId).click();
        QCOMPARE(Files(), QString("first /one/z.001 /one/a.001 /two/first /one/z.001"));
        QCOMPARE(m_picker.requests[1].filterIndex, 5);
        QCOMPARE(m_picker.requests[1].folder, std::string("/two/"));
        QCOMPARE(m_store->allKeys(), QStringList({"Settings/DataType", "Settings/InputDir"}));
    }

    void ACanceledPickerChangesNothing() {
        CFileSelection offered = Complete();
        Open(offered);
        for (const int id : {kAddFilesId, kReadHitListId, kSaveHitListId, kBrowseReferenceId}) Button(id).click();
        QCOMPARE(m_picker.requests.size(), std::size_t{4});
        QCOMPARE(Files(), QString("a.001"));
        QCOMPARE(Edit(kReferencePathId).text(), QString("ref.001"));
        QVERIFY(m_store->allKeys().isEmpty());
        QVERIFY(m_messages.said.isEmpty());
    }

    void AFolderThatDoesNotExistStaysInTheSettings() {
        m_settings->Set(setting::kInputDir, "/gone/with/the/wind/");
        Open({});
        Button(kAddFilesId).click();
        QCOMPARE(ExistingFolder(QString::fromStdString(m_picker.requests[0].folder)), QDir::homePath());
        QCOMPARE(m_settings->Get(setting::kInputDir), QString("/gone/with/the/wind/"));
    }

    // Removing.

    void RemoveLeavesTheOtherEntriesInOrder() {
        Open(WithFiles({"0", "1", "2", "3", "4", "5", "6", "7"}));
        Select({0, 2, 5});
        Button(kRemoveFilesId).click();
        QCOMPARE(Files(), QString("1 3 4 6 7"));
    }

    void RemoveWithoutASelectionDoesNothing() {
        Open(WithFiles({"0", "1"}));
        List().clearSelection();
        Button(kRemoveFilesId).click();
        QCOMPARE(Files(), QString("0 1"));
        QVERIFY(m_messages.said.isEmpty());
    }

    // Reference.

    void BrowseAsksForOneSignalFile() {
        m_settings->Set(setting::kDataType, 4);
        Open({});
        Button(kBrowseReferenceId).click();
        QCOMPARE(m_picker.requests.size(), std::size_t{1});
        const ks::CFileRequest& request = m_picker.requests[0];
        QCOMPARE(request.kind, ks::CPickerKind::OpenOne);
        QCOMPARE(request.title, std::string("Select Reference Uds File"));
        QVERIFY(request.mustExist && request.shouldHideReadOnly);
        CheckSignalFilters(request);
        QCOMPARE(request.filterIndex, 4);
        QCOMPARE(request.folder, std::string("Q:\\uds\\vehdb"));
    }

    void TheChosenReferenceIsShownAndItsFolderRemembered() {
        Open({});
        m_picker.answers = {CPickedFiles{{"/ref/r.001"}, 6}};
        Button(kBrowseReferenceId).click();
        QCOMPARE(Edit(kReferencePathId).text(), QString("/ref/r.001"));
        QCOMPARE(m_settings->Get(setting::kReferenceDir), QString("/ref/"));
        QCOMPARE(m_settings->Get(setting::kDataType), 6);
        QCOMPARE(m_store->allKeys(), QStringList({"Settings/DataType", "Settings/ReferenceDir"}));
    }

    void AFileDroppedOnTheReferenceBecomesTheReference() {
        Open({});
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile("/ref/dropped file.001")});
        QCOMPARE(SendDrop(Edit(kReferencePathId), data, QPoint(5, 5)), Qt::CopyAction);
        QCOMPARE(Edit(kReferencePathId).text(), QString("/ref/dropped file.001"));
    }

    // Hit lists.

    void ReadHitListAsksForAHitList() {
        Open({});
        Button(kReadHitListId).click();
        CheckHitListRequest("Select Hit List", ks::CPickerKind::OpenOne);
    }

    void ReadHitListSkipsEmptyLinesAndAppendsTheOthers() {
        const QString path = Write("list.hit", "one.001\r\n\r\n\r\n two.001 \r\n \r\none.001");
        Open(WithFiles({"first"}));
        m_picker.answers = {CPickedFiles{{path}, 1}};
        Button(kReadHitListId).click();
        const std::vector<std::string> expected = {"first", "one.001", " two.001 ", " ", "one.001"};
        QCOMPARE(List().Files(), expected);
        QCOMPARE(m_settings->Get(setting::kHitlistDir), DriveAndFolder(path));
        QCOMPARE(m_settings->RecentFiles(), QStringList({path}));
        QVERIFY(!m_store->contains("Settings/DataType"));
    }

    void AHitListThatCannotBeOpenedLeavesTheListAsItWas() {
        Open(WithFiles({"first"}));
        m_picker.answers = {CPickedFiles{{m_folder->filePath("missing.hit")}, 1}};
        Button(kReadHitListId).click();
        QCOMPARE(m_messages.said, QStringList({kUnreadable}));
        QCOMPARE(Files(), QString("first"));
        QVERIFY(m_store->allKeys().isEmpty());
    }

    void SaveHitListAsksForAHitList() {
        Open({});
        Button(kSaveHitListId).click();
        CheckHitListRequest("Save Hit List as", ks::CPickerKind::Save);
        QVERIFY(!m_picker.requests[0].shouldAskBeforeOverwriting);
    }

    void SaveHitListWritesEveryEntryInOrder() {
        const QString path = Write("list.hit", "what was there before, and longer than the new text of the file");
        Open(WithFiles({"b.001", " a.001",
                        "gr\xc3\xb6\xc3\x9f"
                        "e",
                        "b.001"}));
        m_picker.answers = {CPickedFiles{{path}, 1}};
        Button(kSaveHitListId).click();
        QCOMPARE(ReadBytes(path), QByteArray("b.001\r\n a.001\r\ngr\xc3\xb6\xc3\x9f"
                                             "e\r\nb.001\r\n"));
        QVERIFY(m_messages.said.isEmpty());
        QCOMPARE(m_settings->Get(setting::kHitlistDir), DriveAndFolder(path));
        QCOMPARE(m_settings->RecentFiles(), QStringList({path}));
    }

    void AHitListIsCreatedWhereThereIsNone() {
        const QString path = m_folder->filePath("new.hit");
        Open({});
        m_picker.answers = {CPickedFiles{{path}, 1}};
        Button(kSaveHitListId).click();
        QVERIFY(QFile::exists(path));
        QCOMPARE(ReadBytes(path), QByteArray());
    }

    void SavingThenReadingReproducesTheOrder() {
        const QString path = m_folder->filePath("list.hit");
        const std::vector<std::string> files = {"z", "a", "m", "a", "  ", "/x/y z.001"};
        Open(WithFiles(files));
        m_picker.answers = {CPickedFiles{{path}, 1}};
        Button(kSaveHitListId).click();
        Open({});
        m_picker.answers = {CPickedFiles{{path}, 1}};
        Button(kReadHitListId).click();
        QCOMPARE(List().Files(), files);
    }

    void AHitListThatCannotBeCreatedSaysTheSameAsForReading() {
        Open(WithFiles({"first"}));
        m_picker.answers = {CPickedFiles{{m_folder->filePath("nowhere/list.hit")}, 1}};
        Button(kSaveHitListId).click();
        QCOMPARE(m_messages.said, QStringList({kUnreadable}));
        QCOMPARE(Files(), QString("first"));
        QVERIFY(m_store->allKeys().isEmpty());
    }

    // The sentence was that of an old file that is unchanged.
    void AHitListThatIsDamagedIsReported() {
        Open(WithFiles({"first"}));
        const QString path = m_folder->filePath("list.hit");
        QFile list(path);
        QVERIFY(list.open(QIODevice::WriteOnly));
        std::filesystem::create_hard_link(path.toStdString(), m_folder->filePath("other").toStdString());
        m_picker.answers = {CPickedFiles{{path}, 1}};
        const CFailingFlush failing(kUntilInPlace);
        Button(kSaveHitListId).click();
        QCOMPARE(m_messages.said, QStringList({"error|Error|" + path +
                                               " could not be written completely, and the "
                                               "existing file with this name is damaged."}));
        QVERIFY(m_store->allKeys().isEmpty());
    }

    // Drops.

    void DroppedFilesHitListsAndFoldersAreAdded() {
        m_settings->Set(setting::kDataType, 5);
        const QString list = Write("list.hit", "one.001\ntwo.001\n");
        Write("run/b.uds", "x");
        Write("run/a.uds", "x");
        Write("run/a.txt", "x");
        Open(WithFiles({"first", "last"}));
        emit List().PathsDropped({"/x.001", list, m_folder->filePath("run")}, 1);
        const std::string run = QDir::toNativeSeparators(m_folder->filePath("run/")).toStdString();
        const std::vector<std::string> expected = {"first",       "/x.001",      "one.001", "two.001",
                                                   run + "a.uds", run + "b.uds", "last"};
        QTRY_COMPARE(List().Files(), expected);
        QCOMPARE(m_settings->RecentFiles(), QStringList({list}));
        QVERIFY(m_messages.said.isEmpty());
    }

    void ADroppedHitListThatCannotBeReadSaysSoOnce() {
        Open({});
        emit List().PathsDropped({"/gone/a.hit", "/gone/b.hit", "/x.001"}, 0);
        QTRY_COMPARE(m_messages.said, QStringList({kUnreadable}));
        QCOMPARE(Files(), QString("/x.001"));
        QVERIFY(m_settings->RecentFiles().isEmpty());
    }

    void ADroppedFolderWithoutMatchingFilesSaysSo() {
        Write("run/a.txt", "x");
        Open(WithFiles({"first"}));
        emit List().PathsDropped({m_folder->filePath("run")}, 0);
        QTRY_COMPARE(m_messages.said,
                     QStringList({"information|Select Uds Files|The dropped items contain nothing to compare. "
                                  "Folders add only files of type UDS Force Data (*fa0.*)."}));
        QCOMPARE(Files(), QString("first"));
    }

    void ADroppedHitListThatCannotBeReadIsReportedOnlyOnce() {
        Open({});
        emit List().PathsDropped({"/gone/a.hit"}, 0);
        QTRY_COMPARE(m_messages.said, QStringList({kUnreadable}));
    }

    // OK.

    void WithoutAReferenceOkBeepsAndStays() {
        CFileSelection offered = Complete();
        offered.referencePath.clear();
        Open(offered);
        List().setFocus();
        PressOk();
        QCOMPARE(m_messages.said, QStringList({"beep"}));
        QVERIFY(m_dialog->isVisible());
        QVERIFY(m_dialog->focusWidget() == &Edit(kReferencePathId));
        QVERIFY(m_store->allKeys().isEmpty());
    }

    void WithoutFilesOkSaysSoAndStays() {
        CFileSelection offered = Complete();
        offered.files.clear();
        Open(offered);
        Edit(kMinTimeId).setText("0.10");
        PressOk();
        QCOMPARE(m_messages.said, QStringList({kNoSignal}));
        QVERIFY(m_dialog->isVisible());
        QVERIFY(m_dialog->focusWidget() == &List());
        QCOMPARE(Edit(kMinTimeId).text(), QString("0.1"));  // the controls are written back
        QVERIFY(m_store->allKeys().isEmpty());
    }

    void TheReferenceIsCheckedBeforeTheFiles() {
        Open({});
        PressOk();
        QCOMPARE(m_messages.said, QStringList({"beep"}));
    }

    void TheTimesAreReadBeforeTheReferenceIsChecked() {
        CFileSelection offered;
        offered.shouldTruncate = true;
        Open(offered);
        Edit(kMaxTimeId).setText("soon");
        PressOk();
        QCOMPARE(m_messages.said,
                 QStringList({"error|Error|Enter a number for \"Max Time\". Use a decimal point, for example 0.25."}));
        QVERIFY(m_dialog->isVisible());
        QVERIFY(m_dialog->focusWidget() == &Edit(kMaxTimeId));
    }

    void TheMinimumTimeIsReadFirst() {
        CFileSelection offered = Complete();
        offered.shouldTruncate = true;
        Open(offered);
        Edit(kMinTimeId).setText("nan");
        Edit(kMaxTimeId).setText("inf");
        PressOk();
        QCOMPARE(m_messages.said,
                 QStringList({"error|Error|Enter a number for \"Min Time\". Use a decimal point, for example 0.25."}));
        QVERIFY(m_dialog->focusWidget() == &Edit(kMinTimeId));
    }

    void TheAverageNeedsNoReference() {
        CFileSelection offered = Complete();
        offered.referencePath.clear();
        Open(offered);
        Button(kAverageReferenceId).click();
        PressOk();
        QVERIFY(m_messages.said.isEmpty());
        QCOMPARE(m_dialog->result(), int{QDialog::Accepted});
        QVERIFY(m_dialog->Selection().isReferenceAverage);
    }

    void TheAverageStillNeedsFiles() {
        Open({});
        Button(kAverageReferenceId).click();
        PressOk();
        QCOMPARE(m_messages.said, QStringList({kNoSignal}));
        QVERIFY(m_dialog->isVisible());
    }

    void OkStoresTheKindOfReference() {
        Open(Complete());
        PressOk();
        QCOMPARE(m_store->value("Settings/ReferenceType").toInt(), 0);
        QCOMPARE(m_store->allKeys(), QStringList({"Settings/ReferenceType"}));
        Open(Complete());
        Button(kAverageReferenceId).click();
        PressOk();
        QCOMPARE(m_store->value("Settings/ReferenceType").toInt(), 1);
    }

    void TheFilterCheckDecidesForTheReferenceToo() {
        for (const bool isFiltered : {true, false}) {
            CFileSelection offered = Complete();
            offered.shouldFilter = !isFiltered;
            offered.shouldFilterReference = !isFiltered;
            Open(offered);
            Button(kFilterId).click();
            PressOk();
            QCOMPARE(m_dialog->Selection().shouldFilter, isFiltered);
            QCOMPARE(m_dialog->Selection().shouldFilterReference, isFiltered);
        }
    }

    void TimesInTheWrongOrderAreReportedAndReturnedAllTheSame_data() {
        QTest::addColumn<bool>("truncate");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<bool>("isReported");
        QTest::newRow("min above max") << true << "0.2"
                                       << "0.1" << true;
        QTest::newRow("equal") << true << "0.2"
                               << "0.2" << true;
        QTest::newRow("also when not used") << false << "0.2"
                                            << "0.1" << true;
        QTest::newRow("right order") << true << "0.1"
                                     << "0.2" << false;
        QTest::newRow("right order by the last bit") << true << "0.3"
                                                     << "0.30000000000000004" << false;
    }
    void TimesInTheWrongOrderAreReportedAndReturnedAllTheSame() {
        QFETCH(bool, truncate);
        QFETCH(QString, start);
        QFETCH(QString, end);
        QFETCH(bool, isReported);
        CFileSelection offered = Complete();
        offered.shouldTruncate = true;
        Open(offered);
        Edit(kMinTimeId).setText(start);
        Edit(kMaxTimeId).setText(end);
        if (!truncate) Button(kTruncateId).click();
        PressOk();
        QCOMPARE(m_messages.said, isReported ? QStringList({kTimes}) : QStringList());
        if (isReported && truncate) QVERIFY(m_dialog->focusWidget() == &Edit(kMaxTimeId));
        QCOMPARE(m_dialog->result(), int{QDialog::Accepted});
        QVERIFY(!m_dialog->isVisible());
        QVERIFY(m_dialog->Selection().windowStart == start.toDouble());
        QVERIFY(m_dialog->Selection().windowEnd == end.toDouble());
        QCOMPARE(m_dialog->Selection().shouldTruncate, truncate);
    }

    void ATimeThatIsNoNumberDoesNotOutliveItsUse() {
        CFileSelection offered = Complete();
        offered.shouldTruncate = true;
        Open(offered);
        Edit(kMinTimeId).setText("");
        Edit(kMaxTimeId).setText("0.1");
        Button(kTruncateId).click();
        QCOMPARE(Edit(kMinTimeId).text(), QString("0"));
        QCOMPARE(Edit(kMaxTimeId).text(), QString("0.1"));
        PressOk();
        QCOMPARE(m_dialog->result(), int{QDialog::Accepted});
    }

    void TheFilesOfTheListAreReturnedInItsOrder() {
        CFileSelection offered = Complete();
        offered.files = {"a", "b", "c"};
        Open(offered);
        Select({2});
        QTest::keyClick(&List(), Qt::Key_Up, Qt::AltModifier);
        PressOk();
        const std::vector<std::string> expected = {"a", "c", "b"};
        QCOMPARE(m_dialog->Selection().files, expected);
    }

    void CancelKeepsTheOfferedChoice() {
        Open(Complete());
        Button(kAverageReferenceId).click();
        Select({0});
        Button(kRemoveFilesId).click();
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        QCOMPARE(m_dialog->Selection().files, Complete().files);
        QVERIFY(!m_dialog->Selection().isReferenceAverage);
        QVERIFY(m_store->allKeys().isEmpty());
    }

    // Keyboard and accessibility.

    void ReturnIsOk() {
        Open(Complete());
        Edit(kReferencePathId).setFocus();
        QTest::keyClick(&Edit(kReferencePathId), Qt::Key_Return);
        QCOMPARE(m_dialog->result(), int{QDialog::Accepted});
    }

    void OnlyOkIsADefaultButton() {
        Open({});
        const auto buttons = m_dialog->findChildren<QPushButton*>();
        for (const QPushButton* const button : buttons) {
            QCOMPARE(button->isDefault(), button == OkButton());
        }
    }

    void TheTabKeyVisitsTheControlsFromTopToBottom() {
        Open(WithFiles({"a"}));
        Button(kTruncateId).click();
        Select({0});
        List().setFocus();
        QStringList visited;
        for (int i = 0; i < 16; ++i) {
            visited.append(m_dialog->focusWidget()->objectName());
            QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Tab);
        }
        const QStringList expected = {"fileList",       "addButton",         "removeButton",      "moveUpButton",
                                      "moveDownButton", "readHitListButton", "saveHitListButton", "signalRadio",
                                      "averageRadio",   "referenceEdit",     "browseButton",      "filterCheck",
                                      "classCombo",     "truncateCheck",     "minTimeEdit",       "maxTimeEdit"};
        QCOMPARE(visited.mid(0, expected.size()), expected);
    }

    void EveryControlWithoutATextHasANameOfItsOwn() {
        Open({});
        for (const int id : {kReferencePathId, kBrowseReferenceId, kChannelClassId, kMinTimeId, kMaxTimeId}) {
            QVERIFY2(!Control<QWidget>(*m_dialog, id)->accessibleName().isEmpty(), qPrintable(QString::number(id)));
        }
        const auto buttons = m_dialog->findChildren<QAbstractButton*>();
        for (const QAbstractButton* const button : buttons) {
            if (button->property("controlId").isValid()) QVERIFY(!button->toolTip().isEmpty());
        }
    }

    void EveryShortcutDoesTheWorkOfItsControl_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("add") << "addButton" << Qt::Key_A;
        QTest::newRow("remove") << "removeButton" << Qt::Key_R;
        QTest::newRow("up") << "moveUpButton" << Qt::Key_U;
        QTest::newRow("down") << "moveDownButton" << Qt::Key_D;
        QTest::newRow("read") << "readHitListButton" << Qt::Key_H;
        QTest::newRow("save") << "saveHitListButton" << Qt::Key_S;
        QTest::newRow("one file") << "signalRadio" << Qt::Key_L;
        QTest::newRow("browse") << "browseButton" << Qt::Key_B;
        QTest::newRow("average") << "averageRadio" << Qt::Key_V;
        QTest::newRow("filter") << "filterCheck" << Qt::Key_F;
        QTest::newRow("truncate") << "truncateCheck" << Qt::Key_T;
    }
    void EveryShortcutDoesTheWorkOfItsControl() {
        QFETCH(QString, button);
        QFETCH(Qt::Key, key);
        Open(WithFiles({"a", "b", "c"}));
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
        Select({1});
        const auto* const target = m_dialog->findChild<QAbstractButton*>(button);
        const QSignalSpy clicked(target, &QAbstractButton::clicked);
        QTest::keyClick(m_dialog.get(), key, Qt::AltModifier);
        QTRY_COMPARE(clicked.size(), qsizetype{1});
        QVERIFY(!target->text().contains('&'));
    }

    void TheShortcutsReachTheListAndThePickers() {
        Open(WithFiles({"a", "b", "c"}));
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
        Select({1});
        QTest::keyClick(m_dialog.get(), Qt::Key_U, Qt::AltModifier);
        QTRY_COMPARE(Files(), QString("b a c"));
        QTest::keyClick(m_dialog.get(), Qt::Key_D, Qt::AltModifier);
        QTRY_COMPARE(Files(), QString("a b c"));
        QTest::keyClick(m_dialog.get(), Qt::Key_R, Qt::AltModifier);
        QTRY_COMPARE(Files(), QString("a c"));
        QStringList titles;
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_B, Qt::Key_H, Qt::Key_S}) {
            const std::size_t before = m_picker.requests.size();
            QTest::keyClick(m_dialog.get(), key, Qt::AltModifier);
            QTRY_COMPARE(m_picker.requests.size(), before + 1);
            titles.append(QString::fromStdString(m_picker.requests.back().title));
        }
        QCOMPARE(titles, QStringList({"Select Uds File(s) to Evaluate", "Select Reference Uds File", "Select Hit List",
                                      "Save Hit List as"}));
        QTest::keyClick(m_dialog.get(), Qt::Key_V, Qt::AltModifier);
        QTRY_VERIFY(Radio(kAverageReferenceId).isChecked());
        QTest::keyClick(m_dialog.get(), Qt::Key_L, Qt::AltModifier);
        QTRY_VERIFY(Radio(kSingleReferenceId).isChecked());
        QTest::keyClick(m_dialog.get(), Qt::Key_F, Qt::AltModifier);
        QTRY_VERIFY(!Check(kFilterId).isChecked());
        QTest::keyClick(m_dialog.get(), Qt::Key_T, Qt::AltModifier);
        QTRY_VERIFY(Check(kTruncateId).isChecked());
    }

    /// 1280 x 800 pixels at twice the size, less the frame and title bar.
    void TheDialogFitsASmallScreen() {
        Open({});
        const QSize smallest = m_dialog->minimumSizeHint();
        QVERIFY2(smallest.width() <= 600 && smallest.height() <= 340, qPrintable(SizeText(smallest)));
    }

    void TheDialogStartsWithinTheScreen() {
        Open({});
        QVERIFY(m_dialog->screen()->availableGeometry().contains(m_dialog->geometry()));
    }

    void NothingIsCutOffAtTheSmallestSize() {
        Open({});
        m_dialog->resize(m_dialog->minimumSizeHint());
        QCoreApplication::processEvents();
        QCOMPARE(CutOffTexts(*m_dialog), QStringList());
        QVERIFY(Edit(kMaxTimeId).width() > Edit(kMaxTimeId).fontMetrics().horizontalAdvance(Edit(kMaxTimeId).text()));
    }

private:
    static QString SizeText(const QSize& size) { return QString("%1 x %2").arg(size.width()).arg(size.height()); }

    void Open(const CFileSelection& offered) {
        m_dialog = std::make_unique<CSelectFiles>(offered, *m_settings, m_picker, m_messages);
        m_dialog->show();
    }

    static CFileSelection WithFiles(const std::vector<std::string>& files) {
        CFileSelection selection;
        selection.files = files;
        return selection;
    }

    /// A choice that passes every check.
    static CFileSelection Complete() {
        CFileSelection selection = WithFiles({"a.001"});
        selection.referencePath = "ref.001";
        return selection;
    }

    void CheckEnabled(bool isAverage, bool isFiltered, bool isTruncated) {
        QCOMPARE(Edit(kReferencePathId).isEnabled(), !isAverage);
        QCOMPARE(Button(kBrowseReferenceId).isEnabled(), !isAverage);
        QCOMPARE(ClassCombo().isEnabled(), isFiltered);
        QCOMPARE(Edit(kMinTimeId).isEnabled(), isTruncated);
        QCOMPARE(Edit(kMaxTimeId).isEnabled(), isTruncated);
        for (const int id : {kAddFilesId, kRemoveFilesId, kReadHitListId, kSaveHitListId, kSingleReferenceId,
                             kAverageReferenceId, kFilterId, kTruncateId}) {
            QVERIFY(Button(id).isEnabled());
        }
        QVERIFY(List().isEnabled());
    }

    static void CheckSignalFilters(const ks::CFileRequest& request) {
        QCOMPARE(request.filters.size(), std::size_t{6});
        for (std::size_t i = 0; i < 6; ++i) QCOMPARE(request.filters[i].text, DataTypeFilters()[i].text);
    }

    void CheckHitListRequest(const QString& title, ks::CPickerKind kind) {
        QCOMPARE(m_picker.requests.size(), std::size_t{1});
        const ks::CFileRequest& request = m_picker.requests[0];
        QCOMPARE(request.kind, kind);
        QCOMPARE(QString::fromStdString(request.title), title);
        QVERIFY(request.mustExist && request.shouldHideReadOnly);
        QCOMPARE(request.filters.size(), std::size_t{1});
        QCOMPARE(request.filters[0].text, std::string("Hit list files (*.hit)"));
        QCOMPARE(request.filters[0].pattern, std::string("*.hit"));
        QCOMPARE(request.filterIndex, 1);
        QCOMPARE(request.folder, std::string("c:\\"));
    }

    QAbstractButton* OkButton() { return m_dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok); }
    void PressOk() { OkButton()->click(); }
    QAbstractButton& Button(int id) { return *Control<QAbstractButton>(*m_dialog, id); }
    QRadioButton& Radio(int id) { return *Control<QRadioButton>(*m_dialog, id); }
    QCheckBox& Check(int id) { return *Control<QCheckBox>(*m_dialog, id); }
    QLineEdit& Edit(int id) { return *Control<QLineEdit>(*m_dialog, id); }
    QComboBox& ClassCombo() { return *Control<QComboBox>(*m_dialog, kChannelClassId); }
    CFileList& List() { return *Control<CFileList>(*m_dialog, kFileListId); }

    void Select(const QList<int>& rows) {
        List().clearSelection();
        for (const int row : rows) List().setCurrentRow(row, QItemSelectionModel::Select);
    }

    QString Files() {
        QStringList names;
        for (const std::string& file : List().Files()) names.append(QString::fromStdString(file));
        return names.join(' ');
    }

    QString LabelOf(int id) {
        const auto labels = m_dialog->findChildren<QLabel*>();
        for (const QLabel* const label : labels) {
            if (label->buddy() != nullptr && label->buddy()->property("controlId") == id) return label->text();
        }
        return {};
    }

    QString Write(const QString& name, const QByteArray& bytes) {
        const QString path = m_folder->filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("cannot write a test file");
        return QDir::toNativeSeparators(path);
    }

    static QByteArray ReadBytes(const QString& path) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read back a file");
        return file.readAll();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSettings> m_store;
    std::unique_ptr<CSettings> m_settings;
    CScriptedPicker m_picker;
    CRecordedMessages m_messages;
    std::unique_ptr<CSelectFiles> m_dialog;
};

QTEST_MAIN(CSelectFilesTest)
#include "select_files_test.moc"
