#pragma once

#include "chart/chart_control.h"
#include "chart/metafile/wmf_writer.h"
#include "chart/plane_geometry.h"

#include <QPaintEngine>
#include <QTransform>

#include <span>
#include <string>

/// The engine of CMetafileDevice. It claims every feature, so that QPainter hands over curves and text unsplit, and
/// applies the transform itself; clips every line and area geometrically, since metafile readers differ about clip
/// records; and builds dashes as short lines, since metafile pens have four fixed patterns. Text is not clipped.
class CMetafileEngine final : public QPaintEngine {
public:
    CMetafileEngine(CChartSize size, int unitsPerInch);

    bool begin(QPaintDevice* device) override;
    bool end() override;
    void updateState(const QPaintEngineState& now) override;
    void drawPath(const QPainterPath& path) override;
    void drawPolygon(const QPointF* points, int pointCount, PolygonDrawMode mode) override;
    void drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) override;
    void drawTextItem(const QPointF& baseline, const QTextItem& item) override;
    [[nodiscard]] Type type() const override { return User; }

    [[nodiscard]] std::string Finish() { return m_writer.Finish(); }

private:
    void UpdateClip(const QPaintEngineState& now);
    void Narrow(const QRectF& box, Qt::ClipOperation operation);
    void Stroke(std::span<const CPlanePoint> points);
    void Fill(std::span<const CPolyline> outlines);
    void FillWith(std::span<const CPolyline> outlines, const QColor& color);
    [[nodiscard]] CPolyline Transformed(const QPointF* points, int pointCount) const;
    [[nodiscard]] double Scale() const;

    CPlaneBox m_picture;
    CPlaneBox m_clip;
    CWmfWriter m_writer;
    QTransform m_transform;
    QPen m_pen;
    QBrush m_brush;
};
