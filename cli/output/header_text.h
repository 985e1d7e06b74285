#pragma once

#include "signal/data.h"

#include <string>

/// The header of a signal for a terminal: the path, then each group's title with its labeled values below, indented.
/// Every line ends with LF.
std::string HeaderReport(const std::string& path, const ks::CData& record);
