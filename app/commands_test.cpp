#include "app/commands.h"

#include "compare/run_state.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace {

struct Row {
    int id;
    std::string name, text, shortcut, statusText;
};

// Numbers, names, and texts are stored on users' machines, shown to users, and quoted in their notes.
const std::vector<Row> kRows = {
    {57601, "SelectFiles", "Select &Files...", "Ctrl+O", "Select the Files for processing"},
    {32774, "SaveBmp", "&Bmp", "", "Save the current plot as a bmp file"},
    {32775, "SaveWmf", "&Wmf", "", "Save the current plot as a windows metafile"},
    {32776, "SaveHtml", "&HTML", "", "Save the current plot as a HTML file"},
    {32771, "SaveUds", "UDS", "", "Save every curve of the current page as a UDS file"},
    {32772, "SaveAscii", "ASCII", "", "Save the curves of the current page as one ASCII table"},
    {57607, "Print", "&Print...", "Ctrl+P", "Print the current plot"},
    {57608, "PrintDirect", "Print Directly", "", "Print the current plot on the default printer without asking"},
    {57609, "PrintPreview", "Print Preview", "", "Not available"},
    {32781, "UdsSpecification", "UDS Speification", "", "View UDS file specification"},
    {57665, "Exit", "Exit", "Ctrl+Q", "Close the program"},
    {57635, "Cut", "Cu&t", "Ctrl+X", ""},
    {57634, "Copy", "&Copy", "Ctrl+C", "Copy the current plot to the clipboard"},
    {57637, "Paste", "&Paste", "Ctrl+V", ""},
    {32777, "CopyData", "Copy &Data", "", "Copy the plotted data to the clipboard"},
    {32779, "CorridorSize", "Corridor &Size", "", "Set size for Corridor Plot"},
    {32778, "CriticalValues", "Critical &Values", "", "Edit the critical values for Pass / Fail Criteria"},
    {59392, "Toolbar", "Toolbar", "", "Show or hide the toolbar"},
    {59393, "StatusBar", "Status Bar", "", "Show or hide the status bar"},
    {32790, "Customize", "Customize...", "", "Choose the buttons of the toolbar"},
    {57664, "About", "&About Quorvel...", "", "Show the program's version and purpose"},
};

TEST(Commands, AreTheseWithTheirNumbersAndTexts) {
    ASSERT_EQ(Commands().size(), kRows.size());
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        const CCommand& command = Commands()[i];
        EXPECT_EQ(static_cast<int>(command.id), kRows[i].id) << kRows[i].name;
        EXPECT_EQ(command.name, kRows[i].name);
        EXPECT_EQ(command.text, kRows[i].text);
        EXPECT_EQ(command.shortcut, kRows[i].shortcut) << kRows[i].name;
        EXPECT_EQ(command.statusText, kRows[i].statusText) << kRows[i].name;
    }
}

TEST(Commands, HaveNumbersNamesAndShortcutsOfTheirOwn) {
    std::set<int> ids;
    std::set<std::string> names, shortcuts;
    for (const CCommand& command : Commands()) {
        EXPECT_TRUE(ids.insert(static_cast<int>(command.id)).second) << command.name;
        EXPECT_TRUE(names.insert(command.name).second) << command.name;
        if (*command.shortcut == '\0') continue;
        EXPECT_TRUE(shortcuts.insert(command.shortcut).second) << command.name;
    }
}

std::set<std::string> Enabled(const CCommandState& state) {
    std::set<std::string> names;
    for (const CCommand& command : Commands()) {
        if (IsCommandEnabled(command.id, state)) names.insert(command.name);
    }
    return names;
}

const std::set<std::string> kAlways = {"SelectFiles",    "UdsSpecification", "Exit",      "Copy",      "CorridorSize",
                                       "CriticalValues", "Toolbar",          "StatusBar", "Customize", "About"};

std::set<std::string> AlwaysAnd(std::set<std::string> more) {
    more.insert(kAlways.begin(), kAlways.end());
    return more;
}

CCommandState State(bool isTableShown, bool isChartShown, CRunState run) {
    CCommandState state;
    state.isTableShown = isTableShown;
    state.isChartShown = isChartShown;
    state.run = run;
    return state;
}

TEST(Commands, NothingToSaveOrPrintBeforeTheFirstRun) {
    EXPECT_EQ(Enabled(State(false, false, CRunState::None)), kAlways);
}

TEST(Commands, TheSummaryCanBeCopiedAndReportedButNotPrinted) {
    EXPECT_EQ(Enabled(State(true, false, CRunState::Completed)),
              AlwaysAnd({"CopyData", "SaveHtml", "SaveUds", "SaveAscii"}));
}

TEST(Commands, AChartCanBeSavedAndPrintedButHasNoTableToCopy) {
    EXPECT_EQ(Enabled(State(false, true, CRunState::Completed)),
              AlwaysAnd({"SaveBmp", "SaveWmf", "Print", "PrintDirect", "SaveUds", "SaveAscii"}));
}

TEST(Commands, APageWithoutCurvesHasNeitherTableNorChart) {
    EXPECT_EQ(Enabled(State(false, false, CRunState::Completed)), AlwaysAnd({"SaveUds", "SaveAscii"}));
}

TEST(Commands, OfThePreviousRunOnlyTheTableCanBeCopied) {
    EXPECT_EQ(Enabled(State(true, false, CRunState::Stopped)), AlwaysAnd({"CopyData"}));
    EXPECT_EQ(Enabled(State(false, false, CRunState::Stopped)), kAlways);
}

TEST(Commands, NothingCanBeChosenWhileARunIsAtWork) {
    for (const bool isTableShown : {false, true}) {
        EXPECT_THAT(Enabled(State(isTableShown, false, CRunState::AtWork)), testing::IsEmpty());
    }
}

TEST(Commands, NothingCanBeChosenWhileBusy) {
    for (const bool isTableShown : {false, true}) {
        for (const bool isChartShown : {false, true}) {
            for (const CRunState run : {CRunState::None, CRunState::AtWork, CRunState::Completed, CRunState::Stopped}) {
                CCommandState state = State(isTableShown, isChartShown, run);
                state.isBusy = true;
                EXPECT_THAT(Enabled(state), testing::IsEmpty());
            }
        }
    }
}

}  // namespace
