#pragma once

#include "compare/run_state.h"

#include <cstdint>
#include <span>

/// Numbers of the commands; frozen: the toolbar's state on users' machines and tools that drive the window refer to
/// them.
enum class CCommandId : std::int32_t {
    SaveUds = 32771,
    SaveAscii = 32772,
    SaveBmp = 32774,
    SaveWmf = 32775,
    SaveHtml = 32776,
    CopyData = 32777,
    CriticalValues = 32778,
    CorridorSize = 32779,
    UdsSpecification = 32781,
    Customize = 32790,
    SelectFiles = 57601,
    Print = 57607,
    PrintDirect = 57608,
    PrintPreview = 57609,
    RecentFile = 57616,  ///< the first of four, made by the menu of recent files
    Copy = 57634,
    Cut = 57635,
    Paste = 57637,
    About = 57664,
    Exit = 57665,
    Toolbar = 59392,
    StatusBar = 59393,
};

/// One command as menus, toolbar, and status bar show it.
struct CCommand {
    CCommandId id;
    const char* name;        ///< object name of its action; frozen, kept in the settings
    const char* text;        ///< menu text with its mnemonic
    const char* shortcut;    ///< in portable form; may be empty
    const char* statusText;  ///< what it does, for the status bar; may be empty
    const char* icon;        ///< name of its icon; empty without one
};

/// Every command of the program except the recent files, which change.
std::span<const CCommand> Commands();

/// What the commands' availability depends on.
struct CCommandState {
    bool isBusy = false;        ///< the wait cursor is shown: a run is in progress, or a page is being built
    bool isTableShown = false;  ///< the summary page with its table
    bool isChartShown = false;  ///< a chart page with its chart
    CRunState run = CRunState::None;
};

/// Whether the user may choose a command now; never while busy.
bool IsCommandEnabled(CCommandId id, const CCommandState& state);
