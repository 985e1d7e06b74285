#include "app/main_frame.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <array>
#include <utility>

#include "app/dialogs/customize_dialog.h"
#include "app/page_pane.h"
#include "app/quorvel_view.h"
#include "app/resources.h"
#include "app/settings.h"
#include "app/status_line.h"
#include "app/toolbar_row.h"
#include "chart/qcustomplot/qcustomplot_chart.h"
#include "compare/plots/page_ids.h"

namespace {

constexpr QSize kFirstSize{1100, 720};  // pixels; until the user has chosen another

/// Stands for a separator in the lists below.
constexpr auto kSeparator = static_cast<CommandId>(0);

constexpr std::array kSaveMenu = {CommandId::SaveBmp, CommandId::SaveWmf, CommandId::SaveHtml, CommandId::SaveUds,
                                  CommandId::SaveAscii};
constexpr std::array kPrintCommands = {CommandId::Print, CommandId::PrintPreview, kSeparator,
                                       CommandId::UdsSpecification};
constexpr std::array kEditMenu = {CommandId::Copy, CommandId::CopyData, kSeparator, CommandId::CorridorSize,
                                  CommandId::CriticalValues};
constexpr std::array kViewMenu = {CommandId::Toolbar, CommandId::StatusBar, CommandId::Customize};
constexpr std::array kToolbarCommands = {CommandId::SelectFiles,
                                         CommandId::UdsSpecification,
                                         kSeparator,
                                         CommandId::SaveBmp,
                                         CommandId::SaveWmf,
                                         CommandId::SaveHtml,
                                         CommandId::SaveUds,
                                         CommandId::SaveAscii,
                                         CommandId::Print,
                                         kSeparator,
                                         CommandId::Copy,
                                         CommandId::CopyData,
                                         kSeparator,
                                         CommandId::CorridorSize,
                                         CommandId::CriticalValues,
                                         kSeparator,
                                         CommandId::About};

bool IsLockKey(const QEvent& event) {
    if (event.type() != QEvent::KeyRelease) return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_CapsLock || key == Qt::Key_NumLock || key == Qt::Key_ScrollLock;
}

/// What the command does and its key: short menu texts such as "UDS" say too little on a button.
QString ToolTip(const QAction& action) {
    const QKeySequence key = action.shortcut();
    if (key.isEmpty()) return action.statusTip();
    return QStringLiteral("%1 (%2)").arg(action.statusTip(), key.toString(QKeySequence::NativeText));
}

}  // namespace

CMainFrame::CMainFrame(const CWindowServices& services, std::unique_ptr<CChartControl> chart)
    : m_services(services),
      m_host(*this, services),
      m_specificationHost(services),
      m_document(m_host),
      m_chart(std::move(chart)) {
    setObjectName(QStringLiteral("mainFrame"));
    setWindowTitle(QStringLiteral("Quorvel"));
    setWindowIcon(ApplicationIcon());
    setAcceptDrops(true);
    m_status = std::make_unique<CStatusLine>(*statusBar());
    if (!m_chart) MakeChart();
    MakeView();
    MakeActions();
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
    // The view watches the document and uses the chart, so it goes before both.
    const std::unique_ptr<QWidget> view(takeCentralWidget());
}

void CMainFrame::MakeChart() {
    auto chart = std::make_unique<CQCustomPlotChart>();
    connect(chart.get(), &CQCustomPlotChart::ReadoutChanged, this,
            [this](const QString& text) { m_status->ShowReadout(text); });
    m_chart = std::move(chart);
}

void CMainFrame::MakeView() {
    m_view = new CQuorvelView(m_document, *m_chart, m_services, this);
    setCentralWidget(m_view);
    m_pane = new CDialogPane(this);
    connect(m_view, &CQuorvelView::PagesAvailable, this, [this](const QList<int>& pageIds) {
        m_pane->SetPages(std::vector<std::int32_t>(pageIds.begin(), pageIds.end()));
    });
    connect(m_view, &CQuorvelView::RunStateChanged, this, &CMainFrame::FollowRun);
    connect(m_view, &CQuorvelView::Reported, this, [this](const QString& text) { m_status->ShowMessage(text); });
    connect(m_view, &CQuorvelView::ContextMenuRequested, this, &CMainFrame::ShowContextMenu);
    connect(m_pane, &CDialogPane::PageChosen, this, &CMainFrame::ChoosePage);
}

void CMainFrame::MakeActions() {
    for (const CCommand& command : Commands()) {
        auto* const action = new QAction(tr(command.text), this);
        action->setObjectName(QLatin1String(command.name));
        action->setProperty("commandId", static_cast<int>(command.id));
        action->setShortcut(QKeySequence(QLatin1String(command.shortcut)));
        action->setStatusTip(tr(command.statusText));
        action->setToolTip(ToolTip(*action));
        action->setMenuRole(QAction::NoRole);
        if (*command.icon != '\0') action->setIcon(CommandIcon(QLatin1String(command.icon)));
        connect(action, &QAction::triggered, this, [this, id = command.id] { RunCommand(id); });
        addAction(action);  // shortcuts also work while the menus are hidden
        m_actions[command.id] = action;
    }
    Action(CommandId::Toolbar)->setCheckable(true);
    Action(CommandId::StatusBar)->setCheckable(true);
    Action(CommandId::Customize)->setIconText(tr("Customize..."));  // Qt would drop the dots
    Action(CommandId::About)->setMenuRole(QAction::AboutRole);
    Action(CommandId::Exit)->setMenuRole(QAction::QuitRole);
}

QAction* CMainFrame::Action(CommandId id) const {
    const auto found = m_actions.find(id);
    return found == m_actions.end() ? nullptr : found->second;
}

void CMainFrame::AddActions(QWidget& menu, std::span<const CommandId> ids) {
    for (const CommandId id : ids) {
        if (id == kSeparator) {
            auto* const separator = new QAction(&menu);
            separator->setSeparator(true);
            menu.addAction(separator);
        } else {
            menu.addAction(Action(id));
        }
    }
}

void CMainFrame::MakeMenus() {
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addAction(Action(CommandId::SelectFiles));
    AddActions(*file->addMenu(tr("&Save")), kSaveMenu);
    file->addSeparator();
    AddActions(*file, kPrintCommands);
    m_loadedMenu = file->addMenu(tr("UDS Specification &of"));
    m_loadedMenu->menuAction()->setStatusTip(tr("View the UDS file specification of a loaded signal"));
    connect(m_loadedMenu, &QMenu::aboutToShow, this, &CMainFrame::FillLoadedMenu);
    file->addSeparator();
    m_recentMenu = file->addMenu(tr("&Recent File"));
    file->addSeparator();
    file->addAction(Action(CommandId::Exit));
    AddActions(*menuBar()->addMenu(tr("&Edit")), kEditMenu);
    AddActions(*menuBar()->addMenu(tr("&View")), kViewMenu);
    menuBar()->addMenu(tr("&Help"))->addAction(Action(CommandId::About));
}

void CMainFrame::MakeToolbar() {
    auto* const row = new CToolbarRow(m_pane, this);
    addToolBar(row);
    m_toolbar = &row->Buttons();
    connect(m_toolbar, &QToolBar::customContextMenuRequested, this, [this](const QPoint& position) {
        QMenu* const menu = createPopupMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(m_toolbar->mapToGlobal(position));
    });
    FillToolbar();
}

void CMainFrame::FillToolbar() {
    m_toolbar->clear();
    const QStringList hidden = m_services.settings.HiddenToolbarActions();
    bool isSeparatorDue = false;
    for (const CommandId id : kToolbarCommands) {
        if (id == kSeparator) {
            isSeparatorDue = !m_toolbar->actions().isEmpty();
            continue;
        }
        QAction* const action = Action(id);
        if (hidden.contains(action->objectName())) continue;
        if (isSeparatorDue) m_toolbar->addSeparator();
        isSeparatorDue = false;
        m_toolbar->addAction(action);
    }
    m_toolbar->addSeparator();
    m_toolbar->addAction(Action(CommandId::Customize));
}

void CMainFrame::CustomizeToolbar() {
    QList<QAction*> offered;
    for (const CommandId id : kToolbarCommands) {
        if (id != kSeparator) offered.append(Action(id));
    }
    CCustomizeDialog dialog(offered, m_services.settings.HiddenToolbarActions(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    m_services.settings.SetHiddenToolbarActions(dialog.HiddenIds());
    FillToolbar();
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
    Action(CommandId::Toolbar)->setChecked(!m_toolbar->isHidden());
    Action(CommandId::StatusBar)->setChecked(!statusBar()->isHidden());
}

QMenu* CMainFrame::createPopupMenu() {
    auto* const menu = new QMenu(this);
    AddActions(*menu, kViewMenu);
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
