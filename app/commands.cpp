#include "app/commands.h"

#include <array>

namespace {

constexpr std::array kCommands = {
    CCommand{CommandId::SelectFiles, "SelectFiles", "Select &Files...", "Ctrl+O", "Select the Files for processing",
             "select-files"},
    CCommand{CommandId::SaveBmp, "SaveBmp", "&Bmp", "", "Save the current plot as a bmp file", "save-bmp"},
    CCommand{CommandId::SaveWmf, "SaveWmf", "&Wmf", "", "Save the current plot as a windows metafile", "save-wmf"},
    CCommand{CommandId::SaveHtml, "SaveHtml", "&HTML", "", "Save the current plot as a HTML file", "save-html"},
    CCommand{CommandId::SaveUds, "SaveUds", "UDS", "", "Save every curve of the current page as a UDS file",
             "save-uds"},
    CCommand{CommandId::SaveAscii, "SaveAscii", "ASCII", "", "Save the curves of the current page as one ASCII table",
             "save-ascii"},
    CCommand{CommandId::Print, "Print", "&Print...", "Ctrl+P", "Print the current plot", "print"},
    CCommand{CommandId::PrintDirect, "PrintDirect", "Print Directly", "",
             "Print the current plot on the default printer without a question", "print-direct"},
    // Kept although it is never on: the chart pages have no preview, but guides name the entry.
    CCommand{CommandId::PrintPreview, "PrintPreview", "Print Preview", "", "Not available", ""},
    // Kept: users, guides and scripts know the entry by this spelling.
    CCommand{CommandId::UdsSpecification, "UdsSpecification", "UDS Speification", "", "View UDS file specification",
             "uds-specification"},
    CCommand{CommandId::Exit, "Exit", "Exit", "Ctrl+Q", "Close the program", ""},
    CCommand{CommandId::Cut, "Cut", "Cu&t", "Ctrl+X", "", ""},
    CCommand{CommandId::Copy, "Copy", "&Copy", "Ctrl+C", "Copy the current plot to the clipboard", "copy"},
    CCommand{CommandId::Paste, "Paste", "&Paste", "Ctrl+V", "", ""},
    CCommand{CommandId::CopyData, "CopyData", "Copy &Data", "", "Copy the plotted data to the clipboard", "copy-data"},
    CCommand{CommandId::CorridorSize, "CorridorSize", "Corridor &Size", "", "Set size for Corridor Plot",
             "corridor-size"},
    CCommand{CommandId::CriticalValues, "CriticalValues", "Critical &Values", "",
             "Edit the critical values for Pass / Fail Criteria", "critical-values"},
    CCommand{CommandId::Toolbar, "Toolbar", "Toolbar", "", "Show or hide the toolbar", ""},
    CCommand{CommandId::StatusBar, "StatusBar", "Status Bar", "", "Show or hide the status bar", ""},
    CCommand{CommandId::Customize, "Customize", "Customize...", "", "Choose the buttons of the toolbar", ""},
    CCommand{CommandId::About, "About", "&About Quorvel...", "", "Show version and purpose of the program", "about"},
};

}  // namespace

std::span<const CCommand> Commands() {
    return kCommands;
}

bool IsCommandEnabled(CommandId id, const CCommandState& state) {
    if (state.isBusy || state.run == RunState::AtWork) return false;
    switch (id) {
        case CommandId::SaveBmp:
        case CommandId::SaveWmf:
        case CommandId::Print:
        case CommandId::PrintDirect:
            return state.isChartShown;
        case CommandId::SaveHtml:
            return state.isTableShown && state.run == RunState::Completed;
        case CommandId::CopyData:
            return state.isTableShown;
        case CommandId::SaveUds:
        case CommandId::SaveAscii:
            return state.run == RunState::Completed;
        case CommandId::PrintPreview:
        case CommandId::Cut:
        case CommandId::Paste:
            return false;
        default:
            return true;
    }
}
