#pragma once

#include <QPageLayout>
#include <QString>
#include <functional>
#include <string>

#include "files/replacing_file.h"

class QPagedPaintDevice;
class QPrinter;

/// What a PDF file is beside its pages.
struct CPdfForm {
    QPageLayout layout;  ///< paper and orientation; the pages' origin is the corner inside its margins
    QString title;
};

/// Paints pages onto a printer or into a file; false when the device does not take them.
using PaintPages = std::function<bool(QPagedPaintDevice& device)>;

/// Writes what `paint` paints as a PDF file to `path` (UTF-8). The toolkit empties an old file before it paints and
/// tells no fault of writing; this file is painted in memory and replaces an old one only when it is complete.
/// @return NotCompleted also when `paint` fails
[[nodiscard]] ks::CWriteResult WritePdfFile(const std::string& path, const CPdfForm& form, const PaintPages& paint);

/// Whether `printer` was told to make a PDF file of a given name: its case for WritePdfFile.
[[nodiscard]] bool MakesPdfFile(const QPrinter& printer);
