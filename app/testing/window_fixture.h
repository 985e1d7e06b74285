#pragma once

#include "app/control_ids.h"
#include "app/dialogs/file_list.h"
#include "app/dialogs/printer_picker.h"
#include "app/dialogs/select_files.h"
#include "app/main_frame.h"
#include "app/quorvel_view.h"
#include "app/settings.h"
#include "app/table/summary_list.h"
#include "app/testing/control_ids.h"
#include "app/testing/dialog_driver.h"
#include "app/testing/error_list_watcher.h"
#include "app/testing/recorded_messages.h"
#include "app/testing/scripted_picker.h"
#include "app/testing/widget_probe.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// Prints to a PDF file, also as the default printer. Without a file name it cancels and there is no default printer.
class CPdfPicker : public CPrinterPicker {
public:
    QString path;
    std::optional<QPageLayout> layout;  ///< none: as offered
    QList<int> pageCounts;              ///< one per print request so far
    bool Pick(QWidget*, QPrinter& printer, int pageCount) override {
        pageCounts.append(pageCount);
        if (!TakeDefault(printer)) return false;
        if (layout) printer.setPageLayout(*layout);
        return true;
    }
    bool TakeDefault(QPrinter& printer) override {
        if (path.isEmpty()) return false;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        return true;
    }
};

/// How the signals of a run are prepared, in the words of "Select Uds Files".
struct CRunChoice {
    bool isFiltered = true;
    QString channelClass = QStringLiteral("CFC60");
    std::optional<std::pair<QString, QString>> window = std::nullopt;  ///< minimum and maximum time
};

/// A main window with its own settings and a scripted user.
class CWindowFixture {
public:
    explicit CWindowFixture(std::unique_ptr<CChartControl> chart = nullptr)
        : store(folder.filePath("settings.ini"), QSettings::IniFormat), settings(store) {
        OpenFrame(std::move(chart));
        frame->resize(1000, 600);
        frame->show();
    }

    /// Closes the window and opens another one with the same settings, as the next start of the program does.
    void Reopen() {
        frame->close();
        frame.reset();
        OpenFrame(nullptr);
        frame->show();
    }

    /// A file of this fixture's folder.
    [[nodiscard]] QString Path(const QString& name) const { return folder.filePath(name); }

    /// One of the program's sample signals.
    static std::string Sample(const std::string& name) { return QUORVEL_SAMPLES "/" + name; }

    /// The acceleration signals and, number 1, their reference.
    static std::string Sled(int number) { return Sample("sled/s0100" + std::to_string(number) + "aa0.001"); }
    /// The force signals and, number 1, their reference.
    static std::string Force(int number) { return Sample("force/f0100" + std::to_string(number) + "fa0.001"); }

    /// Chooses the files in "Select Uds Files" and presses OK; an empty reference means "Compare to Average".
    void Compare(const std::vector<std::string>& files, const std::string& reference, const CRunChoice& choice = {}) {
        dialogs.Expect([this, files, reference, choice](QWidget& dialog) {
            Control<QCheckBox>(dialog, kFilterId)->setChecked(choice.isFiltered);
            Control<QComboBox>(dialog, kChannelClassId)->setCurrentText(choice.channelClass);
            Control<QCheckBox>(dialog, kTruncateId)->setChecked(choice.window.has_value());
            if (choice.window) {
                Control<QLineEdit>(dialog, kMinTimeId)->setText(choice.window->first);
                Control<QLineEdit>(dialog, kMaxTimeId)->setText(choice.window->second);
            }
            Answer(dialog, files, reference);
        });
        frame->RunCommand(CCommandId::SelectFiles);
    }

    void Answer(QWidget& dialog, const std::vector<std::string>& files, const std::string& reference) {
        ++selectionsAnswered;
        auto& list = *dialog.findChild<CFileList*>();
        list.clear();
        list.AppendFiles(files);
        Control<QRadioButton>(dialog, reference.empty() ? kAverageReferenceId : kSingleReferenceId)->setChecked(true);
        Control<QLineEdit>(dialog, kReferencePathId)->setText(QString::fromStdString(reference));
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    }

    void CompareSled() { Compare({Sled(2), Sled(3), Sled(4)}, Sled(1)); }
    void CompareForce() { Compare({Force(2), Force(3)}, Force(1)); }

    /// Confirms the corridor size in its dialog.
    void SetCorridor(const QString& size) {
        dialogs.Expect([size](QWidget& dialog) {
            Control<QLineEdit>(dialog, kCorridorSizeId)->setText(size);
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
        frame->RunCommand(CCommandId::CorridorSize);
    }

    /// Chooses a page as a user does, by the selector's entry.
    void ChoosePage(const QString& name) {
        QComboBox& pages = Pages();
        pages.setCurrentIndex(pages.findText(name));
        emit pages.activated(pages.currentIndex());
    }

    [[nodiscard]] QComboBox& Pages() const { return *Control<QComboBox>(*frame, kPagesId); }
    [[nodiscard]] QStringList PageNames() const {
        QStringList names;
        for (int i = 0; i < Pages().count(); ++i) names.append(Pages().itemText(i));
        return names;
    }
    [[nodiscard]] CSummaryList* List() const { return frame->findChild<CSummaryList*>(); }
    [[nodiscard]] QString StatusText() const { return frame->findChild<QLabel*>("statusMessage")->text(); }
    [[nodiscard]] bool IsHintShown() const { return frame->findChild<QLabel*>("hint")->isVisible(); }
    [[nodiscard]] bool IsBannerShown() const { return frame->findChild<QLabel*>("banner")->isVisible(); }
    [[nodiscard]] bool IsEnabled(CCommandId id) const { return frame->Action(id)->isEnabled(); }
    [[nodiscard]] QStringList EnabledCommands() const {
        QStringList names;
        for (const CCommand& command : Commands()) {
            if (IsEnabled(command.id)) names.append(command.name);
        }
        return names;
    }

    QTemporaryDir folder;
    QSettings store;
    CSettings settings;
    CScriptedPicker picker;
    CRecordedMessages messages;
    CPdfPicker printers;
    CErrorListWatcher errorLists;
    CDialogDriver dialogs;
    std::unique_ptr<CMainFrame> frame;
    int selectionsAnswered = 0;

private:
    void OpenFrame(std::unique_ptr<CChartControl> chart) {
        frame = std::make_unique<CMainFrame>(CWindowServices{settings, picker, messages, printers}, std::move(chart));
    }
};
