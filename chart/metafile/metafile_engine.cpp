#include "chart/metafile/metafile_engine.h"

#include "chart/chart_control.h"
#include "chart/metafile/code_page_1252.h"
#include "chart/metafile/wmf_writer.h"
#include "chart/plane_geometry.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

std::uint32_t Rgb(const QColor& color) {
    return color.rgb() & 0xFFFFFFU;
}

CPlaneBox Box(const QRectF& rect) {
    return {rect.left(), rect.top(), rect.right(), rect.bottom()};
}

/// Cumulative widths as the layout has them, so that the text ends where the layout ends it, no matter which font a
/// reader uses instead of Arial.
std::vector<std::int16_t> Advances(const QTextItem& item, double scale) {
    const QFontMetricsF metrics(item.font());
    const QString text = item.text();
    std::vector<std::int16_t> advances;
    double before = 0.0;
    for (qsizetype length = 1; length <= text.size(); ++length) {
        const double end = std::round(metrics.horizontalAdvance(text.left(length)) * scale);
        advances.push_back(static_cast<std::int16_t>(end - before));
        before = end;
    }
    return advances;
}

double PixelHeight(const QFont& font, const QPaintDevice& device) {
    return font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * device.logicalDpiY() / 72.0;
}

}  // namespace

CMetafileEngine::CMetafileEngine(CChartSize size, int unitsPerInch)
    : QPaintEngine(AllFeatures),
      m_picture{0.0, 0.0, static_cast<double>(size.width), static_cast<double>(size.height)},
      m_clip(m_picture),
      m_writer(static_cast<std::int16_t>(size.width), static_cast<std::int16_t>(size.height),
               static_cast<std::uint16_t>(unitsPerInch)) {}

bool CMetafileEngine::begin(QPaintDevice* device) {
    setPaintDevice(device);
    setActive(true);
    return true;
}

bool CMetafileEngine::end() {
    setActive(false);
    return true;
}

void CMetafileEngine::updateState(const QPaintEngineState& now) {
    const DirtyFlags changed = now.state();
    if (changed.testFlag(DirtyTransform)) m_transform = now.transform();
    if (changed.testFlag(DirtyPen)) m_pen = now.pen();
    if (changed.testFlag(DirtyBrush)) m_brush = now.brush();
    UpdateClip(now);
}

void CMetafileEngine::UpdateClip(const QPaintEngineState& now) {
    const DirtyFlags changed = now.state();
    if (changed.testFlag(DirtyClipRegion)) Narrow(now.clipRegion().boundingRect(), now.clipOperation());
    if (changed.testFlag(DirtyClipPath)) Narrow(now.clipPath().boundingRect(), now.clipOperation());
    if (changed.testFlag(DirtyClipEnabled) && !now.isClipEnabled()) m_clip = m_picture;
}

void CMetafileEngine::Narrow(const QRectF& box, Qt::ClipOperation operation) {
    const CPlaneBox& outer = operation == Qt::IntersectClip ? m_clip : m_picture;
    m_clip = operation == Qt::NoClip ? m_picture : Intersection(outer, Box(m_transform.mapRect(box)));
}

void CMetafileEngine::drawPath(const QPainterPath& path) {
    std::vector<CPolyline> outlines;
    for (const QPolygonF& polygon : path.toSubpathPolygons(m_transform)) {
        CPolyline outline;
        for (const QPointF& point : polygon) outline.push_back({point.x(), point.y()});
        outlines.push_back(std::move(outline));
    }
    Fill(outlines);
    for (const CPolyline& outline : outlines) Stroke(outline);
}

void CMetafileEngine::drawPolygon(const QPointF* points, int pointCount, PolygonDrawMode mode) {
    CPolyline outline = Transformed(points, pointCount);
    if (mode != PolylineMode) {
        Fill({&outline, 1});
        outline.push_back(outline.front());
    }
    Stroke(outline);
}

void CMetafileEngine::drawPixmap(const QRectF& /*target*/, const QPixmap& /*pixmap*/, const QRectF& /*source*/) {}

void CMetafileEngine::drawTextItem(const QPointF& baseline, const QTextItem& item) {
    const QPen& pen = m_pen;
    const std::optional<std::string> bytes = CodePage1252(item.text().toStdU16String());
    if (!bytes) {
        QPainterPath letters;
        letters.addText(baseline, item.font(), item.text());
        std::vector<CPolyline> outlines;
        for (const QPolygonF& polygon : letters.toSubpathPolygons(m_transform)) {
            CPolyline outline;
            for (const QPointF& point : polygon) outline.push_back({point.x(), point.y()});
            outlines.push_back(std::move(outline));
        }
        FillWith(outlines, pen.color());
        return;
    }
    const QPointF start = m_transform.map(baseline);
    const std::vector<std::int16_t> advances = Advances(item, Scale());
    CWmfText text;
    text.baseline = {start.x(), start.y()};
    text.bytes = *bytes;
    text.advances = advances;
    text.font.pixelHeight = static_cast<std::int16_t>(std::lround(PixelHeight(item.font(), *paintDevice()) * Scale()));
    const double degrees = qRadiansToDegrees(std::atan2(-m_transform.m12(), m_transform.m11()));
    text.font.tenthsOfDegree = static_cast<std::int16_t>(std::lround(degrees * 10.0));
    text.font.isBold = item.font().bold();
    text.font.isItalic = item.font().italic();
    text.rgb = Rgb(pen.color());
    m_writer.Text(text);
}

void CMetafileEngine::Stroke(std::span<const CPlanePoint> points) {
    if (m_pen.style() == Qt::NoPen) return;
    const double width = std::max(m_pen.widthF() * Scale(), 1.0);
    const CWmfPen pen{static_cast<std::uint16_t>(std::lround(width)), Rgb(m_pen.color())};
    std::vector<double> pattern;
    if (m_pen.style() != Qt::SolidLine)
        for (const double length : m_pen.dashPattern()) pattern.push_back(length * width);
    // Metafile pens have round ends, half their width longer; shortening the dashes by that keeps the pattern.
    for (std::size_t part = 0; part + 1 < pattern.size(); part += 2) {
        const double shorter = std::min(width, pattern[part] - 0.1 * width);
        pattern[part] -= shorter;
        pattern[part + 1] += shorter;
    }
    const CPolylines dashes = VisibleDashes(points, m_clip, pattern);
    for (std::size_t dash = 0; dash < dashes.Count(); ++dash) m_writer.Polyline(dashes[dash], pen);
}

void CMetafileEngine::Fill(std::span<const CPolyline> outlines) {
    if (m_brush.style() != Qt::NoBrush) FillWith(outlines, m_brush.color());
}

void CMetafileEngine::FillWith(std::span<const CPolyline> outlines, const QColor& color) {
    std::vector<CPolyline> inside;
    for (const CPolyline& outline : outlines) inside.push_back(ClippedPolygon(outline, m_clip));
    m_writer.Fill(inside, Rgb(color));
}

CPolyline CMetafileEngine::Transformed(const QPointF* points, int pointCount) const {
    CPolyline transformed;
    transformed.reserve(static_cast<std::size_t>(pointCount) + 1);
    for (int index = 0; index < pointCount; ++index) {
        const QPointF point = m_transform.map(points[index]);
        transformed.push_back({point.x(), point.y()});
    }
    return transformed;
}

double CMetafileEngine::Scale() const {
    return std::sqrt(std::abs(m_transform.determinant()));
}
