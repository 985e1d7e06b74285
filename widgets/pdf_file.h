#pragma once

#include "files/replacing_file.h"

#include <QPageLayout>
#include <QString>

#include <functional>
#include <string>

class QPagedPaintDevice;
class QPrinter;

/// Properties of a PDF file apart from its pages.
struct CPdfForm {
    QPageLayout layout;  ///< paper and orientation; the pages' origin is the corner inside its margins
    QString title;
};

/// Paints pages onto a printer or into a file; false when the device does not accept them.
using PaintPages = std::function<bool(QPagedPaintDevice& device)>;

/// Writes what `paint` paints as a PDF file to `path` (UTF-8). The toolkit would empty an existing file before
/// painting and report no write errors; here the file is painted in memory and replaces an existing one only when it
/// is complete.
/// @return NotCompleted also when `paint` fails
[[nodiscard]] ks::CWriteResult WritePdfFile(const std::string& path, const CPdfForm& form, const PaintPages& paint);

/// Whether `printer` is set to write a PDF file with a given name, which is a case for WritePdfFile.
[[nodiscard]] bool MakesPdfFile(const QPrinter& printer);
