#include "app/main_frame.h"

#include "app/commands.h"
#include "app/dialogs/customize_dialog.h"
#include "app/page_pane.h"
#include "app/testing/widget_probe.h"
#include "app/testing/window_test.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include <utility>

namespace {

/// The texts of a menu's entries; "-" is a separator.
QStringList Texts(const QList<QAction*>& actions) {
    QStringList texts;
    for (const QAction* const action : actions) texts.append(action->isSeparator() ? QString("-") : action->text());
    return texts;
}

/// The object names of a toolbar's actions; "-" is a separator.
QStringList Names(const QList<QAction*>& actions) {
    QStringList names;
    for (const QAction* const action : actions)
        names.append(action->isSeparator() ? QString("-") : action->objectName());
    return names;
}

const QStringList kToolbar = {"SelectFiles",
                              "UdsSpecification",
                              "-",
                              "SaveBmp",
                              "SaveWmf",
                              "SaveHtml",
                              "SaveUds",
                              "SaveAscii",
                              "Print",
                              "-",
                              "Copy",
                              "CopyData",
                              "-",
                              "CorridorSize",
                              "CriticalValues",
                              "-",
                              "About",
                              "-",
                              "Customize"};

}  // namespace

class CMainFrameTest : public CWindowTest {
    Q_OBJECT

private slots:
    void init() { OpenWindow(); }
    void cleanup() { CloseWindow(); }

    void AnEmptyWindowSaysWhatToDoNext() {
        QCOMPARE(Frame().windowTitle(), QString("Quorvel"));
        QVERIFY(!Frame().windowIcon().isNull());
        QVERIFY(m_window->IsHintShown());
        QCOMPARE(Frame().findChild<QLabel*>("hint")->text(),
                 QString("Choose File > Select Files... or drop signal files here to compare them."));
        QVERIFY(!m_window->IsBannerShown());
        QVERIFY(m_window->List() == nullptr);
        QCOMPARE(m_window->Pages().count(), 0);
        QVERIFY(!m_window->Pages().isEnabled());
        QCOMPARE(m_window->StatusText(), QString("Ready"));
        QCOMPARE(m_window->EnabledCommands(),
                 QStringList({"SelectFiles", "UdsSpecification", "Exit", "Copy", "CorridorSize", "CriticalValues",
                              "Toolbar", "StatusBar", "Customize", "About"}));
        QVERIFY(m_window->messages.said.isEmpty());
    }

    void TheMenusHoldTheirEntriesInOrder() {
        const QList<QAction*> menus = Frame().menuBar()->actions();
        QCOMPARE(Texts(menus), QStringList({"&File", "&Edit", "&View", "&Help"}));
        const QList<QAction*> file = menus[0]->menu()->actions();
        QCOMPARE(Texts(file),
                 QStringList({"Select &Files...", "Save", "-", "&Print...", "Print Preview", "-", "UDS Speification",
                              "UDS Specification &of", "-", "Recent File", "-", "Exit"}));
        QCOMPARE(Texts(file[1]->menu()->actions()), QStringList({"&Bmp", "&Wmf", "&HTML", "UDS", "ASCII"}));
        QCOMPARE(Texts(menus[1]->menu()->actions()),
                 QStringList({"&Copy", "Copy &Data", "-", "Corridor &Size", "Critical &Values"}));
        QCOMPARE(Texts(menus[2]->menu()->actions()), QStringList({"Toolbar", "Status Bar", "Customize..."}));
        QCOMPARE(Texts(menus[3]->menu()->actions()), QStringList({"&About Quorvel..."}));
    }

    void ShortcutsAndStatusTextsAreThoseOfTheCommands_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("shortcut");
        QTest::addColumn<QString>("statusText");
        QTest::newRow("select") << 57601 << "Ctrl+O"
                                << "Select the Files for processing";
        QTest::newRow("print") << 57607 << "Ctrl+P"
                               << "Print the current plot";
        QTest::newRow("copy") << 57634 << "Ctrl+C"
                              << "Copy the current plot to the clipboard";
        QTest::newRow("copy data") << 32777 << ""
                                   << "Copy the plotted data to the clipboard";
        QTest::newRow("bmp") << 32774 << ""
                             << "Save the current plot as a bmp file";
        QTest::newRow("wmf") << 32775 << ""
                             << "Save the current plot as a windows metafile";
        QTest::newRow("html") << 32776 << ""
                              << "Save the current plot as a HTML file";
        QTest::newRow("uds specification") << 32781 << ""
                                           << "View UDS file specification";
        QTest::newRow("corridor") << 32779 << ""
                                  << "Set size for Corridor Plot";
        QTest::newRow("critical") << 32778 << ""
                                  << "Edit the critical values for Pass / Fail Criteria";
    }
    void ShortcutsAndStatusTextsAreThoseOfTheCommands() {
        QFETCH(int, id);
        QFETCH(QString, shortcut);
        QFETCH(QString, statusText);
        QAction* const action = Frame().Action(static_cast<CCommandId>(id));
        QVERIFY(action != nullptr);
        QCOMPARE(action->shortcut(), QKeySequence(shortcut));
        action->showStatusText(&Frame());
        QCOMPARE(Frame().statusBar()->currentMessage(), statusText);
    }

    void LocksOfTheKeyboardAreShownOnlyWhereThePlatformReportsThem() {
        if (QGuiApplication::platformName() != "offscreen") QSKIP("This platform may report them.");
        const auto labels = Frame().statusBar()->findChildren<QLabel*>();
        QStringList hidden;
        for (const QLabel* const label : labels) {
            if (!label->isVisible()) hidden.append(label->text());
        }
        QCOMPARE(hidden, QStringList({"CAP", "NUM", "SCRL"}));
    }

    void AShortcutRunsItsCommand() {
        QVERIFY(QTest::qWaitForWindowActive(&Frame()));
        m_window->dialogs.Expect([](QWidget& dialog) { dialog.close(); });
        QTest::keyClick(&Frame(), Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(m_window->dialogs.opened, QStringList({"Select Uds Files"}));
    }

    void TheToolbarShowsAnIconForEveryCommandAndEndsWithCustomize() {
        QCOMPARE(Names(Toolbar().actions()), kToolbar);
        for (const QAction* const action : Toolbar().actions()) {
            if (action->isSeparator()) continue;
            if (action->objectName() != "Customize") QVERIFY2(!action->icon().isNull(), qPrintable(action->text()));
            QWidget* const button = Toolbar().widgetForAction(const_cast<QAction*>(action));
            QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(button);
            QVERIFY(reader != nullptr);
            const bool isCustomize = action->objectName() == "Customize";  // it shows its text, dots included
            const QString text = PlainActionText(action->text());
            QCOMPARE(reader->text(QAccessible::Name), isCustomize ? text : QString(text).remove("..."));
        }
    }

    void TheToolTipOfAButtonSaysWhatItDoesAndItsKey() {
        QCOMPARE(Frame().Action(CCommandId::SaveUds)->toolTip(),
                 QString("Save every curve of the current page as a UDS file"));
        QCOMPARE(Frame().Action(CCommandId::SelectFiles)->toolTip(),
                 QString("Select the Files for processing (Ctrl+O)"));
        for (const QAction* const action : Toolbar().actions()) {
            if (!action->isSeparator()) QVERIFY(action->toolTip().startsWith(action->statusTip()));
        }
    }

    void TheStatusBarHasItsNumberAndItsParts() {
        QCOMPARE(Frame().statusBar()->property("controlId").toInt(), 59393);
        QVERIFY(Frame().statusBar()->isVisible());
        QVERIFY(Frame().findChild<QLabel*>("statusMessage")->isVisible());
        QVERIFY(!Frame().findChild<QWidget*>("progress")->isVisible());
    }

    void ThePaneIsLabeledAndNamed() {
        QCOMPARE(Pane().property("controlId").toInt(), 128);
        QCOMPARE(m_window->Pages().property("controlId").toInt(), 1015);
        QVERIFY(Pane().isVisible());
        const auto* const label = Pane().findChild<QLabel*>();
        QCOMPARE(label->text(), QString("Plot Type:"));
        QCOMPARE(label->buddy(), static_cast<QWidget*>(&m_window->Pages()));
        QCOMPARE(m_window->Pages().accessibleName(), QString("Plot Type"));
    }

    void TheSelectorIsReachedByAltY() {
        m_window->CompareSled();
        Frame().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&Frame()));
        m_window->List()->setFocus();
        QTest::keyClick(&Frame(), Qt::Key_Y, Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(&m_window->Pages()));
    }

    void AChartKeepsTheKeyboardWhenItIsMadeAnew() {
        m_window->CompareSled();
        m_window->ChoosePage("Corridor");
        const auto chart = [this] { return Frame().findChild<QWidget*>("chart"); };
        QVERIFY(chart() != nullptr);
        chart()->setFocus();
        m_window->dialogs.Expect(
            [](QWidget& dialog) { dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click(); });
        Trigger(CCommandId::CorridorSize);
        QCOMPARE(Frame().focusWidget(), chart());
        m_window->CompareSled();
        QCOMPARE(Frame().focusWidget(), static_cast<QWidget*>(m_window->List()));
    }

    void ThePageSelectorKeepsTheKeyboardWhilePagesAreChosen() {
        m_window->CompareSled();
        m_window->Pages().setFocus();
        for (const QString& page : {QString("Velocity"), QString("Corridor"), QString("Summary")}) {
            m_window->ChoosePage(page);
            QCOMPARE(Frame().focusWidget(), static_cast<QWidget*>(&m_window->Pages()));
        }
    }

    void ThePaneIsAtTheRightEndOfTheToolbarRow_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("usual") << QSize(1000, 600);
        QTest::newRow("wide") << QSize(1700, 900);
        QTest::newRow("low") << QSize(900, 400);
        QTest::newRow("narrow") << QSize(640, 480);
        QTest::newRow("as small as it gets") << QSize(1, 1);
    }
    void ThePaneIsAtTheRightEndOfTheToolbarRow() {
        QFETCH(QSize, size);
        Frame().resize(size);
        CheckPane(Row());
        // Every button can be reached: it is not under the pane, or it is in the list after the last one.
        const auto* const more = Toolbar().findChild<QToolButton*>("qt_toolbar_ext_button");
        QVERIFY(!more->isVisible() || !InFrame(*more).intersects(InFrame(Pane())));
        for (QAction* const action : Toolbar().actions()) {
            const QWidget& button = *Toolbar().widgetForAction(action);
            QVERIFY2(button.isVisible() || more->isVisible(), qPrintable(action->text()));
            QVERIFY(!button.isVisible() || !InFrame(button).intersects(InFrame(Pane())));
        }
    }

    void ButtonsWithoutRoomAreOfferedInAMenuThatLeavesThePaneFree() {
        Frame().resize(560, 400);
        auto& more = *Toolbar().findChild<QToolButton*>("qt_toolbar_ext_button");
        QTRY_VERIFY(more.isVisible());
        QVERIFY(more.menu() != nullptr);
        QVERIFY(more.menu()->actions().contains(Frame().Action(CCommandId::CriticalValues)));
        CheckPane(Row());
    }

    void ThePaneKeepsItsRowWhileTheToolbarIsHidden() {
        Trigger(CCommandId::Toolbar);
        QVERIFY(!Toolbar().isVisible());
        for (const QSize& size : {QSize(1000, 600), QSize(1400, 500), QSize(640, 480)}) {
            Frame().resize(size);
            CheckPane(Row());
            QVERIFY(!InFrame(Pane()).intersects(InFrame(Frame().View())));
            QVERIFY(!InFrame(Pane()).intersects(Frame().menuBar()->geometry()));
        }
        Trigger(CCommandId::Toolbar);
        QVERIFY(Toolbar().isVisible());
        CheckPane(Row());
    }

    void TheViewFollowsTheWindow() {
        Frame().resize(1200, 800);
        QCOMPARE(Frame().View().width(), Frame().width());
        QCOMPARE(InFrame(Frame().View()).bottom() + 1, Frame().statusBar()->geometry().top());
        const int before = Frame().View().height();
        Trigger(CCommandId::StatusBar);
        QVERIFY(!Frame().statusBar()->isVisible());
        QTRY_VERIFY(Frame().View().height() > before);
    }

    void ACheckedEntryShowsWhatIsOnTheScreen() {
        const std::pair<CCommandId, QWidget*> bars[] = {{CCommandId::Toolbar, &Toolbar()},
                                                        {CCommandId::StatusBar, Frame().statusBar()}};
        for (const auto& [id, bar] : bars) {
            for (const bool isShown : {true, false, true}) {
                QCOMPARE(bar->isVisible(), isShown);
                QCOMPARE(Frame().Action(id)->isChecked(), isShown);
                Trigger(id);
            }
        }
    }

    void CustomizeChoosesTheButtonsAndIsKept() {
        m_window->dialogs.Expect([](QWidget& dialog) {
            auto& list = *dialog.findChild<QListWidget*>();
            QCOMPARE(list.count(), 14);  // every button but "Customize..." itself
            for (const QString& text : {QString("Bmp"), QString("Wmf"), QString("About Quorvel...")}) {
                list.findItems(text, Qt::MatchExactly).at(0)->setCheckState(Qt::Unchecked);
            }
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
        Trigger(CCommandId::Customize);
        QCOMPARE(m_window->dialogs.opened, QStringList({"Customize"}));
        QStringList expected = kToolbar;
        expected.removeOne("SaveBmp");
        expected.removeOne("SaveWmf");
        expected.removeOne("About");
        expected.removeAt(expected.lastIndexOf("-"));  // an empty group has no separators
        QCOMPARE(Names(Toolbar().actions()), expected);
        m_window->Reopen();
        QCOMPARE(Names(Toolbar().actions()), expected);
        CheckPane(Row());
    }

    void TheButtonThatPrintsDirectlyCanBeShown() {
        QVERIFY(!Toolbar().actions().contains(Frame().Action(CCommandId::PrintDirect)));
        m_window->dialogs.Expect([](QWidget& dialog) {
            auto& list = *dialog.findChild<QListWidget*>();
            list.findItems("Print Directly", Qt::MatchExactly).at(0)->setCheckState(Qt::Checked);
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
        Trigger(CCommandId::Customize);
        QVERIFY(Toolbar().actions().contains(Frame().Action(CCommandId::PrintDirect)));
        m_window->Reopen();
        QVERIFY(Toolbar().actions().contains(Frame().Action(CCommandId::PrintDirect)));
    }

    void ACanceledCustomizeChangesNothing() {
        m_window->dialogs.Expect([](QWidget& dialog) {
            dialog.findChild<QListWidget*>()->item(0)->setCheckState(Qt::Unchecked);
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
        });
        Trigger(CCommandId::Customize);
        QCOMPARE(Names(Toolbar().actions()), kToolbar);
        QCOMPARE(m_window->settings.HiddenToolbarActions(), QStringList({"PrintDirect"}));
    }

    void ARightClickOnTheToolbarOffersTheViewMenu() {
        QStringList texts;
        m_window->dialogs.Expect([&](QWidget& menu) {
            texts = Texts(menu.actions());
            menu.close();
        });
        const QPoint place = Toolbar().mapToGlobal(QPoint(5, 5));
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), place);
        QApplication::sendEvent(&Toolbar(), &event);
        QTRY_COMPARE(texts, QStringList({"Toolbar", "Status Bar", "Customize..."}));
    }

    void TheLayoutIsKept() {
        Frame().resize(700, 450);
        Trigger(CCommandId::Toolbar);
        Trigger(CCommandId::StatusBar);
        m_window->Reopen();
        QCOMPARE(Frame().size(), QSize(700, 450));
        QVERIFY(!Toolbar().isVisible());
        QVERIFY(!Frame().Action(CCommandId::Toolbar)->isChecked());
        QVERIFY(!Frame().statusBar()->isVisible());
        QVERIFY(!Frame().Action(CCommandId::StatusBar)->isChecked());
        CheckPane(Row());
        Trigger(CCommandId::Toolbar);
        Trigger(CCommandId::StatusBar);
        m_window->Reopen();
        QVERIFY(Toolbar().isVisible());
        QVERIFY(Frame().statusBar()->isVisible());
        CheckPane(Row());
    }

    void ALayoutThatIsNoneIsIgnored() {
        m_window->frame->close();
        m_window->store.setValue("Main Window/Geometry", "junk");
        m_window->store.setValue("Main Window/State", "junk");
        m_window->store.setValue("Main Window/HiddenToolbarActions", QStringList({"Print", "NoSuchCommand"}));
        CMainFrame frame({m_window->settings, m_window->picker, m_window->messages, m_window->printers});
        frame.show();
        QCOMPARE(frame.size(), QSize(1100, 720));
        QVERIFY(frame.findChild<QToolBar*>("toolbar")->isVisible());
        QStringList expected = kToolbar;
        expected.replace(expected.indexOf("Print"), "PrintDirect");  // shown, since that list does not name it
        QCOMPARE(Names(frame.findChild<QToolBar*>("toolbar")->actions()), expected);
    }

    void AboutShowsTheAboutBox() {
        m_window->dialogs.Expect([](QWidget& dialog) { dialog.close(); });
        Trigger(CCommandId::About);
        QCOMPARE(m_window->dialogs.opened, QStringList({"About: Quorvel"}));
    }

    void ExitClosesTheWindow() {
        Trigger(CCommandId::Exit);
        QVERIFY(!Frame().isVisible());
    }

    void NeitherTextNorPaneIsCutOff() {
        QVERIFY2(CutOffTexts(Frame()).isEmpty(), qPrintable(CutOffTexts(Frame()).join('\n')));
        m_window->CompareSled();
        QVERIFY2(CutOffTexts(Frame()).isEmpty(), qPrintable(CutOffTexts(Frame()).join('\n')));
        QComboBox& pages = m_window->Pages();
        pages.setCurrentIndex(pages.findText("90 Percentile Corridor"));  // the longest name
        const int text = pages.fontMetrics().horizontalAdvance(pages.currentText());
        QStyleOptionComboBox option;
        option.initFrom(&pages);
        const QRect field =
            pages.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &pages);
        QVERIFY(field.width() >= text);
        QVERIFY(field.height() >= pages.fontMetrics().height());
    }

private:
    QToolBar& Toolbar() { return *Frame().findChild<QToolBar*>("toolbar"); }
    QToolBar& Row() { return *Frame().findChild<QToolBar*>("toolbarRow"); }
    CDialogPane& Pane() { return *Frame().findChild<CDialogPane*>(); }
    QRect InFrame(const QWidget& widget) { return {widget.mapTo(&Frame(), QPoint(0, 0)), widget.size()}; }

    /// The pane: 270 x 24, its right edge on that of the row, within the row's height.
    void CheckPane(const QToolBar& row) {
        QVERIFY(row.isVisible());
        QCOMPARE(Pane().size(), QSize(270, 24));
        QCOMPARE(InFrame(Pane()).right(), InFrame(row).right());
        QCOMPARE(InFrame(row).right(), Frame().width() - 1);
        QVERIFY(InFrame(Pane()).y() >= InFrame(row).top());
        QVERIFY(InFrame(Pane()).bottom() <= InFrame(row).bottom());
        QVERIFY(Frame().childAt(InFrame(Pane()).center()) == &Pane() ||
                Pane().isAncestorOf(Frame().childAt(InFrame(Pane()).center())));
    }
};

QTEST_MAIN(CMainFrameTest)
#include "main_frame_test.moc"
