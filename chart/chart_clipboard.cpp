#include "chart/chart_clipboard.h"

#include <QByteArray>

#include <memory>
#include <string_view>

std::unique_ptr<QMimeData> ChartForClipboard(std::string_view metafile, const QImage& picture) {
    const QByteArray bytes(metafile.data(), static_cast<qsizetype>(metafile.size()));
    auto data = std::make_unique<QMimeData>();
    // LibreOffice accepts metafiles only under its own name.
    data->setData(QStringLiteral("application/x-openoffice-wmf;windows_formatname=\"Image WMF\""), bytes);
    data->setData(QStringLiteral("image/x-wmf"), bytes);
    data->setImageData(picture);
    return data;
}
