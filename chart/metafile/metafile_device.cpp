#include "chart/metafile/metafile_device.h"

#include "chart/chart_control.h"
#include "chart/metafile/metafile_engine.h"

#include <cmath>
#include <memory>
#include <string>

CMetafileDevice::CMetafileDevice(CChartSize size)
    : m_size(size), m_engine(std::make_unique<CMetafileEngine>(size, kUnitsPerInch)) {}

CMetafileDevice::~CMetafileDevice() = default;

QPaintEngine* CMetafileDevice::paintEngine() const {
    return m_engine.get();
}

std::string CMetafileDevice::Finish() {
    return m_engine->Finish();
}

int CMetafileDevice::metric(PaintDeviceMetric metric) const {
    constexpr double kMillimetersPerInch = 25.4;
    const auto millimeters = [](int units) {
        return static_cast<int>(std::lround(units * kMillimetersPerInch / kUnitsPerInch));
    };
    switch (metric) {
        case PdmWidth:
            return m_size.width;
        case PdmHeight:
            return m_size.height;
        case PdmWidthMM:
            return millimeters(m_size.width);
        case PdmHeightMM:
            return millimeters(m_size.height);
        case PdmNumColors:
            return 1 << 24;
        case PdmDepth:
            return 24;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return kUnitsPerInch;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return QPaintDevice::metric(metric);
    }
}
