// What the main window does while a command is running, and how it handles a command that throws.

#include "app/commands.h"
#include "app/dialogs/file_picker.h"
#include "app/testing/widget_probe.h"
#include "app/testing/window_test.h"
#include "chart/chart_control.h"
#include "chart/testing/recording_chart_control.h"
#include "compare/plots/page_ids.h"
#include "compare/run_state.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <utility>

namespace {

/// Notes the text that a label had each time it was painted.
class CPaintedTexts : public QObject {
public:
    explicit CPaintedTexts(QLabel& label) : m_label(label) { m_label.installEventFilter(this); }
    QStringList texts;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && (texts.isEmpty() || texts.last() != m_label.text())) {
            texts.append(m_label.text());
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QLabel& m_label;
};

/// A chart whose named operations fail.
class CFailingChart : public CRecordingChartControl {
public:
    void Create(const CChartCreation& creation) override {
        if (shouldFailToOpen) throw std::runtime_error("no chart today");
        CRecordingChartControl::Create(creation);
    }
    void CopyMetafile(CChartSize) override { throw std::runtime_error("no copy today"); }
    bool shouldFailToOpen = false;
};

}  // namespace

class CWindowBusyTest : public CWindowTest {
    Q_OBJECT

private slots:
    void init() { OpenWindow(); }
    void cleanup() { CloseWindow(); }

    // Long runs.

    void ARunPaintsTheNameOfEveryFileWhileItIsAtWork() {
        CPaintedTexts painted(*Frame().findChild<QLabel*>("statusMessage"));
        QVERIFY(QTest::qWaitForWindowExposed(&Frame()));
        m_window->CompareForce();
        for (const int file : {1, 2, 3}) {
            const QString path = QString::fromStdString(Force(file));
            QVERIFY2(painted.texts.contains(path), qPrintable(painted.texts.join('\n')));
        }
    }

    void ALongRunIgnoresUserInput() {
        m_window->CompareSled();
        m_window->List()->setCurrentIndex(m_window->List()->model()->index(0, 0));
        const auto& progress = *Frame().findChild<QProgressBar*>("progress");
        int probes = 0;
        const auto connection = connect(&progress, &QProgressBar::valueChanged, this, [&] {
            QTimer::singleShot(0, this, [&] {
                if (QApplication::overrideCursor() == nullptr) return;  // the last one, after the run
                ++probes;
                QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
                TryEverything();
            });
        });
        QVERIFY(QTest::qWaitForWindowExposed(&Frame()));
        m_window->CompareForce();
        disconnect(connection);
        QVERIFY2(probes >= 6, qPrintable(QString::number(probes)));  // two files, read, resampled and compared
        QCOMPARE(m_window->selectionsAnswered, 2);
        QVERIFY(Frame().isVisible());
        QVERIFY(m_window->picker.requests.empty());
        QVERIFY(m_window->messages.said.isEmpty());
        QVERIFY(!progress.isVisible());
        QCOMPARE(m_window->List()->model()->rowCount(), 2);
        QCOMPARE(m_window->StatusText(), QString("2 signals were compared."));
        QCOMPARE(m_window->PageNames().size(), qsizetype{8});
    }

    void APageChosenWhileACommandIsAtWorkLeavesSelectorAndViewInAgreement() {
        m_window->CompareSled();
        m_window->ChoosePage("Velocity");
        m_window->dialogs.Expect([this](QWidget& dialog) {
            m_window->ChoosePage("Summary");
            CheckPage("Velocity", page::kVelocity);
            dialog.close();
        });
        Trigger(CCommandId::CorridorSize);
        CheckPage("Velocity", page::kVelocity);
        QVERIFY(Frame().View().IsChartShown());
    }

    void APageChosenWhileARunIsAtWorkIsRefused() {
        m_window->CompareSled();
        const auto& progress = *Frame().findChild<QProgressBar*>("progress");
        int probes = 0;
        const auto connection = connect(&progress, &QProgressBar::valueChanged, this, [&] {
            if (Frame().Document().Run() != CRunState::AtWork) return;
            ++probes;
            m_window->ChoosePage("Velocity");
            QCOMPARE(m_window->Pages().currentText(), QString("Summary"));
        });
        m_window->CompareForce();
        disconnect(connection);
        QVERIFY(probes > 0);
        CheckPage("Summary", page::kSummary);
        QVERIFY(m_window->List()->isVisible());
    }

    void APageChosenAfterARunThatStoppedIsRefused() {
        m_window->CompareSled();
        m_window->Compare({m_window->Path("nowhere.001").toStdString()}, Sled(1));
        m_window->ChoosePage("Velocity");
        CheckPage("Summary", page::kSummary);
        QVERIFY(m_window->IsBannerShown());
        QVERIFY(m_window->List()->isVisible());
    }

    void ARunAtWorkIsNotCalledStopped() {
        QVERIFY(QTest::qWaitForWindowExposed(&Frame()));
        CPaintedTexts hints(*Frame().findChild<QLabel*>("hint"));
        m_window->CompareSled();
        QCOMPARE(hints.texts, QStringList({"Comparing ..."}));
        CPaintedTexts banners(*Frame().findChild<QLabel*>("banner"));
        m_window->CompareForce();
        QCOMPARE(banners.texts, QStringList({"Comparing ... These are the results of the previous run."}));
        QVERIFY(!m_window->IsBannerShown());
    }

    void AMessageThatComesUpDuringARunCanBeConfirmed() {
        const auto& progress = *Frame().findChild<QProgressBar*>("progress");
        int confirmed = 0;
        const auto connection = connect(&progress, &QProgressBar::valueChanged, this, [&] {
            if (confirmed > 0 || progress.value() < 1) return;
            QDialog message(&Frame());
            auto* const button = new QPushButton("OK", &message);
            connect(button, &QPushButton::clicked, &message, [&] {
                ++confirmed;
                message.accept();
            });
            m_window->dialogs.Expect([button](QWidget&) { QTest::mouseClick(button, Qt::LeftButton); });
            message.exec();
        });
        m_window->CompareForce();
        disconnect(connection);
        QCOMPARE(confirmed, 1);
    }

    void TheProgressBarCountsTheSteps() {
        const auto& progress = *Frame().findChild<QProgressBar*>("progress");
        QList<int> values;
        bool wasVisible = true;
        connect(&progress, &QProgressBar::valueChanged, this, [&](int value) {
            if (value < 0) return;
            values.append(value);
            QTimer::singleShot(0, this, [&] { wasVisible = wasVisible && progress.isVisible(); });
        });
        m_window->Compare({Sled(2), Sled(3)}, Sled(1));
        // Two files read, filtered, resampled and compared, and the reference.
        QCOMPARE(progress.maximum(), 9);
        QVERIFY(std::is_sorted(values.begin(), values.end()));
        QVERIFY(values.size() >= 8);
        QVERIFY(wasVisible);
        QVERIFY(!progress.isVisible());
    }

    void AWindowCanBeClosedAgainAfterARun() {
        m_window->CompareSled();
        QVERIFY(Frame().close());
        QVERIFY(!Frame().isVisible());
    }

    // Exceptions.

    void AnExceptionOutOfACommandIsShownAndTheProgramContinues() {
        OpenWindow(std::make_unique<CFailingChart>());
        m_window->CompareSled();
        m_window->ChoosePage("Velocity");
        Trigger(CCommandId::Copy);
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|no copy today"}));
        QCOMPARE(m_window->StatusText(), QString("The command failed."));
        m_window->ChoosePage("Summary");
        QVERIFY(m_window->List()->isVisible());
        m_window->CompareForce();
        QCOMPARE(m_window->StatusText(), QString("2 signals were compared."));
    }

    void AnExceptionOutOfAPageEndsTheWaitCursorToo() {
        auto chart = std::make_unique<CFailingChart>();
        CFailingChart& failing = *chart;
        OpenWindow(std::move(chart));
        m_window->CompareSled();
        failing.shouldFailToOpen = true;
        m_window->ChoosePage("Velocity");
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|no chart today"}));
        QVERIFY(QApplication::overrideCursor() == nullptr);
        failing.shouldFailToOpen = false;
        m_window->ChoosePage("Displacement");
        QVERIFY(Frame().View().IsChartShown());
    }

    void AUdsFileThatCannotBeWrittenIsReported() {
        m_window->CompareSled();
        m_window->ChoosePage("Velocity");
        m_window->picker.answers = {CPickedFiles{{m_window->Path("no such folder/a.uds")}, 1}};
        Trigger(CCommandId::SaveUds);
        QCOMPARE(m_window->messages.said, QStringList({"error|Error|Failure to open file for writing."}));
        QVERIFY(!m_window->store.contains("Settings/UdsOutputDir"));
        m_window->ChoosePage("Summary");
        QVERIFY(m_window->List()->isVisible());
    }

private:
    void CheckPage(const QString& name, std::int32_t pageId) {
        QCOMPARE(m_window->Pages().currentText(), name);
        QCOMPARE(Frame().Document().CurrentPageId(), pageId);
    }

    /// What an impatient user does during a run.
    void TryEverything() {
        QCOMPARE(m_window->EnabledCommands(), QStringList());
        for (const CCommand& command : Commands()) {
            Frame().RunCommand(command.id);
            Frame().Action(command.id)->trigger();
        }
        for (const Qt::Key key : {Qt::Key_O, Qt::Key_P, Qt::Key_C, Qt::Key_Q}) {
            QTest::keyClick(&Frame(), key, Qt::ControlModifier);
        }
        QTest::keyClick(&m_window->Pages(), Qt::Key_Down);
        QTest::mouseClick(&m_window->Pages(), Qt::LeftButton);
        QVERIFY(QApplication::activePopupWidget() == nullptr);
        const auto buttons = Frame().findChild<QToolBar*>("toolbar")->findChildren<QToolButton*>();
        for (QToolButton* const button : buttons) QTest::mouseClick(button, Qt::LeftButton);
        QTest::keyClick(m_window->List(), Qt::Key_Down);
        QCOMPARE(m_window->List()->currentIndex(), m_window->List()->model()->index(0, 0));
        QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(50, 50), Frame().View().mapToGlobal(QPoint(50, 50)));
        QApplication::sendEvent(&Frame().View(), &menu);
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(QString::fromStdString(Sled(2)))});
        QCOMPARE(SendDrop(Frame(), files, QPoint(50, 200)), Qt::IgnoreAction);
        QVERIFY(!Frame().close());
        QVERIFY(Frame().isVisible());
    }
};

QTEST_MAIN(CWindowBusyTest)
#include "window_busy_test.moc"
