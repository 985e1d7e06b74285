#pragma once

#include "compare/critical_values.h"
#include "compare/document_host.h"
#include "compare/run_state.h"
#include "compare/setting_keys.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// A host that gives prepared answers and records the requests.
class CRecordingHost : public CDocumentHost {
public:
    // Answers. A value that is not set cancels.
    std::optional<CFileSelection> selection;
    std::optional<double> corridorSize;
    std::optional<CCriticalValues> criticalValues;
    std::vector<std::optional<std::string>> savePaths;  ///< one per request, in order; none left: canceled
    std::map<std::string, std::string> settings;
    std::function<void()> whileErrorsAreShown = [] {};
    std::function<void()> whileAtWork = [] {};  ///< at every report of progress

    // What happened.
    std::vector<std::string> calls;  ///< in order: "select", "busy on", "busy off", "beep", "errors", "hint 1", "hint
                                     ///< 2", "save TITLE", "read KEY", "store KEY=VALUE", "corridor", "critical"
    std::vector<std::string> progress;  ///< "DONE/TOTAL PATH" of every report
    std::optional<CFileSelection> offered;
    std::vector<std::vector<std::string>> errorLists;  ///< the sentences of each list
    std::vector<CRunMessage> lastErrors;               ///< the last list
    std::vector<ks::CFileRequest> saveRequests;
    double offeredCorridorSize = 0.0;
    CCriticalValues offeredCriticalValues;

    std::optional<CFileSelection> SelectFiles(const CFileSelection& offered) override;
    void ShowErrorList(const std::vector<CRunMessage>& messages) override;
    std::optional<double> EditCorridorSize(double size) override;
    std::optional<CCriticalValues> EditCriticalValues(const CCriticalValues& values) override;
    std::optional<std::string> AskSavePath(const ks::CFileRequest& request) override;
    std::string ReadSetting(const CTextSetting& key) override;
    void StoreSetting(const CTextSetting& key, const std::string& value) override;
    void Beep() override;
    void SetBusy(bool isBusy) override;
    void Progress(std::size_t done, std::size_t total, const std::string& path) override;
};

/// An observer that writes "hint N" into a host's calls, and may do more.
class CRecordingObserver : public CDocumentObserver {
public:
    explicit CRecordingObserver(CRecordingHost& host) : m_host(host) {}

    std::function<void(int hint)> alsoDo = [](int) {};

    std::vector<CRunState> runs;  ///< in the order of the calls

    void OnDocumentUpdate(int hint) override;
    void OnRunStateChanged(CRunState run) override { runs.push_back(run); }

private:
    CRecordingHost& m_host;
};
