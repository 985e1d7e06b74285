#pragma once

#include <string>
#include <utility>
#include <vector>

namespace ks {

/// What a file picker is to choose.
enum class CPickerKind { OpenOne, OpenSeveral, Save };

/// One entry of a file picker's filter list.
struct CFileFilter {
    std::string text;     ///< as shown, letter for letter: "HTML Files (*.html)"
    std::string pattern;  ///< "*.html"; "*.*" is every file
};

/// What a file picker is asked to do, by the document, a dialog or the file viewer. Texts and paths are UTF-8.
struct CFileRequest {
    CPickerKind kind = CPickerKind::OpenOne;
    std::string title;
    std::vector<CFileFilter> filters;  ///< may be empty: every file
    int filterIndex = 1;               ///< filter at the start, 1-based; the first when out of range
    std::string folder;                ///< where to start; the home folder when it does not exist
    std::string suggestedName;         ///< of the file to save, without a folder; may be empty
    std::string defaultExtension;      ///< "txt": added to a saved name that has none; none when empty
    bool mustExist = false;            ///< without effect when saving
    bool shouldHideReadOnly = true;    ///< kept for dialogs with a read-only box; the toolkit's have none
    bool shouldAskBeforeOverwriting = false;
};

/// A save picker that asks before it takes the name of an existing file.
inline CFileRequest SaveRequest(std::string title, std::string folder = {}, std::vector<CFileFilter> filters = {}) {
    CFileRequest request;
    request.kind = CPickerKind::Save;
    request.title = std::move(title);
    request.filters = std::move(filters);
    request.folder = std::move(folder);
    request.shouldAskBeforeOverwriting = true;
    return request;
}

}  // namespace ks
