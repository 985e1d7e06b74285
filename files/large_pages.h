#pragma once

#include <cstddef>
#include <vector>

namespace ks {

/// Reserves room for `count` values, as the vector itself does, and asks the system to give it in large pages: for a
/// long signal, memory in small pages costs more time than reading the file. Where the system has no such pages, this
/// is only `reserve`.
void ReserveInLargePages(std::vector<double>& values, std::size_t count);

}  // namespace ks
