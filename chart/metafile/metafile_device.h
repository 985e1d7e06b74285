#pragma once

#include "chart/chart_control.h"

#include <QPaintDevice>

#include <memory>
#include <string>

class CMetafileEngine;

/// A paint device that turns what a QPainter draws into a placeable Windows metafile: lines, filled areas and text;
/// images are left out, colors are opaque. Painter coordinates are the metafile's logical units. Lay text out in
/// Liberation Sans: it is written as "Arial", whose letters are as wide.
class CMetafileDevice : public QPaintDevice {
public:
    /// Letters of 13 / 800 of a width of 10000 units are 8 points high.
    static constexpr int kUnitsPerInch = 1440;

    explicit CMetafileDevice(CChartSize size);
    ~CMetafileDevice() override;

    [[nodiscard]] QPaintEngine* paintEngine() const override;
    /// The whole file; called once, after the painter ended.
    [[nodiscard]] std::string Finish();

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override;

private:
    CChartSize m_size;
    std::unique_ptr<CMetafileEngine> m_engine;
};
