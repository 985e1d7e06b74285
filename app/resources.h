#pragma once

#include <QIcon>

/// The program's icon, drawn at whatever size is asked for.
QIcon ApplicationIcon();
