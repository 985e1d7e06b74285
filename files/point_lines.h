#pragma once

#include "files/points.h"

#include <cstddef>
#include <string_view>

namespace ks {

/// Takes ordinary lines, quickly, from the start of a text: at most one blank; `numbers` numbers, between two of them a
/// blank or a tab, or a comma with at most one of these on either side; and a line end. The grammar
/// (files/point_grammar.h) takes such a line to the same point, whatever follows; it decides about all other lines.
///
/// Stops at the first line that is not ordinary, does not end in the text, or begins at or beyond `certain`.
/// @param numbers  1, 2 or 3
/// @return how many characters the lines took; their points are appended
std::size_t TakeOrdinaryLines(std::string_view text, std::size_t certain, int numbers, CPointColumns& points);

}  // namespace ks
