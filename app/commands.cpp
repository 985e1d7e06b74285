#include "app/commands.h"

#include "compare/run_state.h"

#include <array>
#include <span>

namespace {

constexpr std::array kCommands = {
    CCommand{CCommandId::SelectFiles, "SelectFiles", "Select &Files...", "Ctrl+O", "Select the Files for processing",
             "select-files"},
    CCommand{CCommandId::SaveBmp, "SaveBmp", "&Bmp", "", "Save the current plot as a bmp file", "save-bmp"},
    CCommand{CCommandId::SaveWmf, "SaveWmf", "&Wmf", "", "Save the current plot as a windows metafile", "save-wmf"},
    CCommand{CCommandId::SaveHtml, "SaveHtml", "&HTML", "", "Save the current plot as a HTML file", "save-html"},
    CCommand{CCommandId::SaveUds, "SaveUds", "UDS", "", "Save every curve of the current page as a UDS file",
             "save-uds"},
    CCommand{CCommandId::SaveAscii, "SaveAscii", "ASCII", "", "Save the curves of the current page as one ASCII table",
             "save-ascii"},
    CCommand{CCommandId::Print, "Print", "&Print...", "Ctrl+P", "Print the current plot", "print"},
    CCommand{CCommandId::PrintDirect, "PrintDirect", "Print Directly", "",
             "Print the current plot on the default printer without asking", "print-direct"},
    // Kept although it is never enabled: the chart pages have no preview, but guides name the entry.
    CCommand{CCommandId::PrintPreview, "PrintPreview", "Print Preview", "", "Not available", ""},
    // Kept: users, guides, and scripts know the entry by this spelling.
    CCommand{CCommandId::UdsSpecification, "UdsSpecification", "UDS Speification", "", "View UDS file specification",
             "uds-specification"},
    CCommand{CCommandId::Exit, "Exit", "Exit", "Ctrl+Q", "Close the program", ""},
    CCommand{CCommandId::Cut, "Cut", "Cu&t", "Ctrl+X", "", ""},
    CCommand{CCommandId::Copy, "Copy", "&Copy", "Ctrl+C", "Copy the current plot to the clipboard", "copy"},
    CCommand{CCommandId::Paste, "Paste", "&Paste", "Ctrl+V", "", ""},
    CCommand{CCommandId::CopyData, "CopyData", "Copy &Data", "", "Copy the plotted data to the clipboard", "copy-data"},
    CCommand{CCommandId::CorridorSize, "CorridorSize", "Corridor &Size", "", "Set size for Corridor Plot",
             "corridor-size"},
    CCommand{CCommandId::CriticalValues, "CriticalValues", "Critical &Values", "",
             "Edit the critical values for Pass / Fail Criteria", "critical-values"},
    CCommand{CCommandId::Toolbar, "Toolbar", "Toolbar", "", "Show or hide the toolbar", ""},
    CCommand{CCommandId::StatusBar, "StatusBar", "Status Bar", "", "Show or hide the status bar", ""},
    CCommand{CCommandId::Customize, "Customize", "Customize...", "", "Choose the buttons of the toolbar", ""},
    CCommand{CCommandId::About, "About", "&About Quorvel...", "", "Show the program's version and purpose", "about"},
};

}  // namespace

std::span<const CCommand> Commands() {
    return kCommands;
}

bool IsCommandEnabled(CCommandId id, const CCommandState& state) {
    if (state.isBusy || state.run == CRunState::AtWork) return false;
    switch (id) {
        case CCommandId::SaveBmp:
        case CCommandId::SaveWmf:
        case CCommandId::Print:
        case CCommandId::PrintDirect:
            return state.isChartShown;
        case CCommandId::SaveHtml:
            return state.isTableShown && state.run == CRunState::Completed;
        case CCommandId::CopyData:
            return state.isTableShown;
        case CCommandId::SaveUds:
        case CCommandId::SaveAscii:
            return state.run == CRunState::Completed;
        case CCommandId::PrintPreview:
        case CCommandId::Cut:
        case CCommandId::Paste:
            return false;
        default:
            return true;
    }
}
