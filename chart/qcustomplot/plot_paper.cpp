#include "chart/qcustomplot/plot_paper.h"

#include "chart/chart_control.h"
#include "chart/chart_style.h"
#include "chart/metafile/metafile_device.h"
#include "chart/qcustomplot/plot_widget.h"

#include <QPainter>
#include <QPicture>
#include <QRectF>
#include <qcustomplot.h>

#include <memory>
#include <string>

namespace {

constexpr double kPrintScale = 3.0;    // 288 dots per inch: finer than the eye can resolve
constexpr double kPaperWidth = 800.0;  // pixels: proportion of letters to the whole of an exported chart
constexpr double kPreviewScale = 2.0;
constexpr double kPixelsPerInch = 96.0;

constexpr QCPPainter::PainterModes kVectors{QCPPainter::pmVectorized | QCPPainter::pmNoCaching |
                                            QCPPainter::pmNonCosmetic};

/// The same part of the same data, without a window.
std::unique_ptr<CPlotWidget> OnPaper(const CPlotWidget& shown, double scale) {
    auto plot = std::make_unique<CPlotWidget>(nullptr);
    plot->SetContents(shown.Contents());
    plot->SetStyle(PaperStyle(scale));
    plot->ShowSameAs(shown);
    return plot;
}

QImage Picture(const CPlotWidget& shown, CChartSize size, double scale) {
    QImage picture(size.width, size.height, QImage::Format_RGB32);
    OnPaper(shown, scale)->PaintInto(picture, size, QCPPainter::pmNoCaching);
    return picture;
}

}  // namespace

QImage PictureOf(const CPlotWidget& shown, CChartSize size) {
    return Picture(shown, size, size.width / kPaperWidth);
}

QImage PreviewOf(const CPlotWidget& shown, CChartSize size) {
    const double width = kPaperWidth * kPreviewScale;
    return Picture(shown, {static_cast<int>(width), static_cast<int>(width * size.height / size.width)}, kPreviewScale);
}

std::string MetafileOf(const CPlotWidget& shown, CChartSize size) {
    CMetafileDevice device(size);
    OnPaper(shown, size.width / kPaperWidth)->PaintInto(device, size, kVectors);
    return device.Finish();
}

void PaintOnPaper(const CPlotWidget& shown, QPainter& painter, const QRectF& area) {
    const QRectF onDevice = painter.combinedTransform().mapRect(area);
    const double unitsPerInch = kPixelsPerInch * kPrintScale;
    const CChartSize size{qRound(onDevice.width() / painter.device()->logicalDpiX() * unitsPerInch),
                          qRound(onDevice.height() / painter.device()->logicalDpiY() * unitsPerInch)};
    if (size.width <= 0 || size.height <= 0) return;
    QPicture picture;
    OnPaper(shown, kPrintScale)->PaintInto(picture, size, kVectors);
    // A picture played on a device scales with the device's resolution, but the area already gives its size.
    const double growthX = static_cast<double>(painter.device()->logicalDpiX()) / picture.logicalDpiX();
    const double growthY = static_cast<double>(painter.device()->logicalDpiY()) / picture.logicalDpiY();
    painter.save();
    painter.translate(area.topLeft());
    painter.scale(area.width() / size.width / growthX, area.height() / size.height / growthY);
    painter.drawPicture(0, 0, picture);
    painter.restore();
}
