#pragma once

#include <QMainWindow>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "app/commands.h"
#include "app/specification_host.h"
#include "app/window_host.h"
#include "app/window_services.h"
#include "chart/chart_control.h"
#include "compare/document.h"

class CDialogPane;
class CQuorvelView;
class CStatusLine;
class QMenu;
class QToolBar;

/// The main window: menus, toolbar, status bar and the page selector around the one view of the one document.
class CMainFrame : public QMainWindow {
    Q_OBJECT

public:
    /// `chart` shows the chart pages; the frame's own kind when none is given.
    explicit CMainFrame(const CWindowServices& services, std::unique_ptr<CChartControl> chart = nullptr);
    ~CMainFrame() override;

    CQuorvelDoc& Document() { return m_document; }
    CQuorvelView& View() { return *m_view; }
    /// The action of a command; null for a number that no command has.
    QAction* Action(CommandId id) const;

    /// Chooses a command as its menu entry does: nothing happens while the command is off.
    void RunCommand(CommandId id);
    /// "Select Uds Files", filled with `files`, and the run that follows.
    void SelectFiles(std::vector<std::string> files);

protected:
    QMenu* createPopupMenu() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeChart();
    void MakeView();
    void MakeActions();
    void MakeMenus();
    void AddActions(QWidget& menu, std::span<const CommandId> ids);
    void MakeToolbar();
    void FillToolbar();
    void ConnectHost();
    void RestoreLayout();

    /// Runs a command; what it throws ends in a message, and the program lives on.
    void Attempt(const std::function<void()>& command);
    void UpdateCommands();
    CCommandState State() const;
    void Do(CommandId id);

    void FollowRun(RunState run);
    void SaveCurves(void (CQuorvelDoc::*save)());
    void ChoosePage(int pageId);
    void ShowContextMenu(const QPoint& position, const QString& path);
    void CustomizeToolbar();
    void OpenRecentFile(const QString& path);
    void FillRecentMenu();
    void FillLoadedMenu();
    [[nodiscard]] QStringList LoadedFiles() const;
    void PickSpecification();
    void ShowSpecification(const QString& path);
    void TakeDropped(const QStringList& paths);

    CWindowServices m_services;
    CWindowHost m_host;
    CSpecificationHost m_specificationHost;
    CQuorvelDoc m_document;
    std::unique_ptr<CChartControl> m_chart;
    std::map<CommandId, QAction*> m_actions;
    CQuorvelView* m_view = nullptr;
    std::unique_ptr<CStatusLine> m_status;
    QToolBar* m_toolbar = nullptr;
    CDialogPane* m_pane = nullptr;
    QMenu* m_recentMenu = nullptr;
    QMenu* m_loadedMenu = nullptr;  ///< the loaded signals, to look into their files
    bool m_isCommandAtWork = false;
};
