#include "app/loaded_files.h"

#include "compare/document.h"
#include "files/same_file.h"

#include <algorithm>
#include <string>

QStringList LoadedFiles(const CQuorvelDoc& document) {
    QStringList paths;
    if (document.ComputedSignals().empty()) return paths;
    paths.append(QString::fromStdString(document.Reference().GetPath()));
    for (const CSignal& signal : document.ComputedSignals()) paths.append(QString::fromStdString(signal.GetPath()));
    paths.removeAll(QString());
    paths.removeDuplicates();  // a reference made from the signals has the path of the first
    return paths;
}

bool WouldReplaceLoadedFile(const CQuorvelDoc& document, const std::string& path) {
    return ks::WouldReplace(path, document.Reference().GetPath()) ||
           std::ranges::any_of(document.ComputedSignals(),
                               [&](const CSignal& signal) { return ks::WouldReplace(path, signal.GetPath()); });
}
