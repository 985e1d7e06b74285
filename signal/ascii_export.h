#pragma once

#include "files/replacing_file.h"
#include "signal/data.h"

#include <string>

namespace ks {

/// What each line of an exported point file holds.
enum class CAsciiForm {
    XY,  ///< "x y"
    X    ///< the Y value alone; read back, every x is 0
};

/// The points of a record as an ASCII point file: one line per point, ended by CR LF, numbers as the shortest texts
/// that read back to the same doubles, never by the locale. CPoints (files/ascii_points.h) reads X and Y back bit for
/// bit. A record without points gives an empty text.
/// @throws CError "Point N of COUNT holds no finite number; an ASCII file cannot hold it." for the first such point;
///         an abscissa counts only where it is written
std::string AsciiPoints(const CData& record, CAsciiForm form);

/// Writes AsciiPoints(record, form) to the file at `path` (UTF-8); an old file there is replaced only when the new one
/// is complete.
/// @throws CError as AsciiPoints; no file is then made or changed
[[nodiscard]] CWriteResult ExportAsciiPoints(const std::string& path, const CData& record, CAsciiForm form);

}  // namespace ks
