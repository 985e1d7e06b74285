#pragma once

#include "files/number_format.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace ks {

/// Decodes single-precision reals of a file into doubles; what is not a number becomes 0. Converts as ConvertReal
/// does, many values at a time where the compiler has vector instructions.
///
/// @param block    4 bytes for each of `values`
/// @param from     how the file stores them
/// @param machine  how this machine stores reals, as ProbeMachineFormats finds it
/// @return         how many were not a number
std::uint64_t DecodeReals(std::span<const std::byte> block, CNumberFormat from, CNumberFormat machine,
                          std::span<double> values);

/// The same value by value: for pairs of formats without a quicker way, and for tests to compare with.
std::uint64_t DecodeRealsPlainly(std::span<const std::byte> block, CNumberFormat from, CNumberFormat machine,
                                 std::span<double> values);

}  // namespace ks
