#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The file names of the chart pages. Frozen: scripts read them.

/// The ASCII table of a page: FOLDER/page-ID.txt.
std::string AsciiPagePath(const std::string& folder, std::int32_t pageId);

/// A series of a page, `number` from 1: FOLDER/page-ID-N.uds.
std::string UdsPagePath(const std::string& folder, std::int32_t pageId, std::size_t number);

/// Whether `name`, without a folder, is one that UdsPagePath returns for some page and number.
bool IsUdsPageName(std::string_view name);

/// The files in `folder` with such a name, sorted; links count as files, folders do not. Empty without such a folder.
std::vector<std::string> UdsPagesIn(const std::string& folder);
