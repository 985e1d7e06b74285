#pragma once

#include <QIcon>
#include <QString>

/// The program's icon, which scales to any size.
QIcon ApplicationIcon();

/// The icon of a command, for light and dark themes alike. `name` is one of select-files, save-bmp, save-wmf,
/// save-html, save-uds, save-ascii, copy, copy-data, print, print-direct, uds-specification, corridor-size,
/// critical-values, about; for any other the icon is null.
QIcon CommandIcon(const QString& name);
