#include "app/specification_picker.h"

#include "app/dialogs/data_type_filters.h"
#include "app/dialogs/file_picker.h"
#include "app/settings.h"
#include "app/window_services.h"
#include "compare/setting_keys.h"
#include "files/file_request.h"

#include <QCoreApplication>

#include <optional>

std::optional<QString> PickSpecificationFile(const CWindowServices& services, QWidget* parent) {
    ks::CFileRequest request;
    request.title = QCoreApplication::translate("CMainFrame", "Select Uds File to View").toStdString();
    request.filters = DataTypeFilters();
    request.filterIndex = services.settings.Get(setting::kDataType);
    request.folder = services.settings.Get(setting::kInputDir).toStdString();
    request.mustExist = true;
    const std::optional<CPickedFiles> picked = services.picker.Pick(parent, request);
    if (!picked) return std::nullopt;
    return picked->paths.front();
}
