#include "app/dialogs/data_type_filters.h"

#include "app/dialogs/file_picker.h"
#include "app/settings.h"
#include "compare/setting_keys.h"

#include <cstddef>
#include <vector>

namespace {

const ks::CFileFilter& CurrentDataType(const CSettings& settings) {
    const int stored = settings.Get(setting::kDataType);
    const bool isListed = stored >= 1 && stored <= static_cast<int>(DataTypeFilters().size());
    const int type = isListed ? stored : 1;  // as the pickers do
    return DataTypeFilters()[static_cast<std::size_t>(type - 1)];
}

}  // namespace

const std::vector<ks::CFileFilter>& DataTypeFilters() {
    static const std::vector<ks::CFileFilter> kFilters = {
        {"UDS Acceleration Data (*aa0.*)", "*aa0.*"}, {"UDS Displacement Data (*da0.*)", "*da0.*"},
        {"UDS Force Data (*fa0.*)", "*fa0.*"},        {"UDS Moment Data (*ta0.*)", "*ta0.*"},
        {"Processed UDS Data (*.uds)", "*.uds"},      AllFilesFilter()};
    return kFilters;
}

QString CurrentDataTypeWildcard(const CSettings& settings) {
    return Wildcard(CurrentDataType(settings).pattern);
}

QString CurrentDataTypeText(const CSettings& settings) {
    return QString::fromStdString(CurrentDataType(settings).text);
}

ks::CFileFilter AllFilesFilter() {
    return {"All Files (*.*)", "*.*"};
}

const std::vector<ks::CFileFilter>& HitListFilters() {
    static const std::vector<ks::CFileFilter> kFilters = {{"Hit list files (*.hit)", "*.hit"}};
    return kFilters;
}
