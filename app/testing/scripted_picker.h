#pragma once

#include "app/dialogs/file_picker.h"

#include <deque>
#include <optional>
#include <utility>
#include <vector>

/// Gives the prepared answers, one per call, and records the requests; cancels when no answer is left.
class CScriptedPicker : public CFilePicker {
public:
    std::deque<std::optional<CPickedFiles>> answers;
    std::vector<ks::CFileRequest> requests;

    std::optional<CPickedFiles> Pick(QWidget*, const ks::CFileRequest& request) override {
        requests.push_back(request);
        if (answers.empty()) return std::nullopt;
        m_answer = std::move(answers.front());
        answers.pop_front();
        return m_answer;
    }

private:
    std::optional<CPickedFiles> m_answer;  ///< a member: g++ 12 reports a local one as uninitialized
};
