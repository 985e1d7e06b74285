#include "app/main_frame.h"

#include "app/command_actions.h"
#include "app/commands.h"
#include "app/loaded_files.h"
#include "app/page_pane.h"
#include "app/path_menu.h"
#include "app/quorvel_view.h"
#include "app/resources.h"
#include "app/settings.h"
#include "app/status_line.h"
#include "app/toolbar_row.h"
#include "app/window_services.h"
#include "chart/make_chart.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include <array>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr QSize kFirstSize{1100, 720};  // pixels; until the user has chosen another

constexpr std::array kSaveMenu = {CCommandId::SaveBmp, CCommandId::SaveWmf, CCommandId::SaveHtml, CCommandId::SaveUds,
                                  CCommandId::SaveAscii};
constexpr std::array kPrintCommands = {CCommandId::Print, CCommandId::PrintPreview, kSeparator,
                                       CCommandId::UdsSpecification};
constexpr std::array kEditMenu = {CCommandId::Copy, CCommandId::CopyData, kSeparator, CCommandId::CorridorSize,
                                  CCommandId::CriticalValues};
constexpr std::array kViewMenu = {CCommandId::Toolbar, CCommandId::StatusBar, CCommandId::Customize};

bool IsLockKey(const QEvent& event) {
    if (event.type() != QEvent::KeyRelease) return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_CapsLock || key == Qt::Key_NumLock || key == Qt::Key_ScrollLock;
}

}  // namespace

CMainFrame::CMainFrame(const CWindowServices& services, std::unique_ptr<CChartControl> chart)
    : m_saveGuard(services, m_document),
      m_services(m_saveGuard.Guarded()),
      m_host(*this, m_services),
      m_specificationHost(m_services),
      m_document(m_host),
      m_chart(std::move(chart)),
      m_pictures(m_services),
      m_actions(*this, [this](CCommandId id) { RunCommand(id); }) {
    setObjectName(QStringLiteral("mainFrame"));
    setWindowTitle(QStringLiteral("Quorvel"));
    setWindowIcon(ApplicationIcon());
    setAcceptDrops(true);
    m_status = std::make_unique<CStatusLine>(*statusBar());
    if (!m_chart) MakeChart();
    MakeView();
    MakeMenus();
    MakeToolbar();
    ConnectHost();
    RestoreLayout();
    FillRecentMenu();
    UpdateCommands();
    qApp->installEventFilter(this);
}

CMainFrame::~CMainFrame() {
    qApp->removeEventFilter(this);
    // The view watches the document and uses the chart, so it must be destroyed before both.
    const std::unique_ptr<QWidget> view(takeCentralWidget());
}

void CMainFrame::MakeChart() {
    m_chart = MakeChartControl([this](const QString& text) { m_status->ShowReadout(text); });
}

void CMainFrame::MakeView() {
    m_view = new CQuorvelView(m_document, *m_chart, this);
    setCentralWidget(m_view);
    m_pane = new CDialogPane(this);
    connect(m_view, &CQuorvelView::PagesAvailable, this, [this](const QList<int>& pageIds) {
        m_pane->SetPages(std::vector<std::int32_t>(pageIds.begin(), pageIds.end()));
    });
    connect(m_view, &CQuorvelView::RunStateChanged, this, &CMainFrame::FollowRun);
    connect(m_view, &CQuorvelView::ContextMenuRequested, this, &CMainFrame::ShowContextMenu);
    connect(m_pane, &CDialogPane::PageChosen, this, &CMainFrame::ChoosePage);
}

void CMainFrame::MakeMenus() {
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addAction(Action(CCommandId::SelectFiles));
    m_actions.AddTo(*file->addMenu(tr("Save")), kSaveMenu);
    file->addSeparator();
    m_actions.AddTo(*file, kPrintCommands);
    m_loadedMenu = new CPathMenu(tr("UDS Specification &of"), file);
    m_loadedMenu->menuAction()->setStatusTip(tr("View the UDS file specification of a loaded signal"));
    connect(m_loadedMenu, &QMenu::aboutToShow, this, [this] { m_loadedMenu->SetPaths(LoadedFiles(m_document)); });
    connect(m_loadedMenu, &CPathMenu::PathChosen, this, &CMainFrame::ShowSpecification);
    file->addMenu(m_loadedMenu);
    file->addSeparator();
    m_recentMenu = new CPathMenu(tr("Recent File"), file);
    connect(m_recentMenu, &CPathMenu::PathChosen, this, &CMainFrame::OpenRecentFile);
    file->addMenu(m_recentMenu);
    file->addSeparator();
    file->addAction(Action(CCommandId::Exit));
    m_actions.AddTo(*menuBar()->addMenu(tr("&Edit")), kEditMenu);
    m_actions.AddTo(*menuBar()->addMenu(tr("&View")), kViewMenu);
    menuBar()->addMenu(tr("&Help"))->addAction(Action(CCommandId::About));
}

void CMainFrame::MakeToolbar() {
    m_toolbarRow = new CToolbarRow(m_pane, this);
    addToolBar(m_toolbarRow);
    m_toolbar = &m_toolbarRow->Buttons();
    connect(m_toolbar, &QToolBar::customContextMenuRequested, this, [this](const QPoint& position) {
        QMenu* const menu = createPopupMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(m_toolbar->mapToGlobal(position));
    });
    m_toolbarRow->ShowCommands(m_actions, m_services.settings.HiddenToolbarActions());
}

void CMainFrame::ConnectHost() {
    connect(&m_host, &CWindowHost::BusyChanged, this, [this] { UpdateCommands(); });
    connect(&m_host, &CWindowHost::ProgressChanged, this, [this](int done, int total, const QString& path) {
        if (path.isEmpty()) {
            m_status->EndProgress();
        } else {
            m_status->ShowProgress(done, total, path);
        }
    });
}

void CMainFrame::RestoreLayout() {
    resize(kFirstSize);
    restoreGeometry(m_services.settings.WindowGeometry());
    restoreState(m_services.settings.WindowState());
    m_toolbar->setVisible(m_services.settings.IsToolbarShown());
    statusBar()->setVisible(m_services.settings.IsStatusBarShown());
    Action(CCommandId::Toolbar)->setChecked(!m_toolbar->isHidden());
    Action(CCommandId::StatusBar)->setChecked(!statusBar()->isHidden());
}

QMenu* CMainFrame::createPopupMenu() {
    auto* const menu = new QMenu(this);
    m_actions.AddTo(*menu, kViewMenu);
    return menu;
}

bool CMainFrame::eventFilter(QObject* watched, QEvent* event) {
    if (IsLockKey(*event) || event->type() == QEvent::ApplicationActivate) m_status->ShowIndicators();
    return QMainWindow::eventFilter(watched, event);
}

void CMainFrame::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    m_status->ShowIndicators();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    if (m_host.IsBusy()) {
        event->ignore();
        return;
    }
    m_services.settings.SetWindowLayout(saveGeometry(), saveState());
    m_services.settings.SetToolbarShown(!m_toolbar->isHidden());
    m_services.settings.SetStatusBarShown(!statusBar()->isHidden());
    event->accept();
}
