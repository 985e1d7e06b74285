#pragma once

#include "app/window_services.h"

#include <QString>
#include <optional>

class QWidget;

/// Asks above `parent` for a file to look into. Starts in the folder of the computed files and stores nothing: looking
/// into a file changes no setting. No value: cancelled.
[[nodiscard]] std::optional<QString> PickSpecificationFile(const CWindowServices& services, QWidget* parent);
