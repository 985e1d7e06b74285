#pragma once

#include <QStringList>

#include <string>

class CQuorvelDoc;

/// The paths of the reference and of the computed signals, in this order, without duplicates; empty before the first
/// run.
[[nodiscard]] QStringList LoadedFiles(const CQuorvelDoc& document);

/// Whether writing to `path` (UTF-8) would replace one of those files, even under another name.
[[nodiscard]] bool WouldReplaceLoadedFile(const CQuorvelDoc& document, const std::string& path);
