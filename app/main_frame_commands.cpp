// The commands of the main window.

#include "app/commands.h"
#include "app/dialogs/about_dialog.h"
#include "app/dialogs/customize_dialog.h"
#include "app/dialogs/data_type_filters.h"
#include "app/dropped_files.h"
#include "app/exports/chart_printing.h"
#include "app/exports/curve_export.h"
#include "app/exports/picture_export.h"
#include "app/exports/table_export.h"
#include "app/loaded_files.h"
#include "app/main_frame.h"
#include "app/message_box.h"
#include "app/messages.h"
#include "app/page_pane.h"
#include "app/path_menu.h"
#include "app/quorvel_view.h"
#include "app/run_report.h"
#include "app/settings.h"
#include "app/specification_picker.h"
#include "app/status_line.h"
#include "app/toolbar_row.h"
#include "compare/plots/page_ids.h"
#include "compare/plots/page_table.h"
#include "compare/run_state.h"
#include "files/hit_list.h"
#include "viewer/uds_dialog.h"
#include "widgets/messages.h"
#include "widgets/take_copy.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// True while it lives; reset even when an exception is thrown.
class CWhile {
public:
    explicit CWhile(bool& isInside) : m_isInside(isInside) { m_isInside = true; }
    ~CWhile() { m_isInside = false; }
    CWhile(const CWhile&) = delete;
    CWhile& operator=(const CWhile&) = delete;

private:
    bool& m_isInside;
};

}  // namespace

void CMainFrame::RunCommand(CCommandId id) {
    if (!IsCommandEnabled(id, State())) return;
    Attempt([this, id] { Do(id); });
}

void CMainFrame::Attempt(const std::function<void()>& command) {
    // Tools can trigger commands while a dialog is open; two at once would work on the same document.
    if (m_isCommandAtWork) return;
    {
        const CWhile atWork(m_isCommandAtWork);
        m_status->ShowMessage(app_message::kReady);  // the last command's message does not apply to this one
        try {
            command();
        } catch (const std::exception& error) {
            m_host.SetBusy(false);
            m_status->ShowMessage(app_message::kCommandFailed);
            m_services.messages.ShowError(this, widget_message::SentenceOf(error));
        }
        m_host.SetBusy(false);  // a run whose reference cannot be read leaves the wait cursor on
    }
    m_status->EndProgress();
    FillRecentMenu();
    UpdateCommands();
}

CCommandState CMainFrame::State() const {
    CCommandState state;
    state.isBusy = m_host.IsBusy();
    state.isTableShown = m_view->ShownTable() != nullptr;
    state.isChartShown = m_view->IsChartShown();
    state.run = m_document.Run();
    return state;
}

void CMainFrame::UpdateCommands() {
    const CCommandState state = State();
    m_actions.Enable(state);
    m_recentMenu->setEnabled(!state.isBusy && !m_recentMenu->isEmpty());
    m_loadedMenu->setEnabled(!state.isBusy && !LoadedFiles(m_document).isEmpty());
    m_pane->setEnabled(state.run == CRunState::Completed);
}

void CMainFrame::Do(CCommandId id) {
    switch (id) {
        case CCommandId::SelectFiles:
            return m_document.OnCompareFiles();
        case CCommandId::SaveBmp:
            return Report(m_pictures.Save(*m_chart, CPictureKind::Bitmap, this));
        case CCommandId::SaveWmf:
            return Report(m_pictures.Save(*m_chart, CPictureKind::Metafile, this));
        case CCommandId::SaveHtml:
            return Report(SaveHtmlReport(*m_view->ShownTable(), m_services, this));
        case CCommandId::SaveUds:
            return Report(SaveCurves(*m_chart, m_document, m_host, CCurveFormat::Uds));
        case CCommandId::SaveAscii:
            return Report(SaveCurves(*m_chart, m_document, m_host, CCurveFormat::Ascii));
        case CCommandId::Print:
            return Report(PrintChart(*m_chart, PageOnShow(), m_services, this));
        case CCommandId::PrintDirect:
            return Report(PrintChartDirectly(*m_chart, PageOnShow(), m_services, this));
        case CCommandId::Copy:
            return Report(CopyPicture(*m_chart));
        case CCommandId::CopyData:
            return Report(CopyTable(*m_view->ShownTable()));
        case CCommandId::CorridorSize:
            return m_document.OnCorridorSize();
        case CCommandId::CriticalValues:
            return m_document.OnCriticalValues();
        case CCommandId::UdsSpecification:
            return PickSpecification();
        case CCommandId::Toolbar:
            return m_toolbar->setVisible(Action(id)->isChecked());
        case CCommandId::StatusBar:
            return statusBar()->setVisible(Action(id)->isChecked());
        case CCommandId::Customize:
            return CustomizeToolbar();
        case CCommandId::About:
            CKsAboutDlg(AboutTextsOfBuild(), this).exec();
            return;
        case CCommandId::Exit:
            close();
            return;
        default:
            return;
    }
}

void CMainFrame::Report(const QString& text) {
    if (!text.isEmpty()) m_status->ShowMessage(text);
}

QString CMainFrame::PageOnShow() const {
    return QString::fromUtf8(PageName(m_document.CurrentPageId()));
}

void CMainFrame::FollowRun(CRunState run) {
    UpdateCommands();
    if (run == CRunState::AtWork) {
        m_pane->ShowPage(page::kSummary);
    } else {
        m_status->ShowMessage(RunReport(m_document));
    }
}

/// Opens "Select Uds Files" with `files`, then runs the comparison.
void CMainFrame::CompareOffered(std::vector<std::string> files) {
    m_host.OfferFiles(std::move(files));
    m_document.OnCompareFiles();
}

void CMainFrame::ChoosePage(int pageId) {
    const bool isCompleted = m_document.Run() == CRunState::Completed;
    if (isCompleted) {
        Attempt([this, pageId] {
            m_host.SetBusy(true);  // a page of many long signals takes a while
            m_view->ChoosePage(pageId);
            const std::string_view remark = PageRemark(pageId);
            if (!remark.empty()) m_status->ShowMessage(QString::fromUtf8(remark));
        });
    }
    // Tools can choose a page while a dialog is open. This is refused: the selector returns to the current page.
    m_pane->ShowPage(isCompleted ? m_document.CurrentPageId() : page::kSummary);
}

void CMainFrame::ShowContextMenu(const QPoint& position, const QString& path) {
    QMenu menu(tr("Edit"), this);
    for (const CCommandId id : {CCommandId::Cut, CCommandId::Copy, CCommandId::Paste}) menu.addAction(Action(id));
    if (!path.isEmpty()) {
        menu.addSeparator();
        QAction* const specification =
            menu.addAction(Action(CCommandId::UdsSpecification)->icon(), Action(CCommandId::UdsSpecification)->text());
        specification->setObjectName(QStringLiteral("UdsSpecificationOfRow"));
        connect(specification, &QAction::triggered, this, [this, path] { ShowSpecification(path); });
    }
    menu.exec(position);
}

void CMainFrame::CustomizeToolbar() {
    CCustomizeDialog dialog(CToolbarRow::OfferedActions(m_actions), m_services.settings.HiddenToolbarActions(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    m_services.settings.SetHiddenToolbarActions(dialog.HiddenIds());
    m_toolbarRow->ShowCommands(m_actions, dialog.HiddenIds());
}

void CMainFrame::FillRecentMenu() {
    m_recentMenu->SetPaths(m_services.settings.RecentFiles());
    int number = 0;
    for (QAction* const action : m_recentMenu->actions()) {
        action->setProperty("commandId", static_cast<int>(CCommandId::RecentFile) + number);
        ++number;
        action->setObjectName(QStringLiteral("RecentFile%1").arg(number));
    }
}

void CMainFrame::OpenRecentFile(const QString& path) {
    Attempt([this, path] {
        if (!QFileInfo::exists(path)) {
            m_services.settings.RemoveRecentFile(path);
            m_services.messages.ShowError(this, app_message::HitListGone(path));
            return;
        }
        const auto files = ks::ReadHitList(path.toStdString());
        if (!files) {
            m_services.messages.ShowError(this, app_message::kHitListUnreadable);
            return;
        }
        m_services.settings.AddRecentFile(path);
        CompareOffered(*files);
    });
}

void CMainFrame::PickSpecification() {
    const std::optional<QString> path = PickSpecificationFile(m_services, this);
    if (path) ksres::CUDSDialog::ShowFile(*path, m_specificationHost, this);
}

void CMainFrame::ShowSpecification(const QString& path) {
    Attempt([this, &path] { ksres::CUDSDialog::ShowFile(path, m_specificationHost, this); });
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
    if (!m_isCommandAtWork && !LocalPaths(*event->mimeData()).isEmpty()) TakeAsCopy(*event);
}

void CMainFrame::dropEvent(QDropEvent* event) {
    if (!TakeAsCopy(*event)) return;
    // Later, because the program that the files come from waits until the drop has ended.
    QTimer::singleShot(0, this, [this, paths = LocalPaths(*event->mimeData())] { TakeDropped(paths); });
}

void CMainFrame::TakeDropped(const QStringList& paths) {
    Attempt([this, &paths] {
        const CDroppedFiles dropped = TakeDroppedFiles(paths, m_services.settings, m_services.messages, this);
        if (dropped.files.empty()) {
            m_status->ShowMessage(app_message::NothingDropped(CurrentDataTypeText(m_services.settings)));
            return;
        }
        CompareOffered(dropped.files);
    });
}
