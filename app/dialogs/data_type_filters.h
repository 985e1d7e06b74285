#pragma once

#include "files/file_request.h"

#include <QString>

#include <vector>

class CSettings;

/// The filters of the signal-file pickers; the setting "DataType" is a 1-based index into them.
const std::vector<ks::CFileFilter>& DataTypeFilters();

/// The wildcard of the data type in the settings; that of the first type, with which the pickers start, too, when
/// the settings hold none of the six.
QString CurrentDataTypeWildcard(const CSettings& settings);

/// The text of that data type, as the pickers show it.
QString CurrentDataTypeText(const CSettings& settings);

/// The filter that every save picker ends with.
ks::CFileFilter AllFilesFilter();

/// The filter of the hit-list pickers.
const std::vector<ks::CFileFilter>& HitListFilters();
