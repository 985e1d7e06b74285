#pragma once

#include <string>
#include <string_view>

namespace ks {

/// `text` (UTF-8) with a blank in place of every tab, carriage return and line feed.
///
/// For places where those characters separate one text from the next: the cells of a copied table, the names of a
/// chart's curves, the entries of a menu. A file name may hold them. Files keep texts as they are and escape them
/// where their format asks for it.
std::string OneLine(std::string_view text);

}  // namespace ks
