#pragma once

#include "cli/commands/compare_options.h"
#include "cli/output/console.h"
#include "compare/critical_values.h"
#include "compare/document_host.h"
#include "compare/setting_keys.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The document's host on the command line: the options answer its questions, and its messages go to standard error.
class CCliHost : public CDocumentHost {
public:
    /// `files` are the computed files in order. Both references must outlive the host.
    CCliHost(const CCompareOptions& options, std::vector<std::string> files, CConsole& console);

    std::optional<CFileSelection> SelectFiles(const CFileSelection& offered) override;
    void ShowErrorList(const std::vector<CRunMessage>& messages) override;
    std::optional<double> EditCorridorSize(double size) override;
    std::optional<CCriticalValues> EditCriticalValues(const CCriticalValues& values) override;
    /// Never called: options name the outputs.
    std::optional<std::string> AskSavePath(const ks::CFileRequest& request) override;
    /// Settings belong to the desktop program.
    std::string ReadSetting(const CTextSetting& key) override;
    void StoreSetting(const CTextSetting& key, const std::string& value) override;
    void Beep() override {}
    void SetBusy(bool isBusy) override;
    void Progress(std::size_t done, std::size_t total, const std::string& path) override;

    /// Shows sentences as the messages of a run.
    void ShowSentences(const std::vector<std::string>& sentences);

    /// Prints one line on standard error, only with --verbose.
    void TellMore(std::string_view text);
    /// From now on, shows `source` and a colon before each message; an empty text turns this off.
    void NameSource(std::string source);
    /// The messages shown since the last call.
    std::vector<std::string> TakeShownMessages();

private:
    const CCompareOptions& m_options;
    std::vector<std::string> m_files;
    CConsole& m_console;
    std::vector<std::string> m_shown;
    std::string m_source;
};
