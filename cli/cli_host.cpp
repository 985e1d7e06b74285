#include "cli/cli_host.h"

#include "cli/commands/compare_options.h"
#include "cli/join.h"
#include "cli/messages.h"
#include "cli/output/console.h"
#include "compare/critical_values.h"
#include "compare/document_host.h"
#include "compare/setting_keys.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

CCliHost::CCliHost(const CCompareOptions& options, std::vector<std::string> files, CConsole& console)
    : m_options(options), m_files(std::move(files)), m_console(console) {}

std::optional<CFileSelection> CCliHost::SelectFiles(const CFileSelection& offered) {
    CFileSelection selection = offered;
    selection.files = m_files;
    selection.referencePath = m_options.reference.value_or("");
    selection.isReferenceAverage = !m_options.reference.has_value();
    selection.shouldFilter = m_options.cfc.has_value();
    selection.shouldFilterReference = m_options.FiltersReference();
    selection.channelClass = m_options.cfc.value_or(offered.channelClass);
    selection.shouldTruncate = m_options.window.has_value();
    if (m_options.window) {
        selection.windowStart = m_options.window->min;
        selection.windowEnd = m_options.window->max;
    }
    return selection;
}

// Without the paths: separate sentences after the run name the files that could not be read.
void CCliHost::ShowErrorList(const std::vector<CRunMessage>& messages) {
    std::vector<std::string> sentences;
    sentences.reserve(messages.size());
    for (const CRunMessage& message : messages) sentences.push_back(message.text);
    ShowSentences(sentences);
}

void CCliHost::ShowSentences(const std::vector<std::string>& sentences) {
    std::vector<std::string> shown = sentences;
    if (!m_source.empty()) {
        for (std::string& text : shown) text = cli_message::About(m_source, text);
    }
    m_console.ComplainAll(shown);
    m_shown.insert(m_shown.end(), sentences.begin(), sentences.end());
}

std::optional<double> CCliHost::EditCorridorSize(double /*size*/) {
    return m_options.corridor;
}

std::optional<CCriticalValues> CCliHost::EditCriticalValues(const CCriticalValues& /*values*/) {
    return m_options.critical;
}

std::optional<std::string> CCliHost::AskSavePath(const ks::CFileRequest& /*request*/) {
    return std::nullopt;
}

std::string CCliHost::ReadSetting(const CTextSetting& key) {
    return key.fallback;
}

void CCliHost::StoreSetting(const CTextSetting& /*key*/, const std::string& /*value*/) {}

void CCliHost::SetBusy(bool isBusy) {
    if (!isBusy) {
        m_console.EraseProgress();
    }
}

void CCliHost::Progress(std::size_t done, std::size_t total, const std::string& path) {
    if (m_options.verbosity == CVerbosity::Quiet) {
        return;
    }
    if (path.empty()) {
        m_console.EraseProgress();
        return;
    }
    m_console.ShowProgress(Join({"[", std::to_string(done), "/", std::to_string(total), "] ", path}));
}

void CCliHost::TellMore(std::string_view text) {
    if (m_options.verbosity == CVerbosity::Verbose) {
        m_console.PrintLine(text);
    }
}

void CCliHost::NameSource(std::string source) {
    m_source = std::move(source);
}

std::vector<std::string> CCliHost::TakeShownMessages() {
    return std::exchange(m_shown, {});
}
