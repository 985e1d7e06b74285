#pragma once

#include "app/command_actions.h"
#include "app/commands.h"
#include "app/exports/picture_export.h"
#include "app/save_guard.h"
#include "app/specification_host.h"
#include "app/window_host.h"
#include "app/window_services.h"
#include "chart/chart_control.h"
#include "compare/document.h"
#include "compare/run_state.h"

#include <QMainWindow>
#include <QStringList>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class CDialogPane;
class CPathMenu;
class CQuorvelView;
class CStatusLine;
class CToolbarRow;
class QToolBar;

/// The main window: wires menus, toolbar, status bar, and page selector to the one document and its one view.
class CMainFrame : public QMainWindow {
    Q_OBJECT

public:
    /// `chart` shows the chart pages; the frame makes its own when none is given.
    explicit CMainFrame(const CWindowServices& services, std::unique_ptr<CChartControl> chart = nullptr);
    ~CMainFrame() override;

    CQuorvelDoc& Document() { return m_document; }
    CQuorvelView& View() { return *m_view; }
    /// The action of a command; null for a number that no command has.
    [[nodiscard]] QAction* Action(CCommandId id) const { return m_actions.Find(id); }

    /// Chooses a command as its menu entry does: nothing happens while the command is disabled.
    void RunCommand(CCommandId id);

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
    void MakeMenus();
    void MakeToolbar();
    void ConnectHost();
    void RestoreLayout();

    /// Runs a command; shows a message for an exception, and the program continues.
    void Attempt(const std::function<void()>& command);
    void UpdateCommands();
    [[nodiscard]] CCommandState State() const;
    void Do(CCommandId id);
    void Report(const QString& text);

    void CompareOffered(std::vector<std::string> files);
    void FollowRun(CRunState run);
    void ChoosePage(int pageId);
    [[nodiscard]] QString PageOnShow() const;
    void ShowContextMenu(const QPoint& position, const QString& path);
    void CustomizeToolbar();
    void OpenRecentFile(const QString& path);
    void FillRecentMenu();
    void PickSpecification();
    void ShowSpecification(const QString& path);
    void TakeDropped(const QStringList& paths);

    CSaveGuard m_saveGuard;
    CWindowServices m_services;  ///< guarded
    CWindowHost m_host;
    CSpecificationHost m_specificationHost;
    CQuorvelDoc m_document;
    std::unique_ptr<CChartControl> m_chart;
    CPictureExport m_pictures;
    CCommandActions m_actions;
    CQuorvelView* m_view = nullptr;
    std::unique_ptr<CStatusLine> m_status;
    CToolbarRow* m_toolbarRow = nullptr;
    QToolBar* m_toolbar = nullptr;
    CDialogPane* m_pane = nullptr;
    CPathMenu* m_recentMenu = nullptr;
    CPathMenu* m_loadedMenu = nullptr;  ///< the loaded signals, to view their files
    bool m_isCommandAtWork = false;
};
