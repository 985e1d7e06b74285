// How the program starts: its name, settings, arguments, and numbers.

#include "app/commands.h"
#include "app/dialogs/file_picker.h"
#include "app/message_box.h"
#include "app/quorvel_app.h"
#include "app/settings.h"
#include "app/testing/control_ids.h"
#include "app/testing/widget_probe.h"
#include "app/testing/window_test.h"
#include "compare/summary_columns.h"
#include "files/hit_list.h"
#include "files/replacing_file.h"
#include "tests/support/summary_samples.h"

#include <QProcess>
#include <QProgressBar>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr const char* kCommaLocale = "de_DE.UTF-8";
bool hasCommaLocale = false;  ///< whether the C library knows it

/// The program's own arguments in this test.
const std::vector<std::string> kArguments = {"-cfc180", "two words.001", "m\xC3\xBCnchen.001", ""};

/// A command line as `main` gets it: the program's name, arguments for the toolkit, and kArguments.
class CCommandLine {
public:
    explicit CCommandLine(const char* program) : m_texts{program, "-style", "fusion"} {
        m_texts.insert(m_texts.end(), kArguments.begin(), kArguments.end());
        for (std::string& text : m_texts) m_pointers.push_back(text.data());
        count = static_cast<int>(m_pointers.size());
        m_pointers.push_back(nullptr);
    }
    char** Arguments() { return m_pointers.data(); }

    int count = 0;

private:
    std::vector<std::string> m_texts;
    std::vector<char*> m_pointers;
};

/// Builds the locale in `folder` if the machine has its sources; returns whether it exists.
bool MakeCommaLocale(const QString& folder) {
    qputenv("LOCPATH", folder.toUtf8());
    QProcess::execute("localedef", {"-i", "de_DE", "-f", "UTF-8", folder + "/" + kCommaLocale});
    const bool isThere = std::setlocale(LC_NUMERIC, kCommaLocale) != nullptr && std::strtod("1,5", nullptr) == 1.5;
    std::setlocale(LC_NUMERIC, "C");
    return isThere;
}

/// An object that answers its own kind of event by throwing.
class CThrower : public QObject {
public:
    static constexpr QEvent::Type kEvent = QEvent::User;
    bool event(QEvent* event) override {
        if (event->type() == kEvent) throw std::runtime_error("something broke");
        return QObject::event(event);
    }
};

}  // namespace

class CStartupTest : public CWindowTest {
    Q_OBJECT

private slots:
    void init() { OpenWindow(); }
    void cleanup() { CloseWindow(); }

    void TheProgramNamesItself() {
        QCOMPARE(QApplication::organizationName(), QString("Ostrel Crashworthiness"));
        QCOMPARE(QApplication::applicationName(), QString("Quorvel"));
        QVERIFY(!QApplication::windowIcon().isNull());
        QCOMPARE(m_window->frame->windowTitle(), QString("Quorvel"));
    }

    void NumbersDoNotFollowTheUsersLocale() {
        QCOMPARE(QLocale().decimalPoint(), QString(","));
        if (!hasCommaLocale) QSKIP("The C library has no locale with a decimal comma here, and localedef made none.");
        QCOMPARE(std::setlocale(LC_MESSAGES, nullptr), "de_DE.UTF-8");  // the user's locale is in effect
        QCOMPARE(std::setlocale(LC_NUMERIC, nullptr), "C");
        QCOMPARE(std::strtod("1.5", nullptr), 1.5);
    }

    void TheTableHasDecimalPoints() {
        m_window->CompareSled();
        const QAbstractItemModel& model = *m_window->List()->model();
        static const QRegularExpression number("^-?[0-9]+[.][0-9]+");
        for (int column = 1; column < model.columnCount(); ++column) {
            if (SummaryColumns()[At(column)].isName) continue;
            const QString text = model.index(0, column).data().toString();
            QVERIFY2(number.match(text).hasMatch() && !text.contains(','), qPrintable(text));
        }
    }

    void SettingsAreTheUsersAndNamedAfterTheProgram() {
        const std::unique_ptr<QSettings> store = CQuorvelApp::OpenSettings();
        QCOMPARE(store->scope(), QSettings::UserScope);
        QCOMPARE(store->organizationName(), QString("Ostrel Crashworthiness"));
        QCOMPARE(store->applicationName(), QString("Quorvel"));
        QVERIFY(!store->fallbacksEnabled());
#ifdef Q_OS_LINUX
        QCOMPARE(store->fileName(), qEnvironmentVariable("XDG_CONFIG_HOME") + "/Ostrel Crashworthiness/Quorvel.conf");
#endif
    }

    void WhatIsStoredLiesInThreeGroups() {
        const std::unique_ptr<QSettings> store = CQuorvelApp::OpenSettings();
        store->clear();
        CSettings settings(*store);
        {
            CMainFrame frame({settings, m_window->picker, m_window->messages, m_window->printers});
            frame.show();
            m_window->picker.answers = {CPickedFiles{{m_window->Path("list.hit")}, 1}};
            m_window->dialogs.Expect([](QWidget& dialog) {
                dialog.findChild<CFileList*>()->AppendFiles({Sled(2)});
                Control<QPushButton>(dialog, kSaveHitListId)->click();  // "Save Hitlist"
                Control<QRadioButton>(dialog, kAverageReferenceId)->setChecked(true);
                dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
            });
            frame.RunCommand(CCommandId::SelectFiles);
            QVERIFY(frame.close());
        }
        QCOMPARE(store->childGroups(), QStringList({"Main Window", "Recent File List", "Settings"}));
        store->beginGroup("Settings");
        QCOMPARE(store->childKeys(), QStringList({"HitlistDir", "ReferenceType"}));
        QCOMPARE(store->value("ReferenceType").toInt(), 1);
        store->endGroup();
        QCOMPARE(store->value("Recent File List/File1").toString(), m_window->Path("list.hit"));
        store->clear();
    }

    void ArgumentsComeWithoutTheProgramsName() {
        QCOMPARE(CQuorvelApp::ArgumentTexts(), kArguments);  // nor those that are the toolkit's
    }

    // Files on the command line.

    void WithoutFilesTheSelectionOpensOnceTheProgramRuns_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing") << QStringList();
        QTest::newRow("switches") << QStringList({"-cfc180", "-O", "-CFC60X"});
        QTest::newRow("a list file that cannot be read") << QStringList({"-L", "/no such folder/list.hit"});
        QTest::newRow("a list file that is missing") << QStringList({"-L"});
    }
    void WithoutFilesTheSelectionOpensOnceTheProgramRuns() {
        QFETCH(QStringList, arguments);
        QStringList files = {"not opened"};
        m_window->dialogs.Expect([&](QWidget& dialog) {
            files.clear();
            for (const std::string& file : dialog.findChild<CFileList*>()->Files()) files.append(file.c_str());
            dialog.close();
        });
        Start(arguments);
        QVERIFY(m_window->dialogs.opened.isEmpty());  // not before the window is shown
        QTRY_COMPARE(m_window->dialogs.opened, QStringList({"Select Uds Files"}));
        QTRY_COMPARE(files, QStringList());
    }

    void WithFilesTheWindowStaysEmptyAndWaits_data() {
        QTest::addColumn<QStringList>("arguments");
        const QString first = QString::fromStdString(Sled(2));
        const QString second = QString::fromStdString(Sled(3));
        QTest::newRow("two files") << QStringList({first, second});
        QTest::newRow("a class and two files") << QStringList({"-cfc180", first, second});
        QTest::newRow("a list file") << QStringList({"-L", "list.hit"});
        QTest::newRow("a list file after its letter") << QStringList({"-Llist.hit"});
    }
    void WithFilesTheWindowStaysEmptyAndWaits() {
        QFETCH(QStringList, arguments);
        const QString list = m_window->Path("list.hit");
        QVERIFY(ks::WriteHitList(list.toStdString(), {Sled(2)}) == ks::CWriteResult::Written);
        Start(arguments.replaceInStrings("list.hit", list));
        QCoreApplication::processEvents();
        QVERIFY(m_window->dialogs.opened.isEmpty());
        QVERIFY(m_window->errorLists.texts.isEmpty());
        QVERIFY(m_window->messages.said.isEmpty());
        // The run at start-up loads nothing; users expect that.
        QVERIFY(m_window->frame->Document().ComputedSignals().empty());
        QVERIFY(m_window->IsHintShown());
        QVERIFY(m_window->Pages().count() == 0);
        m_window->CompareSled();
        QCOMPARE(m_window->List()->model()->rowCount(), 3);
    }

    void TheSelectionDoesNotOpenForAWindowThatIsGone() {
        Start({});
        m_window->frame.reset();
        QCoreApplication::processEvents();
        QVERIFY(m_window->dialogs.opened.isEmpty());
    }

    // Exceptions that escape everything else.

    void AnExceptionOutOfAnEventIsShownAndTheProgramContinues() {
        auto& application = static_cast<CQuorvelApp&>(*qApp);
        application.SetMessages(m_window->messages);
        CThrower thrower;
        QEvent event(CThrower::kEvent);
        QVERIFY(!QApplication::sendEvent(&thrower, &event));
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|something broke"}));

        m_window->messages.said.clear();
        QTimer::singleShot(0, this, [] { throw std::runtime_error("the slot broke"); });
        QCoreApplication::processEvents();
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|the slot broke"}));
        m_window->CompareSled();
        QCOMPARE(m_window->StatusText(), QString("3 signals were compared."));
    }

    void AMessageThatOpensWhileARunIsAtWorkCanBeClosed() {
        CMessageBoxes boxes;
        static_cast<CQuorvelApp&>(*qApp).SetMessages(boxes);
        CThrower thrower;
        bool isThrown = false;
        const auto& progress = *m_window->frame->findChild<QProgressBar*>("progress");
        const auto connection = connect(&progress, &QProgressBar::valueChanged, this, [&] {
            if (isThrown || QApplication::overrideCursor() == nullptr) return;
            isThrown = true;
            m_window->dialogs.Expect([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
            QEvent event(CThrower::kEvent);
            QApplication::sendEvent(&thrower, &event);
        });
        m_window->CompareSled();
        disconnect(connection);
        static_cast<CQuorvelApp&>(*qApp).SetMessages(m_window->messages);
        QVERIFY(isThrown);
        QCOMPARE(m_window->dialogs.opened, QStringList({"Select Uds Files", "Error"}));
        QCOMPARE(m_window->StatusText(), QString("3 signals were compared."));
    }

private:
    void Start(const QStringList& arguments) {
        std::vector<std::string> texts;
        for (const QString& argument : arguments) texts.push_back(argument.toStdString());
        InitInstance(*m_window->frame, texts);
    }
};

int main(int argc, char** argv) {
    // A separate home folder for the settings, and a user whose numbers have a comma.
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    hasCommaLocale = MakeCommaLocale(home.path());
    qputenv("LC_ALL", kCommaLocale);
    CCommandLine commandLine(argv[0]);
    CQuorvelApp application(commandLine.count, commandLine.Arguments());
    CStartupTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "startup_test.moc"
