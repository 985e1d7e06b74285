#pragma once

#include <QImage>
#include <QMimeData>

#include <memory>
#include <string_view>

/// The formats in which office programs accept a metafile, and the picture for all others.
std::unique_ptr<QMimeData> ChartForClipboard(std::string_view metafile, const QImage& picture);
