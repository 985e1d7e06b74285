// Other ways into the main window than "Select Files...": recent hit lists, drops, and viewing one file.

#include "app/commands.h"
#include "app/dialogs/file_picker.h"
#include "app/specification_host.h"
#include "app/table/summary_list.h"
#include "app/testing/control_ids.h"
#include "app/testing/widget_probe.h"
#include "app/testing/window_test.h"
#include "compare/setting_keys.h"
#include "files/hit_list.h"
#include "files/replacing_file.h"
#include "viewer/uds_dialog.h"

#include <QContextMenuEvent>
#include <QMap>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace {

QStringList Texts(const QWidget& menu) {
    QStringList texts;
    for (const QAction* const action : menu.actions()) texts.append(action->isSeparator() ? "-" : action->text());
    return texts;
}

QStringList ListedFiles(const QWidget& dialog) {
    QStringList files;
    for (const std::string& file : dialog.findChild<CFileList*>()->Files()) files.append(QString::fromStdString(file));
    return files;
}

}  // namespace

class CWindowFilesTest : public CWindowTest {
    Q_OBJECT

private slots:
    void init() { OpenWindow(); }
    void cleanup() { CloseWindow(); }

    // Recent files.

    void WithoutHitListsThereAreNoRecentFiles() {
        QVERIFY(RecentMenu().actions().isEmpty());
        QVERIFY(!RecentMenu().isEnabled());
    }

    void ReadAndSavedHitListsBecomeRecentFilesNewestFirst() {
        const QString read = WriteHitList("read & kept.hit", {"a.001"});
        m_window->picker.answers = {CPickedFiles{{read}, 1}, CPickedFiles{{m_window->Path("saved.hit")}, 1}};
        m_window->dialogs.Expect([](QWidget& dialog) {
            Control<QPushButton>(dialog, kReadHitListId)->click();
            Control<QPushButton>(dialog, kSaveHitListId)->click();
            dialog.close();
        });
        Trigger(CCommandId::SelectFiles);
        QCOMPARE(Texts(RecentMenu()),
                 QStringList({"&1 " + m_window->Path("saved.hit"), "&2 " + m_window->Path("read && kept.hit")}));
        QVERIFY(RecentMenu().isEnabled());
        const QAction& first = *RecentMenu().actions().first();
        QCOMPARE(first.property("commandId").toInt(), 57616);
        QCOMPARE(RecentMenu().actions().last()->property("commandId").toInt(), 57617);
        QCOMPARE(first.statusTip(), m_window->Path("saved.hit"));
        m_window->Reopen();
        QCOMPARE(RecentMenu().actions().size(), qsizetype{2});
    }

    void ALongPathIsCutInItsMiddleAndShownWholeInTheStatusBar() {
        const QString path = m_window->Path(QString(150, 'a') + "\tend.hit");
        m_window->settings.AddRecentFile(path);
        m_window->Reopen();
        const QAction& entry = *RecentMenu().actions().first();
        QCOMPARE(entry.text().size(), qsizetype{3 + 101});  // "&1 ", the path's ends and the dots between them
        QVERIFY(entry.text().startsWith("&1 " + m_window->folder.path().left(20)));
        QVERIFY2(entry.text().endsWith("aa end.hit"), qPrintable(entry.text()));
        QCOMPARE(entry.statusTip(), path);
    }

    void FourRecentFilesAreKept() {
        QStringList expected;
        for (int i = 1; i <= 5; ++i) {
            const QString path = WriteHitList(QString("list%1.hit").arg(i), {"a.001"});
            Drop({path});
            expected.prepend(path);
        }
        expected.removeLast();
        QCOMPARE(m_window->settings.RecentFiles(), expected);
        QCOMPARE(RecentMenu().actions().size(), qsizetype{4});
    }

    void ARecentFileOpensTheSelectionFilledWithIt() {
        const QString path = WriteHitList("list.hit", {"a.001", "", "b c.001"});
        m_window->settings.AddRecentFile(path);
        m_window->settings.AddRecentFile(m_window->Path("newer.hit"));
        m_window->Reopen();
        m_window->CompareSled();
        QStringList files;
        QString reference;
        m_window->dialogs.Expect([&](QWidget& dialog) {
            files = ListedFiles(dialog);
            reference = Control<QLineEdit>(dialog, kReferencePathId)->text();
            dialog.close();
        });
        RecentMenu().actions()[1]->trigger();
        QTRY_COMPARE(files, QStringList({"a.001", "b c.001"}));
        QCOMPARE(reference, QString::fromStdString(Sled(1)));  // the rest is offered again
        QCOMPARE(m_window->settings.RecentFiles().first(), path);
        QCOMPARE(m_window->frame->Document().ComputedSignals().size(), std::size_t{3});  // canceled
    }

    void TheFilesOfARecentFileAreOfferedOnce() {
        Drop({WriteHitList("list.hit", {"a.001"})});
        QStringList files = {"not opened"};
        m_window->dialogs.Expect([&](QWidget& dialog) {
            files = ListedFiles(dialog);
            dialog.close();
        });
        Trigger(CCommandId::SelectFiles);
        QCOMPARE(files, QStringList());
    }

    void AMissingRecentFileIsRemovedFromTheListWithAMessage() {
        const QString path = m_window->Path("gone.hit");
        m_window->settings.AddRecentFile(WriteHitList("other.hit", {"a.001"}));
        m_window->settings.AddRecentFile(path);
        m_window->Reopen();
        RecentMenu().actions().first()->trigger();
        QTRY_COMPARE(m_window->messages.said, QStringList({"error|Error|The hit list " + path +
                                                           " no longer exists. It was removed from the recent "
                                                           "files."}));
        QCOMPARE(Texts(RecentMenu()), QStringList({"&1 " + m_window->Path("other.hit")}));
        QCOMPARE(m_window->settings.RecentFiles(), QStringList({m_window->Path("other.hit")}));
    }

    void ARecentFileThatCannotBeReadSaysSo() {
        QVERIFY(QDir(m_window->folder.path()).mkdir("folder.hit"));
        m_window->settings.AddRecentFile(m_window->Path("folder.hit"));
        m_window->Reopen();
        RecentMenu().actions().first()->trigger();
        QTRY_COMPARE(m_window->messages.said, QStringList({"error|Error|Unable to read Hit list file"}));
        QVERIFY(m_window->dialogs.opened.isEmpty());
    }

    // Drops.

    void DroppedFilesOpenTheSelectionOnceTheDropHasEnded() {
        const QStringList paths = {QString::fromStdString(Sled(3)), QString::fromStdString(Sled(2))};
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(paths[0]), QUrl::fromLocalFile(paths[1])});
        QStringList files;
        m_window->dialogs.Expect([&](QWidget& dialog) {
            files = ListedFiles(dialog);
            dialog.close();
        });
        QCOMPARE(SendDrop(*m_window->frame->windowHandle(), data, QPoint(300, 300)), Qt::CopyAction);
        QVERIFY(m_window->dialogs.opened.isEmpty());
        QTRY_COMPARE(files, paths);
    }

    void FilesCanBeDroppedOnEverythingTheWindowShows_data() {
        QTest::addColumn<QString>("page");
        QTest::newRow("table") << "Summary";
        QTest::newRow("chart") << "Velocity";
    }
    void FilesCanBeDroppedOnEverythingTheWindowShows() {
        QFETCH(QString, page);
        m_window->CompareSled();
        m_window->ChoosePage(page);
        QCOMPARE(Drop({"/a.001"}), QStringList({"/a.001"}));
    }

    void ADroppedHitListGivesItsFilesAndBecomesARecentFile() {
        const QString path = WriteHitList("list.hit", {"a.001", "b.001"});
        QCOMPARE(Drop({path}), QStringList({"a.001", "b.001"}));
        QCOMPARE(m_window->settings.RecentFiles(), QStringList({path}));
        QCOMPARE(Texts(RecentMenu()), QStringList({"&1 " + path}));
    }

    void ADroppedFolderGivesItsOwnFilesOfTheCurrentDataTypeSorted() {
        for (const QString& name :
             {QString("z1fa0.001"), QString("a1fa0.001"), QString("a1aa0.001"), QString("note")}) {
            WriteHitList(name, {"x"});
        }
        QVERIFY(QDir(m_window->folder.path()).mkdir("below"));
        WriteHitList("below/b1fa0.001", {"x"});
        // First forces, then accelerations.
        QCOMPARE(Drop({m_window->folder.path()}),
                 QStringList({m_window->Path("a1fa0.001"), m_window->Path("z1fa0.001")}));
        m_window->settings.Set(setting::kDataType, 1);
        QCOMPARE(Drop({m_window->folder.path()}), QStringList({m_window->Path("a1aa0.001")}));
    }

    void ADroppedFolderWithoutSuchFilesOpensNothing() {
        DropOnly({m_window->folder.path()});
        QVERIFY(m_window->dialogs.opened.isEmpty());
        QVERIFY(m_window->messages.said.isEmpty());
        QCOMPARE(m_window->StatusText(),
                 QString("The dropped items contain nothing to compare. Folders add only files of "
                         "type UDS Force Data (*fa0.*)."));
    }

    void ADroppedHitListThatCannotBeReadSaysSo() {
        DropOnly({m_window->Path("gone.hit")});
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|Unable to read Hit list file"}));
        QVERIFY(m_window->dialogs.opened.isEmpty());
        QVERIFY(m_window->settings.RecentFiles().isEmpty());
    }

    void WhatIsNoLocalFileIsNotTaken() {
        QMimeData text;
        text.setText("words");
        QCOMPARE(SendDrop(*m_window->frame->windowHandle(), text, QPoint(300, 300)), Qt::IgnoreAction);
        QMimeData remote;
        remote.setUrls({QUrl("https://example.com/a.001")});
        QCOMPARE(SendDrop(*m_window->frame->windowHandle(), remote, QPoint(300, 300)), Qt::IgnoreAction);
    }

    void NothingIsTakenWhileADialogIsOpen() {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Sled(2)))});
        Qt::DropAction action = Qt::CopyAction;
        m_window->dialogs.Expect([&](QWidget& dialog) {
            action = SendDrop(*m_window->frame->windowHandle(), data, QPoint(300, 300));
            dialog.close();
        });
        Trigger(CCommandId::SelectFiles);
        QCOMPARE(action, Qt::IgnoreAction);
    }

    // The context menu.

    void ARightClickOffersCutCopyAndPasteOfWhichOnlyCopyIsOn_data() {
        QTest::addColumn<QString>("page");
        QTest::newRow("nothing compared") << "";
        QTest::newRow("table") << "Summary";
        QTest::newRow("chart") << "Velocity";
    }
    void ARightClickOffersCutCopyAndPasteOfWhichOnlyCopyIsOn() {
        QFETCH(QString, page);
        if (!page.isEmpty()) {
            m_window->CompareSled();
            m_window->ChoosePage(page);
        }
        QStringList texts, shortcuts, enabled;
        m_window->dialogs.opened.clear();
        m_window->dialogs.Expect([&](QWidget& menu) {
            texts = Texts(menu);
            for (const QAction* const action : menu.actions()) {
                shortcuts.append(action->shortcut().toString());
                if (action->isEnabled()) enabled.append(action->text());
            }
            menu.close();
        });
        const QWidget& view = m_window->frame->View();
        RightClick(QPoint(view.width() / 2, view.height() - 20));  // below the rows of the table
        QCOMPARE(m_window->dialogs.opened, QStringList({"Edit"}));
        QCOMPARE(texts, QStringList({"Cu&t", "&Copy", "&Paste"}));
        QCOMPARE(shortcuts, QStringList({"Ctrl+X", "Ctrl+C", "Ctrl+V"}));
        QCOMPARE(enabled, QStringList({"&Copy"}));
    }

    void OnARowTheMenuAlsoOpensTheSpecificationOfItsFile() {
        m_window->CompareSled();
        QStringList texts;
        m_window->dialogs.Expect([&](QWidget& menu) {
            texts = Texts(menu);
            auto* const entry = menu.findChild<QAction*>("UdsSpecificationOfRow");
            QVERIFY(entry != nullptr);
            entry->trigger();
            menu.close();
        });
        RightClick(RowCenter(1));
        QCOMPARE(texts, QStringList({"Cu&t", "&Copy", "&Paste", "-", "UDS Speification"}));
        QCOMPARE(SheetTitles(), QStringList({"UDS File Specification - s01003aa0.001"}));
    }

    void ARowOfThePreviousRunKnowsItsOwnFile() {
        m_window->CompareSled();
        m_window->Compare({Sled(2), m_window->Path("gone.001").toStdString()}, "");
        QVERIFY(m_window->IsBannerShown());
        m_window->dialogs.Expect([&](QWidget& menu) {
            menu.findChild<QAction*>("UdsSpecificationOfRow")->trigger();
            menu.close();
        });
        RightClick(RowCenter(2));
        QCOMPARE(SheetTitles(), QStringList({"UDS File Specification - s01004aa0.001"}));
    }

    // The file viewer.

    void TheSpecificationOfAnyFileCanBeLookedAtAndChangesNoSetting() {
        CSettings& settings = m_window->settings;
        settings.Set(setting::kInputDir, m_window->folder.path());
        settings.Set(setting::kReferenceDir, "/elsewhere");
        settings.Set(setting::kDataType, 6);
        settings.Set(setting::kAsciiOutputDir, "/ascii");
        m_window->picker.answers = {CPickedFiles{{QString::fromStdString(Force(2))}, 5}};
        const auto before = StoredValues();
        QVERIFY(before.size() >= 4);
        Trigger(CCommandId::UdsSpecification);
        QCOMPARE(m_window->picker.requests.size(), std::size_t{1});
        const ks::CFileRequest& request = m_window->picker.requests[0];
        QVERIFY(request.kind == ks::CPickerKind::OpenOne && request.mustExist);
        QCOMPARE(request.title, std::string("Select Uds File to View"));
        QCOMPARE(request.filters.size(), std::size_t{6});
        QCOMPARE(request.filterIndex, 6);
        QCOMPARE(request.folder, m_window->folder.path().toStdString());
        QCOMPARE(SheetTitles(), QStringList({"UDS File Specification - f01002fa0.001"}));
        QCOMPARE(StoredValues(), before);
    }

    void ThePickerOfTheSpecificationStartsFromTheFallbacks() {
        Trigger(CCommandId::UdsSpecification);
        QCOMPARE(m_window->picker.requests.size(), std::size_t{1});
        QCOMPARE(m_window->picker.requests[0].filterIndex, 3);
        QCOMPARE(m_window->picker.requests[0].folder, std::string("Q:\\uds\\vehdb"));
        QCOMPARE(SheetTitles(), QStringList());
    }

    void TheSheetSavesPointsWhereAsciiOutputGoes() {
        CSpecificationHost host({m_window->settings, m_window->picker, m_window->messages, m_window->printers});
        m_window->settings.Set(setting::kAsciiOutputDir, m_window->folder.path());
        m_window->settings.Set(setting::kUdsOutputDir, "/elsewhere");
        const auto before = StoredValues();
        ks::CFileRequest asked = ks::SaveRequest("Export Points");
        asked.filters = {{"ASCI Files (*.txt)", "*.txt"}, {"All Files (*.*)", "*.*"}};
        asked.suggestedName = "a.uds.txt";
        asked.defaultExtension = "txt";
        QVERIFY(!host.AskSavePath(nullptr, asked));  // canceled
        m_window->picker.answers = {CPickedFiles{{m_window->Path("points.txt")}, 2}};
        QCOMPARE(host.AskSavePath(nullptr, asked), std::optional<QString>(m_window->Path("points.txt")));
        QCOMPARE(m_window->picker.requests.size(), std::size_t{2});
        for (const ks::CFileRequest& request : m_window->picker.requests) {
            QVERIFY(request.kind == ks::CPickerKind::Save && request.shouldAskBeforeOverwriting);
            QCOMPARE(request.title, std::string("Export Points"));
            QCOMPARE(request.folder, m_window->folder.path().toStdString());
            QCOMPARE(request.suggestedName, std::string("a.uds.txt"));
            QCOMPARE(request.defaultExtension, std::string("txt"));
            QCOMPARE(request.filterIndex, 1);
            QCOMPARE(request.filters.size(), std::size_t{2});
            QCOMPARE(request.filters[0].text, std::string("ASCI Files (*.txt)"));
            QCOMPARE(request.filters[0].pattern, std::string("*.txt"));
            QCOMPARE(request.filters[1].text, std::string("All Files (*.*)"));
            QCOMPARE(request.filters[1].pattern, std::string("*.*"));
        }
        QCOMPARE(StoredValues(), before);
    }

    void PointsThatWereNeverSavedStartInTheFallback() {
        CSpecificationHost host({m_window->settings, m_window->picker, m_window->messages, m_window->printers});
        QVERIFY(!host.AskSavePath(nullptr, {}));
        QCOMPARE(m_window->picker.requests.at(0).folder, std::string("C:\\"));
    }

    void TheSheetSpeaksThroughTheWindowsMessages() {
        CSpecificationHost host({m_window->settings, m_window->picker, m_window->messages, m_window->printers});
        host.ShowError(nullptr, "Check Radio Button X or XY");
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|Check Radio Button X or XY"}));
    }

    void AFileThatIsNoUdsFileIsReported() {
        m_window->picker.answers = {CPickedFiles{{WriteHitList("words.001", {"words"})}, 1}};
        Trigger(CCommandId::UdsSpecification);
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|File size not a multiple of 512 bytes."}));
        QCOMPARE(SheetTitles(), QStringList());
    }

    void LoadedFilesCanBeLookedAtReferenceFirst() {
        QVERIFY(!LoadedMenu().isEnabled());
        m_window->CompareForce();
        QVERIFY(LoadedMenu().isEnabled());
        emit LoadedMenu().aboutToShow();
        QCOMPARE(Texts(LoadedMenu()),
                 QStringList({"&1 " + QString::fromStdString(Force(1)), "&2 " + QString::fromStdString(Force(2)),
                              "&3 " + QString::fromStdString(Force(3))}));
        LoadedMenu().actions()[2]->trigger();
        QTRY_COMPARE(SheetTitles(), QStringList({"UDS File Specification - f01003fa0.001"}));
    }

    void AReferenceMadeFromTheSignalsIsNotListedTwice() {
        m_window->Compare({Force(2), Force(3)}, "");
        emit LoadedMenu().aboutToShow();
        QCOMPARE(LoadedMenu().actions().size(), qsizetype{2});
    }

private:
    /// Every stored key with its value.
    QMap<QString, QVariant> StoredValues() {
        m_window->store.sync();
        QMap<QString, QVariant> values;
        const QStringList keys = m_window->store.allKeys();
        for (const QString& key : keys) values[key] = m_window->store.value(key);
        return values;
    }

    /// The submenu of "File" whose text is `text`.
    QMenu& SubMenu(const QString& text) {
        const auto menus = m_window->frame->findChildren<QMenu*>();
        for (QMenu* const menu : menus) {
            if (menu->title() == text) return *menu;
        }
        qFatal("no such menu");
    }
    QMenu& RecentMenu() { return SubMenu("Recent File"); }
    QMenu& LoadedMenu() { return SubMenu("UDS Specification &of"); }

    /// A text file with these lines.
    QString WriteHitList(const QString& name, const std::vector<std::string>& lines) {
        const QString path = m_window->Path(name);
        if (ks::WriteHitList(path.toStdString(), lines) != ks::CWriteResult::Written) return {};
        return path;
    }

    /// Drops paths on the window and lets the program work until it is idle.
    void DropOnly(const QStringList& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths) urls.append(QUrl::fromLocalFile(path));
        data.setUrls(urls);
        QCOMPARE(SendDrop(*m_window->frame->windowHandle(), data, QPoint(300, 300)), Qt::CopyAction);
        QCoreApplication::processEvents();
    }

    /// Drops paths on the window and cancels the selection that opens; gives the files that it offered.
    QStringList Drop(const QStringList& paths) {
        QStringList files;
        m_window->dialogs.Expect([&](QWidget& dialog) {
            files = ListedFiles(dialog);
            dialog.close();
        });
        DropOnly(paths);
        return files;
    }

    QPoint RowCenter(int row) {
        const CSummaryList& list = *m_window->List();
        return list.viewport()->mapTo(&m_window->frame->View(), list.visualRect(list.model()->index(row, 0)).center());
    }

    /// A right click of the mouse, all the way through the window; `place` is in the view.
    void RightClick(const QPoint& place) {
        QVERIFY(QTest::qWaitForWindowExposed(m_window->frame.get()));
        const QPoint inFrame = m_window->frame->View().mapTo(m_window->frame.get(), place);
        QTest::mouseClick(m_window->frame->windowHandle(), Qt::RightButton, {}, inFrame);
    }

    /// Captions of the file viewer's sheets on the screen.
    static QStringList SheetTitles() {
        QStringList titles;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (const QWidget* const window : windows) {
            if (qobject_cast<const ksres::CUDSDialog*>(window) != nullptr && window->isVisible()) {
                titles.append(window->windowTitle());
            }
        }
        return titles;
    }
};

QTEST_MAIN(CWindowFilesTest)
#include "window_files_test.moc"
