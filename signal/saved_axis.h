#pragma once

#include "signal/data.h"

#include <cstddef>
#include <optional>

namespace ks {

/// A point whose X value a UDS file does not hold and its readers make up.
struct CLostAbscissa {
    std::size_t index = 0;
    double x = 0.0;      ///< in the record
    double xRead = 0.0;  ///< as a reader gets it from the point number and the time step
};

/// The first point that a file saved from `record` would give another X, by more than half a time step. A file of the
/// arrangement "Y" holds no X; a cut that began before the first sample numbers the points from where it began.
/// @return nothing where every X is kept, and for the other arrangements
std::optional<CLostAbscissa> FirstLostAbscissa(const CData& record);

}  // namespace ks
