// The commands of the main window.

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <exception>
#include <utility>

#include "app/dialogs/about_dialog.h"
#include "app/dialogs/data_type_filters.h"
#include "app/dialogs/file_picker.h"
#include "app/dropped_files.h"
#include "app/main_frame.h"
#include "app/messages.h"
#include "app/page_pane.h"
#include "app/quorvel_view.h"
#include "app/sentences.h"
#include "app/settings.h"
#include "app/status_line.h"
#include "compare/plots/page_ids.h"
#include "files/hit_list.h"
#include "files/one_line.h"
#include "viewer/uds_dialog.h"
#include "widgets/take_copy.h"

namespace {

/// True while it lives, also past an exception.
class CWhile {
public:
    explicit CWhile(bool& flag) : m_flag(flag) { m_flag = true; }
    ~CWhile() { m_flag = false; }
    CWhile(const CWhile&) = delete;
    CWhile& operator=(const CWhile&) = delete;

private:
    bool& m_flag;
};

constexpr qsizetype kLongestEntry = 100;  // characters of a path in a menu

/// Menu text of a numbered path, which is cut in its middle; the first nine numbers are mnemonics.
QString EntryText(int number, const QString& path) {
    QString shown = QString::fromStdString(ks::OneLine(path.toStdString()));  // a tab would begin the shortcuts' column
    if (shown.size() > kLongestEntry) {
        const qsizetype half = kLongestEntry / 2;
        shown = shown.left(half) + QChar(0x2026) + shown.right(half);
    }
    shown.replace(QLatin1Char('&'), QLatin1String("&&"));
    return (number < 10 ? QStringLiteral("&%1 ") : QStringLiteral("%1 ")).arg(number) + shown;
}

}  // namespace

void CMainFrame::RunCommand(CommandId id) {
    if (!IsCommandEnabled(id, State())) return;
    Attempt([this, id] { Do(id); });
}

void CMainFrame::Attempt(const std::function<void()>& command) {
    // Tools can trigger commands past a dialog that is open; two at once would work on the same document.
    if (m_isCommandAtWork) return;
    {
        const CWhile atWork(m_isCommandAtWork);
        m_status->ShowMessage(tr("Ready"));  // what the last command said is no longer true of this one
        try {
            command();
        } catch (const std::exception& error) {
            m_host.SetBusy(false);
            m_status->ShowMessage(tr("The command failed."));
            m_services.messages.ShowError(this, QString::fromUtf8(error.what()));
        }
        m_host.SetBusy(false);  // a run whose reference cannot be read leaves the wait cursor up
    }
    m_status->EndProgress();
    FillRecentMenu();
    UpdateCommands();
}

CCommandState CMainFrame::State() const {
    CCommandState state;
    state.isBusy = m_host.IsBusy();
    state.isTableShown = m_view->IsTableShown();
    state.isChartShown = m_view->IsChartShown();
    state.run = m_document.Run();
    return state;
}

void CMainFrame::UpdateCommands() {
    const CCommandState state = State();
    for (const auto& [id, action] : m_actions) action->setEnabled(IsCommandEnabled(id, state));
    m_recentMenu->setEnabled(!state.isBusy && !m_recentMenu->isEmpty());
    m_loadedMenu->setEnabled(!state.isBusy && !LoadedFiles().isEmpty());
    m_pane->setEnabled(state.run == RunState::Completed);
}

void CMainFrame::Do(CommandId id) {
    switch (id) {
        case CommandId::SelectFiles:
            return m_document.OnCompareFiles();
        case CommandId::SaveBmp:
            return m_view->OnSaveBmp();
        case CommandId::SaveWmf:
            return m_view->OnSaveWmf();
        case CommandId::SaveHtml:
            return m_view->OnSaveHtml();
        case CommandId::SaveUds:
            return SaveCurves(&CQuorvelDoc::OnSaveUds);
        case CommandId::SaveAscii:
            return SaveCurves(&CQuorvelDoc::OnSaveAscii);
        case CommandId::Print:
            return m_view->OnPrint();
        case CommandId::Copy:
            return m_view->OnCopy();
        case CommandId::CopyData:
            return m_view->OnCopyData();
        case CommandId::CorridorSize:
            return m_document.OnCorridorSize();
        case CommandId::CriticalValues:
            return m_document.OnCriticalValues();
        case CommandId::UdsSpecification:
            return PickSpecification();
        case CommandId::Toolbar:
            return m_toolbar->setVisible(Action(id)->isChecked());
        case CommandId::StatusBar:
            return statusBar()->setVisible(Action(id)->isChecked());
        case CommandId::Customize:
            return CustomizeToolbar();
        case CommandId::About:
            CKsAboutDlg(AboutTextsOfBuild(), this).exec();
            return;
        case CommandId::Exit:
            close();
            return;
        default:
            return;
    }
}

void CMainFrame::SaveCurves(void (CQuorvelDoc::*save)()) {
    m_host.BeginSaving();
    (m_document.*save)();
    const QStringList& paths = m_host.SavePaths();
    if (m_host.HasShownErrors()) return;
    if (!m_view->IsChartShown()) {
        m_status->ShowMessage(tr("This page has no curves to save."));
    } else if (paths.size() == 1) {
        m_status->ShowMessage(tr("Saved as %1.").arg(paths.front()));
    } else if (paths.size() > 1) {
        m_status->ShowMessage(tr("%1 curves were saved, the last as %2.").arg(paths.size()).arg(paths.back()));
    }
}

void CMainFrame::FollowRun(RunState run) {
    UpdateCommands();
    if (run == RunState::AtWork) {
        m_pane->ShowPage(page::kSummary);
    } else if (run == RunState::Completed) {
        const std::size_t count = m_document.ComputedSignals().size();
        m_status->ShowMessage(count == 1 ? tr("1 signal was compared.") : tr("%1 signals were compared.").arg(count));
    } else if (m_document.ErrorMessages().empty() && !m_document.ReferenceMessages().empty()) {
        m_status->ShowMessage(tr("The reference could not be read; nothing was compared."));
    } else {
        m_status->ShowMessage(tr("The run stopped; nothing was compared."));
    }
}

void CMainFrame::SelectFiles(std::vector<std::string> files) {
    Attempt([this, &files] {
        m_host.OfferFiles(std::move(files));
        m_document.OnCompareFiles();
    });
}

void CMainFrame::ChoosePage(int pageId) {
    Attempt([this, pageId] {
        m_host.SetBusy(true);  // a page of many long signals takes its time
        m_view->ChoosePage(pageId);
    });
}

void CMainFrame::ShowContextMenu(const QPoint& position, const QString& path) {
    QMenu menu(tr("Edit"), this);
    for (const CommandId id : {CommandId::Cut, CommandId::Copy, CommandId::Paste}) menu.addAction(Action(id));
    if (!path.isEmpty()) {
        menu.addSeparator();
        QAction* const specification =
            menu.addAction(Action(CommandId::UdsSpecification)->icon(), Action(CommandId::UdsSpecification)->text());
        specification->setObjectName(QStringLiteral("UdsSpecificationOfRow"));
        connect(specification, &QAction::triggered, this, [this, path] { ShowSpecification(path); });
    }
    menu.exec(position);
}

void CMainFrame::FillRecentMenu() {
    m_recentMenu->clear();
    int number = 1;
    const QStringList files = m_services.settings.RecentFiles();
    for (const QString& path : files) {
        QAction* const action = m_recentMenu->addAction(EntryText(number, path));
        action->setObjectName(QStringLiteral("RecentFile%1").arg(number));
        action->setProperty("commandId", static_cast<int>(CommandId::RecentFile) + number - 1);
        action->setStatusTip(path);
        connect(
            action, &QAction::triggered, this, [this, path] { OpenRecentFile(path); }, Qt::QueuedConnection);
        ++number;
    }
}

void CMainFrame::OpenRecentFile(const QString& path) {
    Attempt([this, path] {
        if (!QFileInfo::exists(path)) {
            m_services.settings.RemoveRecentFile(path);
            m_services.messages.ShowError(
                this, tr("The hit list %1 does not exist any more. It was taken off the recent files.").arg(path));
            return;
        }
        const auto files = ks::ReadHitList(path.toStdString());
        if (!files) {
            m_services.messages.ShowError(this, HitListUnreadable());
            return;
        }
        m_services.settings.AddRecentFile(path);
        m_host.OfferFiles(*files);
        m_document.OnCompareFiles();
    });
}

QStringList CMainFrame::LoadedFiles() const {
    QStringList paths;
    if (m_document.ComputedSignals().empty()) return paths;
    paths.append(QString::fromStdString(m_document.Reference().GetPath()));
    for (const CSignal& signal : m_document.ComputedSignals()) paths.append(QString::fromStdString(signal.GetPath()));
    paths.removeAll(QString());
    paths.removeDuplicates();  // a reference made from the signals has the path of the first
    return paths;
}

void CMainFrame::FillLoadedMenu() {
    m_loadedMenu->clear();
    int number = 1;
    const QStringList files = LoadedFiles();
    for (const QString& path : files) {
        QAction* const action = m_loadedMenu->addAction(EntryText(number, path));
        action->setStatusTip(path);
        connect(
            action, &QAction::triggered, this, [this, path] { ShowSpecification(path); }, Qt::QueuedConnection);
        ++number;
    }
}

void CMainFrame::PickSpecification() {
    ks::CFileRequest request;
    request.title = tr("Select Uds File to View").toStdString();
    request.filters = DataTypeFilters();
    request.filterIndex = m_services.settings.Get(setting::kDataType);
    request.folder = m_services.settings.Get(setting::kInputDir).toStdString();
    request.fileMustExist = true;
    const std::optional<CPickedFiles> picked = m_services.picker.Pick(this, request);
    if (picked) ksres::CUDSDialog::ShowFile(picked->paths.front(), m_specificationHost, this);
}

void CMainFrame::ShowSpecification(const QString& path) {
    Attempt([this, &path] { ksres::CUDSDialog::ShowFile(path, m_specificationHost, this); });
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
    if (!m_isCommandAtWork && !LocalPaths(*event->mimeData()).isEmpty()) TakeAsCopy(*event);
}

void CMainFrame::dropEvent(QDropEvent* event) {
    if (!TakeAsCopy(*event)) return;
    // Later: the program that the files come from waits until the drop has ended.
    QTimer::singleShot(0, this, [this, paths = LocalPaths(*event->mimeData())] { TakeDropped(paths); });
}

void CMainFrame::TakeDropped(const QStringList& paths) {
    Attempt([this, &paths] {
        const CDroppedFiles dropped = ExpandDropped(paths, CurrentDataTypeWildcard(m_services.settings));
        for (const QString& hitList : dropped.hitLists) m_services.settings.AddRecentFile(hitList);
        if (!dropped.unreadableHitLists.isEmpty()) {
            m_services.messages.ShowError(this, HitListUnreadable());
        }
        if (dropped.files.empty()) {
            m_status->ShowMessage(tr("Nothing to compare was dropped. Folders add their files of the type %1.")
                                      .arg(CurrentDataTypeText(m_services.settings)));
            return;
        }
        m_host.OfferFiles(dropped.files);
        m_document.OnCompareFiles();
    });
}
