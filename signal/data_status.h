#pragma once

#include <string>
#include <string_view>

namespace ks {

/// The canonical long form of a data status: the text in upper case (ASCII letters only, never by the locale), and
/// for a two-letter code of the format its word, "AS MEASURED" for "am". Unknown words stay as they are, an empty
/// text stays empty. The spellings "ALIGEND" and "NOT KNOW" are those of existing files.
std::string CanonicalDataStatus(std::string_view text);

}  // namespace ks
