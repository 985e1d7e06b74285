#pragma once

#include "app/window_services.h"

#include <QString>

#include <optional>

class QWidget;

/// Asks above `parent` for a file to view. Starts in the folder of the computed files and stores nothing: viewing a
/// file changes no setting. No value when the user canceled.
[[nodiscard]] std::optional<QString> PickSpecificationFile(const CWindowServices& services, QWidget* parent);
