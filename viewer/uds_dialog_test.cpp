#include "viewer/uds_dialog.h"

#include "tests/support/failing_flush.h"
#include "tests/support/temp_folder.h"
#include "tests/support/uds_bytes.h"
#include "viewer/header_pages.h"
#include "viewer/print_preview.h"
#include "viewer/testing/recorded_viewer_host.h"
#include "viewer/testing/two_component_file.h"
#include "viewer/value_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMimeData>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QUrl>
#include <QWindow>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
namespace {

QString Text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

/// The groups that a page shows, each line as "label value".
QList<CExpectedGroup> Groups(const QWidget& page) {
    QList<CExpectedGroup> groups;
    const auto boxes = page.findChildren<QGroupBox*>();
    for (const QGroupBox* const box : boxes) {
        CExpectedGroup group{box->title(), {}};
        const auto edits = box->findChildren<CValueEdit*>();
        const auto labels = box->findChildren<QLabel*>();
        for (CValueEdit* const edit : edits) {
            for (const QLabel* const label : labels) {
                if (label->buddy() == edit) group.lines.append(label->text() + ' ' + edit->text());
            }
        }
        groups.append(group);
    }
    return groups;
}

/// Title and lines as one text, which a failed comparison prints.
QString Written(const QList<CExpectedGroup>& groups) {
    QStringList texts;
    for (const CExpectedGroup& group : groups) texts.append(group.title + '\n' + group.lines.join('\n'));
    return texts.join("\n\n");
}

/// The groups as the pages have them: the one of curve data and sensor is on two pages.
QList<CExpectedGroup> ExpectedGroup(const QString& title, qsizetype first = 0, qsizetype count = -1) {
    for (const CExpectedGroup& group : ExpectedGroups())
        if (group.title == title) return {{title, group.lines.mid(first, count)}};
    return {};
}

std::unique_ptr<QMimeData> Files(const QStringList& paths) {
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const QString& path : paths) urls.append(QUrl::fromLocalFile(path));
    data->setUrls(urls);
    return data;
}

/// Drags `data` over `target` and drops it there if that is allowed.
bool Drop(QWidget& target, const QMimeData& data) {
    const QPoint middle = target.rect().center();
    QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    return drop.isAccepted();
}

}  // namespace

class CUDSDialogTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_host = std::make_unique<CRecordedViewerHost>();
        m_path = Text(m_folder.Write("two.uds", TwoComponentFile()));
        m_sheet.reset(ksres::CUDSDialog::ShowFile(m_path, *m_host, nullptr));
        QVERIFY(m_sheet);
    }
    void cleanup() { m_sheet.reset(); }

    // Pages and fields.

    void TheCaptionNamesTheFile() { QCOMPARE(m_sheet->windowTitle(), QString("UDS File Specification - two.uds")); }

    void ACaptionTakesEveryName() {
        for (const QString name : {"a[*].uds", "[*][*]", "a&b.uds", "<b>.uds"}) {
            m_sheet->ShowRecord({}, "folder/" + name);
            QCOMPARE(m_sheet->windowHandle()->title(), "UDS File Specification - " + name);
        }
    }

    void ThePagesAreTheKnownOnes() {
        const QStringList pages = {"ksres::CUDSTestDialog",       "ksres::CUDSVehDialog",
                                   "ksres::CUdsVeh1Dialog",       "ksres::CUdsVeh2Dialog",
                                   "ksres::CUDSOCCDialog",        "ksres::CUdsOcc1Dialog",
                                   "ksres::CUdsOcc2Dialog",       "ksres::CUdsOccupantInjuryDialog",
                                   "ksres::CUDSCurveDialog",      "ksres::CUdsCurveDataDialog",
                                   "ksres::CUdsSensorInfoDialog", "ksres::CUdsCurveUserDialog"};
        QStringList shown;
        const auto found = m_sheet->findChildren<ksres::CHeaderPage*>();
        for (const ksres::CHeaderPage* const page : found) shown.append(page->metaObject()->className());
        shown.sort();
        QStringList expected = pages;
        expected.sort();
        QCOMPARE(shown, expected);
        QCOMPARE(m_sheet->findChildren<ksres::CPrintPreviewer*>().size(), qsizetype{1});
    }

    void SubPagesAreOnTheirPages() {
        QVERIFY(Page<ksres::CUDSVehDialog>()->findChild<ksres::CUdsVeh1Dialog*>());
        QVERIFY(Page<ksres::CUDSVehDialog>()->findChild<ksres::CUdsVeh2Dialog*>());
        QVERIFY(Page<ksres::CUDSOCCDialog>()->findChild<ksres::CUdsOcc1Dialog*>());
        QVERIFY(Page<ksres::CUDSOCCDialog>()->findChild<ksres::CUdsOcc2Dialog*>());
        QVERIFY(Page<ksres::CUDSOCCDialog>()->findChild<ksres::CUdsOccupantInjuryDialog*>());
        QVERIFY(Page<ksres::CUDSCurveDialog>()->findChild<ksres::CUdsCurveDataDialog*>());
        QVERIFY(Page<ksres::CUDSCurveDialog>()->findChild<ksres::CUdsSensorInfoDialog*>());
        QVERIFY(Page<ksres::CUDSCurveDialog>()->findChild<ksres::CUdsCurveUserDialog*>());
    }

    void EveryPageShowsItsFields() {
        QCOMPARE(Written(Groups(*Page<ksres::CUDSTestDialog>())),
                 Written(ExpectedGroup("File") + ExpectedGroup("Test")));
        QCOMPARE(Written(Groups(*Page<ksres::CUdsVeh1Dialog>())), Written(ExpectedGroup("Vehicle One")));
        QCOMPARE(Written(Groups(*Page<ksres::CUdsVeh2Dialog>())), Written(ExpectedGroup("Vehicle Two")));
        QCOMPARE(Written(Groups(*Page<ksres::CUdsOcc1Dialog>())), Written(ExpectedGroup("Occupant One")));
        QCOMPARE(Written(Groups(*Page<ksres::CUdsOcc2Dialog>())), Written(ExpectedGroup("Occupant Two")));
        QCOMPARE(Written(Groups(*Page<ksres::CUdsOccupantInjuryDialog>())), Written(ExpectedGroup("Occupant InJury")));
        QCOMPARE(Written(Groups(*Page<ksres::CUdsCurveDataDialog>())),
                 Written(ExpectedGroup("Curve data and sensor", 0, 8)));
        QCOMPARE(Written(Groups(*Page<ksres::CUdsSensorInfoDialog>())),
                 Written(ExpectedGroup("Curve data and sensor", 8)));
        QCOMPARE(Written(Groups(*Page<ksres::CUdsCurveUserDialog>())), Written(ExpectedGroup("Curve User Data")));
        QCOMPARE(Written(Groups(*Page<ksres::CUDSCurveDialog>()).mid(0, 1)), Written(ExpectedGroup("Curve")));
        QCOMPARE(Groups(*Page<ksres::CUDSCurveDialog>()).size(), qsizetype{4});  // its own and one per sub-page
    }

    void ValuesCanBeReadSelectedAndReachedButNotEdited() {
        const auto edits = m_sheet->findChildren<CValueEdit*>();
        QCOMPARE(edits.size(), qsizetype{4 + 7 + 2 * 7 + 2 * 7 + 4 + 11 + 10 + 10});
        for (const CValueEdit* const edit : edits) {
            QVERIFY(edit->isReadOnly() && edit->isEnabled());
            QVERIFY((edit->focusPolicy() & Qt::TabFocus) != 0);
            QVERIFY(!edit->accessibleName().isEmpty());
        }
    }

    void ScreenReadersTellTheTwoVehiclesApart() {
        const auto hasName = [this](const QString& name, const QString& value) {
            const auto edits = m_sheet->findChildren<CValueEdit*>();
            return std::any_of(edits.begin(), edits.end(), [&](const CValueEdit* edit) {
                return edit->accessibleName() == name && edit->text() == value;
            });
        };
        QVERIFY(hasName("Vehicle One, Make", "MAKE A"));
        QVERIFY(hasName("Vehicle Two, Make", "MAKE B"));
        QVERIFY(hasName("Occupant InJury, HIC", "810.250000"));
    }

    void AValueCanBeCopied() {
        auto* const edit = Page<ksres::CUdsVeh1Dialog>()->findChild<CValueEdit*>();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), QString("MAKE A"));
        QTest::keyClick(edit, 'x');
        QCOMPARE(edit->text(), QString("MAKE A"));
    }

    void TabGoesThroughTheValuesInOrder() {
        m_sheet->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_sheet.get()));
        const auto edits = Page<ksres::CUDSTestDialog>()->findChildren<CValueEdit*>();
        edits.front()->setFocus();
        for (qsizetype next = 1; next < edits.size(); ++next) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QVERIFY(QApplication::focusWidget() == edits[next]);
        }
    }

    void TabGoesFromThePagesTabsThroughEverything_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<QStringList>("expected");
        const auto row = [](const char* name, int page, const QStringList& expected) {
            const QStringList below = {"modeBox", "printButton", "xButton", "exportButton", "closeButton"};
            QTest::newRow(name) << page << QStringList("qt_tabwidget_tabbar") + expected + below;
        };
        const QString tabs("qt_tabwidget_tabbar");  // of the sub-pages
        row("test", 0,
            {"File, Version", "File, Form", "File, Number Format", "File, Unit System", "Test, Source",
             "Test, Test Number", "Test, Ref Number", "Test, Configuration", "Test, Closing Speed", "Test, Performer",
             "Test, Title"});
        row("vehicles", 1,
            {tabs, "Vehicle One, Make", "Vehicle One, Year", "Vehicle One, Model", "Vehicle One, Engine Type",
             "Vehicle One, Body", "Vehicle One, Weight", "Vehicle One, Speed"});
        row("occupants", 2,
            {tabs, "Occupant One, Type", "Occupant One, Sex", "Occupant One, Weight", "Occupant One, Age",
             "Occupant One, Dummy Size", "Occupant One, Primary Restraint", "Occupant One, Secondary Restraint"});
        const QString data("Curve data and sensor, ");
        row("curve", 3,
            {"Curve, Curve",
             "Curve, Status",
             "Curve, Data Type",
             "Curve, Time Step",
             "Curve, Time Range",
             "Curve, Units",
             "Curve, SenAtt",
             "Curve, Type",
             "Curve, InitVel",
             "Curve, Filter Cutoff",
             "Curve, Number of Points",
             tabs,
             data + "Curve Description",
             data + "CD1",
             data + "CD2",
             data + "First Point",
             data + "Last Point",
             data + "Data Max",
             data + "Data min",
             data + "Scale Factor"});
        row("preview", 4,
            {"paperBox", "Next page", "Show the pages larger", "Show the pages smaller", "Show one whole page",
             "Fit the page width to the window", "Pages of the report"});
    }
    void TabGoesFromThePagesTabsThroughEverything() {
        QFETCH(int, page);
        QFETCH(QStringList, expected);
        m_sheet->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_sheet.get()));
        Child<QComboBox>("modeBox")->setCurrentIndex(1);  // two pages: one can go to the next
        auto* const pages = Child<QTabWidget>("pages");
        pages->setCurrentIndex(page);
        QCoreApplication::processEvents();
        pages->tabBar()->setFocus();
        QStringList reached, backwards;
        do {
            reached.append(NameOf(*QApplication::focusWidget()));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (QApplication::focusWidget() != pages->tabBar() && reached.size() < 100);
        QCOMPARE(reached.join(" > "), expected.join(" > "));
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
            backwards.prepend(NameOf(*QApplication::focusWidget()));
        } while (QApplication::focusWidget() != pages->tabBar() && backwards.size() < 100);
        QCOMPARE(backwards.join(" > "), expected.join(" > "));
    }

    void ThePreviewFitsASmallSheet_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("twice as large as usual on 1280 x 900") << QSize(600, 390);
        QTest::newRow("smallest") << QSize(1, 1);
    }
    void ThePreviewFitsASmallSheet() {
        QFETCH(QSize, size);
        m_sheet->resize(size);
        const QSize before = m_sheet->size();
        const QSize hint = m_sheet->sizeHint();
        QVERIFY(before.width() <= 600 && before.height() <= 390);
        const QWidget* const page = ShowPreview();
        QCoreApplication::processEvents();
        QCOMPARE(m_sheet->size(), before);
        QCOMPARE(m_sheet->sizeHint(), hint);
        const QWidget& area = *page->parentWidget();
        for (const char* name : {"paperBox", "previousPageButton", "nextPageButton", "placeLabel", "zoomInButton",
                                 "zoomOutButton", "fitPageButton", "fitWidthButton"}) {
            const QWidget& control = *Child<QWidget>(name);
            const QRect place(control.mapTo(&area, QPoint()), control.size());
            QVERIFY2(place.left() >= 0 && place.right() < area.width(), name);
            QVERIFY2(control.width() >= control.minimumSizeHint().width(), name);
        }
        if (size.height() < 390) return;  // lower ones scroll
        QVERIFY(page->height() <= area.height());
    }

    void TheSheetHasRoomForEveryPage() {
        const QSize room = m_sheet->screen()->availableSize() - QSize(40, 60);  // less frame and title bar
        if (room.boundedTo(m_sheet->sizeHint()) != m_sheet->sizeHint()) QSKIP("The screen is too small.");
        ForEachTab([](QWidget& tab) {
            const auto* const area = qobject_cast<QScrollArea*>(&tab);
            if (area == nullptr) return;
            QTRY_VERIFY(area->widget()->width() <= area->viewport()->width());
            QTRY_VERIFY(area->widget()->height() <= area->viewport()->height());
        });
    }

    void NoValueIsCutOff() {
        m_sheet->Open(Text(m_folder.Write("wide.uds", WideTextFile())));
        ForEachTab([](QWidget& tab) {
            const auto edits = tab.findChildren<CValueEdit*>();
            for (const CValueEdit* const edit : edits) {
                if (!edit->isVisible()) continue;
                QTRY_VERIFY(edit->fontMetrics().horizontalAdvance(edit->text()) < edit->width());
                QTRY_VERIFY(edit->height() >= edit->fontMetrics().height());
            }
            const auto labels = tab.findChildren<QLabel*>();
            for (const QLabel* const label : labels)
                QTRY_VERIFY(!label->isVisible() || label->width() >= label->sizeHint().width());
        });
    }

    void AFileOfOneComponentLeavesTheSecondsFieldsEmpty() {
        m_sheet->Open(Text(m_folder.Write("one.uds", UdsFile({}).Text())));
        auto* const page = Page<ksres::CUdsVeh2Dialog>();
        QCOMPARE(Groups(*page).front().lines.join('|'),
                 QString("Make: |Year: |Model: |Engine Type: |Body: |Weight: |Speed: "));
        QCOMPARE(Notes(*page), QStringList({"The file has no second component."}));
        QCOMPARE(Notes(*Page<ksres::CUdsVeh1Dialog>()), QStringList());
        m_sheet->Open(m_path);
        QCOMPARE(Notes(*page), QStringList());
    }

    // Opening.

    void AFileThatCannotBeReadIsReportedInTheReadersWords() {
        const QString path = Text(m_folder.Write("short.uds", "too short"));
        QVERIFY(ksres::CUDSDialog::ShowFile(path, *m_host, nullptr) == nullptr);
        QCOMPARE(m_host->errors, QStringList({"File size not a multiple of 512 bytes."}));
    }

    void TheWaitCursorIsUpWhileAFileIsRead() {
        bool isWaiting = false;
        connect(m_sheet.get(), &QWidget::windowTitleChanged, this, [&] {
            const QCursor* const cursor = QApplication::overrideCursor();
            isWaiting = cursor != nullptr && cursor->shape() == Qt::WaitCursor;
        });
        QVERIFY(m_sheet->Open(Text(m_folder.Write("other.uds", UdsFile({}).Text()))));
        QVERIFY(isWaiting);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QVERIFY(!m_sheet->Open(Text(m_folder.Write("short.uds", "too short"))));
        QCOMPARE(m_host->errors.size(), qsizetype{1});
        QVERIFY(!m_host->wasWaiting);  // the user reads the sentence
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void AMissingFileIsReportedInTheReadersWords() {
        const QString path = Text(m_folder.Path("missing.uds"));
        QVERIFY(ksres::CUDSDialog::ShowFile(path, *m_host, nullptr) == nullptr);
        QCOMPARE(m_host->errors, QStringList({"Failure to open file: " + path + " for reading."}));
    }

    void AClosedSheetIsGone() {
        QPointer<ksres::CUDSDialog> sheet = m_sheet.release();
        QTest::mouseClick(sheet->findChild<QPushButton*>("closeButton"), Qt::LeftButton);
        QTRY_VERIFY(sheet.isNull());
    }

    void ARecordAlreadyReadCanBeShown() {
        ks::CNSignal record;
        record.SetData({0.0, 1.0}, {1.0, 2.0});
        record.SetMAKE1("BY HAND");
        m_sheet->ShowRecord(record, "some/folder/record.uds");
        QCOMPARE(m_sheet->windowTitle(), QString("UDS File Specification - record.uds"));
        QCOMPARE(Groups(*Page<ksres::CUdsVeh1Dialog>()).front().lines.front(), QString("Make: BY HAND"));
    }

    // Dropping a file.

    void ADroppedFileTakesThePlaceOfTheOneShown() {
        const QString path = Text(m_folder.Write("dropped.uds", UdsFile({}).Text()));
        QVERIFY(Drop(*m_sheet, *Files({path})));
        QTRY_COMPARE(m_sheet->windowTitle(), QString("UDS File Specification - dropped.uds"));
        QCOMPARE(Groups(*Page<ksres::CUDSTestDialog>()).back().lines[1], QString("Test Number: 0"));
    }

    void AFileDroppedOnAValueOrThePreviewReachesTheSheet() {
        const QString path = Text(m_folder.Write("dropped.uds", UdsFile({}).Text()));
        QVERIFY(Drop(*Page<ksres::CUDSTestDialog>()->findChild<CValueEdit*>(), *Files({path})));
        QTRY_COMPARE(m_sheet->windowTitle(), QString("UDS File Specification - dropped.uds"));
        QWidget* const view = ShowPreview();
        QVERIFY(Drop(*view->findChild<QAbstractScrollArea*>()->viewport(), *Files({m_path})));
        QTRY_COMPARE(m_sheet->windowTitle(), QString("UDS File Specification - two.uds"));
    }

    void ADroppedFileThatCannotBeReadLeavesTheSheetAsItIs() {
        const QString path = Text(m_folder.Write("short.uds", "too short"));
        QVERIFY(Drop(*m_sheet, *Files({path})));
        QTRY_COMPARE(m_host->errors, QStringList({"File size not a multiple of 512 bytes."}));
        QCOMPARE(m_sheet->windowTitle(), QString("UDS File Specification - two.uds"));
        QCOMPARE(Groups(*Page<ksres::CUdsVeh1Dialog>()).front().lines.front(), QString("Make: MAKE A"));
    }

    /// A file manager that is told its file was moved deletes it.
    void AFileThatIsOfferedToBeMovedIsCopied() {
        const auto data = Files({m_path});
        const auto checkCopied = [this](QDropEvent& event) {
            QCOMPARE(event.proposedAction(), Qt::MoveAction);
            QApplication::sendEvent(m_sheet.get(), &event);
            QVERIFY(event.isAccepted());
            QCOMPARE(event.dropAction(), Qt::CopyAction);
        };
        const QPoint middle = m_sheet->rect().center();
        constexpr auto kOffered = Qt::CopyAction | Qt::MoveAction;  // the shift key proposes to move
        QDragEnterEvent enter(middle, kOffered, data.get(), Qt::LeftButton, Qt::ShiftModifier);
        checkCopied(enter);
        QDragMoveEvent move(middle, kOffered, data.get(), Qt::LeftButton, Qt::ShiftModifier);
        checkCopied(move);
        QDropEvent drop(middle, kOffered, data.get(), Qt::LeftButton, Qt::ShiftModifier);
        checkCopied(drop);
    }

    void AFileThatCanOnlyBeMovedIsRefused() {
        const auto data = Files({m_path});
        QDragEnterEvent enter({10, 10}, Qt::MoveAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_sheet.get(), &enter);
        QVERIFY(!enter.isAccepted());
    }

    void OnlyOneLocalFileIsTaken() {
        QVERIFY(!Drop(*m_sheet, *Files({m_path, m_path})));
        QVERIFY(!Drop(*m_sheet, *Files({})));
        QMimeData remote;
        remote.setUrls({QUrl("https://example.org/a.uds")});
        QVERIFY(!Drop(*m_sheet, remote));
    }

    // Export.

    void NeitherFormIsChosenAtFirst() {
        QVERIFY(!Child<QRadioButton>("xButton")->isChecked());
        QVERIFY(!Child<QRadioButton>("xyButton")->isChecked());
    }

    void ExportWithoutAFormAsksForOne() {
        Click("exportButton");
        QCOMPARE(m_host->errors, QStringList({"Check Radio Button X or XY"}));
        QVERIFY(m_host->saveRequests.empty());
    }

    void TheSavePickerOffersTextFiles() {
        Export("xyButton", {});
        QCOMPARE(m_host->saveRequests.size(), std::size_t{1});
        const ks::CFileRequest& request = m_host->saveRequests.front();
        QCOMPARE(request.filters.size(), std::size_t{2});
        QCOMPARE(request.filters[0].text, std::string("ASCI Files (*.txt)"));
        QCOMPARE(request.filters[0].pattern, std::string("*.txt"));
        QCOMPARE(request.filters[1].text, std::string("All Files (*.*)"));
        QCOMPARE(request.filters[1].pattern, std::string("*.*"));
        QCOMPARE(request.defaultExtension, std::string("txt"));
        QCOMPARE(request.suggestedName, std::string("two.uds.txt"));
        QCOMPARE(m_host->errors, QStringList());
    }

    void XyWritesAPointPerLine() {
        const std::string path = m_folder.Path("xy.txt");
        Export("xyButton", Text(path));
        QCOMPARE(Text(ReadAll(path)), QString("-0.5 1\r\n0 -2\r\n0.5 4\r\n1 0.5\r\n"));
        QCOMPARE(m_host->errors, QStringList());
    }

    void XWritesAValuePerLine() {
        const std::string path = m_folder.Path("x.txt");
        Export("xButton", Text(path));
        QCOMPARE(Text(ReadAll(path)), QString("1\r\n-2\r\n4\r\n0.5\r\n"));
    }

    void AFileThatCannotBeOpenedIsNamed() {
        const QString path = Text(m_folder.Path("nowhere/xy.txt"));
        Export("xyButton", path);
        QCOMPARE(m_host->errors, QStringList({"Failure to open file " + path}));
    }

    void TheFileOnShowIsNotReplacedByItsPoints() {
        const QString sameFile = Text(m_folder.Path("./two.uds"));
        Export("xyButton", sameFile);
        QCOMPARE(m_host->errors, QStringList({sameFile + " is the file shown here. Choose another name."}));
        QVERIFY(ReadAll(m_path.toStdString()) == TwoComponentFile());
    }

    void AFullDeviceIsReported() {
        Export("xyButton", QString("/dev/full"));
        QCOMPARE(m_host->errors, QStringList({"/dev/full could not be written completely. An existing file with this "
                                              "name is unchanged."}));
    }

    void ADamagedFileIsReported() {
        const std::string old = m_folder.Write("damaged.txt", "old");
        std::filesystem::create_hard_link(old, m_folder.Path("another name"));
        const CFailingFlush failing(kUntilInPlace);
        Export("xyButton", Text(old));
        QCOMPARE(m_host->errors, QStringList({Text(old) + " could not be written completely, and the existing file "
                                                          "with this name is damaged."}));
    }

    void AValueThatIsNotFiniteIsRefused() {
        ks::CNSignal record;
        record.SetData({0.0, 1.0}, {1.0, std::numeric_limits<double>::quiet_NaN()});
        m_sheet->ShowRecord(record, "a.uds");
        const std::string before = m_folder.Listing();
        Export("xyButton", Text(m_folder.Path("nan.txt")));
        QCOMPARE(m_host->errors, QStringList({"Point 2 of 2 holds no finite number; an ASCII file cannot hold it."}));
        QCOMPARE(m_folder.Listing(), before);
    }

    // Preview and print.

    void ThePreviewShowsThePagesOfTheChosenReport() {
        ShowPreview();
        QCOMPARE(Child<QLabel>("placeLabel")->text(), QString("Page 1 of 1"));
        QVERIFY(!Child<QToolButton>("nextPageButton")->isEnabled());
        Child<QComboBox>("modeBox")->setCurrentIndex(1);
        QCOMPARE(Child<QLabel>("placeLabel")->text(), QString("Page 1 of 2"));
        QTest::mouseClick(Child<QToolButton>("nextPageButton"), Qt::LeftButton);
        QCOMPARE(Child<QLabel>("placeLabel")->text(), QString("Page 2 of 2"));
        QVERIFY(!Child<QToolButton>("nextPageButton")->isEnabled());
        QTest::mouseClick(Child<QToolButton>("previousPageButton"), Qt::LeftButton);
        QCOMPARE(Child<QLabel>("placeLabel")->text(), QString("Page 1 of 2"));
    }

    void ThePreviewFollowsAModeChosenBefore() {
        Child<QComboBox>("modeBox")->setCurrentIndex(1);
        ShowPreview();
        QCOMPARE(Child<QLabel>("placeLabel")->text(), QString("Page 1 of 2"));
    }

    void ThePaperOfThePreviewIsThatOfThePrinter() {
        ShowPreview();
        auto* const box = Child<QComboBox>("paperBox");
        QPrinter& printer = m_sheet->findChild<ksres::CPrintPreviewer*>()->Printer();
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        QCOMPARE(box->currentText(), QString("Letter"));
        QVERIFY(printer.pageLayout().pageSize().id() == QPageSize::Letter);
        QTest::keyClick(box, Qt::Key_End);
        QCOMPARE(box->currentText(), QString("A4"));
        QVERIFY(printer.pageLayout().pageSize().id() == QPageSize::A4);
    }

    void PrintingIntoAFileWritesTheChosenReport() {
        const QString path = Text(m_folder.Path("printed.pdf"));
        m_host->choosePrinter = [&](QPrinter& printer) {
            printer.setOutputFileName(path);
            return true;
        };
        Click("printButton");
        QCOMPARE(m_host->errors, QStringList());
        QVERIFY(ReadAll(path.toStdString()).starts_with("%PDF-"));
    }

    void AFileThatCannotBePrintedIntoIsNamed() {
        const QString path = Text(m_folder.Path("nowhere/printed.pdf"));
        m_host->choosePrinter = [&](QPrinter& printer) {
            printer.setOutputFileName(path);
            return true;
        };
        Click("printButton");
        QCOMPARE(m_host->errors, QStringList({"Failure to open file " + path}));
    }

    void TheFileOnShowIsNotReplacedByItsReport() {
        m_host->choosePrinter = [&](QPrinter& printer) {
            printer.setOutputFileName(m_path);
            return true;
        };
        Click("printButton");
        QCOMPARE(m_host->errors, QStringList({m_path + " is the file shown here. Choose another name."}));
        QVERIFY(ReadAll(m_path.toStdString()) == TwoComponentFile());
    }

    void TheNumberOfPagesIsGivenBeforePrinting() {
        Click("printButton");
        Child<QComboBox>("modeBox")->setCurrentIndex(1);
        Click("printButton");
        QCOMPARE(m_host->pageCounts, QList<int>({1, 2}));
    }

    void ARangeOutsideTheReportIsReportedWithoutAFile() {
        const std::string before = m_folder.Listing();
        m_host->choosePrinter = [&](QPrinter& printer) {
            printer.setOutputFileName(Text(m_folder.Path("outside.pdf")));
            printer.setPrintRange(QPrinter::PageRange);
            printer.setFromTo(2, 2);
            return true;
        };
        Click("printButton");
        QCOMPARE(m_host->errors,
                 QStringList({"The report does not have the pages you chose. Its last page is page 1."}));
        QCOMPARE(m_folder.Listing(), before);
        Child<QComboBox>("modeBox")->setCurrentIndex(1);
        Click("printButton");
        QCOMPARE(m_host->errors.size(), qsizetype{1});
        QVERIFY(ReadAll(m_folder.Path("outside.pdf")).starts_with("%PDF-"));
    }

    /// The choices for one print used to apply, unseen, to all that followed.
    void EachPrintStartsWithAllPages() {
        const QString path = Text(m_folder.Write("dropped.uds", UdsFile({}).Text()));
        QStringList offered;
        bool isAccepting = true;
        m_host->choosePrinter = [&](QPrinter& printer) {
            offered.append(QString("%1 %2 %3-%4 %5 %6 %7")
                               .arg(printer.printRange() == QPrinter::AllPages ? "all" : "some")
                               .arg(printer.pageRanges().isEmpty())
                               .arg(printer.fromPage())
                               .arg(printer.toPage())
                               .arg(printer.copyCount())
                               .arg(printer.collateCopies())
                               .arg(printer.pageOrder() == QPrinter::FirstPageFirst ? "forwards" : "backwards"));
            printer.setOutputFileName(Text(m_folder.Path("printed.pdf")));
            printer.setPrintRange(QPrinter::PageRange);
            printer.setFromTo(1, 1);
            printer.setCopyCount(3);
            printer.setCollateCopies(false);
            printer.setPageOrder(QPrinter::LastPageFirst);
            return isAccepting;
        };
        Click("printButton");
        Click("printButton");
        isAccepting = false;
        Click("printButton");
        QVERIFY(Drop(*m_sheet, *Files({path})));
        QTRY_COMPARE(m_sheet->windowTitle(), QString("UDS File Specification - dropped.uds"));
        Click("printButton");
        QCOMPARE(offered, QStringList(4, "all 1 0-0 1 1 forwards"));
        QCOMPARE(m_host->errors, QStringList());
    }

    void PrintingCanBeCanceled() {
        const std::string before = m_folder.Listing();
        m_host->choosePrinter = [&](QPrinter& printer) {
            printer.setOutputFileName(Text(m_folder.Path("canceled.pdf")));
            return false;
        };
        Click("printButton");
        QCOMPARE(m_folder.Listing(), before);
        QCOMPARE(m_host->errors, QStringList());
    }

private:
    /// Every tab of the sheet and of its pages, each while it is shown.
    void ForEachTab(const std::function<void(QWidget& tab)>& look) { ForEachTab(*Child<QTabWidget>("pages"), look); }
    static void ForEachTab(QTabWidget& tabs, const std::function<void(QWidget& tab)>& look) {
        for (int index = 0; index < tabs.count(); ++index) {
            tabs.setCurrentIndex(index);
            look(*tabs.widget(index));
            const auto inner = tabs.widget(index)->findChildren<QTabWidget*>();
            for (QTabWidget* const subPages : inner) ForEachTab(*subPages, look);
        }
    }

    template <class PageClass>
    PageClass* Page() {
        return m_sheet->findChild<PageClass*>();
    }
    template <class Widget>
    Widget* Child(const char* name) {
        return m_sheet->findChild<Widget*>(name);
    }
    void Click(const char* name) { QTest::mouseClick(Child<QPushButton>(name), Qt::LeftButton); }

    void Export(const char* form, const std::optional<QString>& path) {
        m_host->savePath = path;
        Child<QRadioButton>(form)->click();
        Click("exportButton");
    }

    /// What a screen reader calls a widget, or its name in the program.
    static QString NameOf(const QWidget& widget) {
        const bool hasOwnName = widget.objectName().endsWith("Box") || widget.objectName().endsWith("tabbar") ||
                                widget.accessibleName().isEmpty();
        return hasOwnName ? widget.objectName() : widget.accessibleName();
    }

    /// Notes below the fields of a page that are shown when the page is.
    static QStringList Notes(const QWidget& page) {
        QStringList notes;
        const auto labels = page.findChildren<QLabel*>();
        for (const QLabel* const label : labels)
            if (label->buddy() == nullptr && !label->isHidden()) notes.append(label->text());
        return notes;
    }

    QWidget* ShowPreview() {
        auto* const page = m_sheet->findChild<ksres::CPrintPreviewer*>();
        auto* const pages = m_sheet->findChild<QTabWidget*>("pages");
        pages->setCurrentIndex(pages->count() - 1);
        return page;
    }

    CTempFolder m_folder;
    QString m_path;
    std::unique_ptr<CRecordedViewerHost> m_host;
    std::unique_ptr<ksres::CUDSDialog> m_sheet;
};

QTEST_MAIN(CUDSDialogTest)
#include "uds_dialog_test.moc"
