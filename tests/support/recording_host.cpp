#include "tests/support/recording_host.h"

#include "compare/critical_values.h"
#include "compare/document_host.h"
#include "compare/setting_keys.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

std::optional<CFileSelection> CRecordingHost::SelectFiles(const CFileSelection& choice) {
    calls.emplace_back("select");
    offered = choice;
    return selection;
}

void CRecordingHost::ShowErrorList(const std::vector<CRunMessage>& messages) {
    calls.emplace_back("errors");
    lastErrors = messages;
    errorLists.emplace_back();
    for (const CRunMessage& message : messages) errorLists.back().push_back(message.text);
    whileErrorsAreShown();
}

std::optional<double> CRecordingHost::EditCorridorSize(double size) {
    calls.emplace_back("corridor");
    offeredCorridorSize = size;
    return corridorSize;
}

std::optional<CCriticalValues> CRecordingHost::EditCriticalValues(const CCriticalValues& values) {
    calls.emplace_back("critical");
    offeredCriticalValues = values;
    return criticalValues;
}

std::optional<std::string> CRecordingHost::AskSavePath(const ks::CFileRequest& request) {
    calls.push_back("save " + request.title);
    saveRequests.push_back(request);
    if (saveRequests.size() > savePaths.size()) return std::nullopt;
    return savePaths[saveRequests.size() - 1];
}

std::string CRecordingHost::ReadSetting(const CTextSetting& key) {
    calls.push_back(std::string("read ") + key.name);
    const auto stored = settings.find(key.name);
    return stored == settings.end() ? key.fallback : stored->second;
}

void CRecordingHost::StoreSetting(const CTextSetting& key, const std::string& value) {
    calls.push_back(std::string("store ") + key.name + "=" + value);
    settings[key.name] = value;
}

void CRecordingHost::Beep() {
    calls.emplace_back("beep");
}

void CRecordingHost::SetBusy(bool isBusy) {
    calls.emplace_back(isBusy ? "busy on" : "busy off");
}

void CRecordingHost::Progress(std::size_t done, std::size_t total, const std::string& path) {
    progress.push_back(std::to_string(done) + "/" + std::to_string(total) + " " + path);
    whileAtWork();
}

void CRecordingObserver::OnDocumentUpdate(int hint) {
    m_host.calls.push_back("hint " + std::to_string(hint));
    alsoDo(hint);
}
