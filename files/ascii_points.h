#pragma once

#include "files/byte_source.h"
#include "files/points.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace ks {

/// Reads a plain-text signal: one point per line, one, two or three numbers each. See docs/formats/ascii-points.md.
///
/// One number y gives (0, y, 0), two give (x, y, 0), three give (x, y, z). The lines with one number come first, then
/// those with two, then those with three; any of the three runs may be missing. Numbers are correctly rounded and
/// never depend on the locale.
class CPoints {
public:
    /// Reads the file at `path` (UTF-8), cut at the first place that ends the data: an empty line, a line that begins
    /// with a tab, a tab before a line end or a blank, two blanks in a row.
    /// A text that does not begin like points is refused at once, whatever its length. Of the text, only one piece or
    /// one point is in memory at a time.
    /// @throws CError if the file cannot be opened or read completely, is larger than 1 GiB, or does not parse; the
    ///         points before the failure are kept
    void ReadFile(const std::string& path);

    /// The same from a source that has not been read from yet, `bytesAtATime` > 0 bytes at a time; `path` is for the
    /// sentences.
    void ReadFrom(CByteSource& source, const std::string& path, std::size_t bytesAtATime);

    /// Parses the text as it is, without the cut; kept for programs that link the library.
    /// @throws CError "Failure to parse the data."; the points before the failure are kept
    void ParseData(std::string_view text);

    [[nodiscard]] const CPointColumns& Columns() const { return m_columns; }
    CPointColumns TakeColumns();

    /// The points as a list of shared points, made at each call; kept for programs that link the library.
    [[nodiscard]] CPointList Points() const { return MakePointList(m_columns); }

private:
    CPointColumns m_columns;
};

}  // namespace ks
