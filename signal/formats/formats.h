#pragma once

#include "signal/formats/signal_format.h"

#include <array>

namespace ks {

// The formats, each in a source of its own in signal/formats/.
extern const CSignalFormat kUdsFormat;     ///< uds_format.cpp
extern const CSignalFormat kPointsFormat;  ///< points_format.cpp

/// Every format, in the order in which they are tried. The first one that can read a file decides.
inline constexpr std::array kSignalFormats{&kUdsFormat, &kPointsFormat};

}  // namespace ks
