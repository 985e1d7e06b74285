#pragma once

#include "files/replacing_file.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

class QPainter;
class QRectF;
class QWidget;

/// Numbers of the chart control's properties. Only those whose meaning the control must know have names; every other
/// number is passed unchanged, by GivenProperty.
enum class CChartProperty : std::int32_t {
    MainTitle = 2105,
    SubTitle = 2110,
    SeriesCount = 2115,
    PointCount = 2120,  ///< of every series
    Legend = 2125,      ///< all names in one text, each followed by a tab
    Width = 2200,
    Height = 2205,
    Area = 2210,  ///< left, top, right, bottom
    XTitle = 3000,
    YTitle = 3005,
    XData = 3013,  ///< series after series
    YData = 3014,
    NoDataValue = 3268,  ///< a point with this X or Y is not drawn
    LineStyles = 3271,   ///< one per series
    SecondNoDataValue = 3656,
};

/// A property known only by its number.
constexpr CChartProperty GivenProperty(std::int32_t number) {
    return static_cast<CChartProperty>(number);
}

/// In the units of the output: pixels of the window or the bitmap, logical units of the metafile.
struct CChartSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const CChartSize&) const = default;
};

inline constexpr CChartSize kMetafileSize{10000, 5000};
inline constexpr CChartSize kBitmapSize{800, 600};

/// What a chart control is created from.
struct CChartCreation {
    std::int32_t controlType = 304;
    std::int32_t style = 0;
    CChartSize clientArea;      ///< of the parent, which the control covers
    QWidget* parent = nullptr;  ///< owns the window on the screen; none for a chart that is only exported or printed
    std::int32_t identifier = 1;
};

/// Values that nobody changes while the owner is held, so that a chart may keep them without a copy.
struct CSharedValues {
    std::shared_ptr<const void> owner;  ///< keeps the values in memory
    std::span<const double> values;
};

/// A chart of one block of series, driven by numbered properties. Properties take effect with Apply; Draw then
/// updates the picture on the screen. One object is one place on the screen: Create and Destroy may alternate. All
/// other functions do nothing while no chart exists. Texts and paths are UTF-8.
class CChartControl {
public:
    CChartControl() = default;
    CChartControl(const CChartControl&) = delete;
    CChartControl& operator=(const CChartControl&) = delete;
    virtual ~CChartControl() = default;

    virtual void Create(const CChartCreation& creation) = 0;
    virtual void Destroy() = 0;
    [[nodiscard]] virtual bool Exists() const = 0;

    virtual void SetInteger(CChartProperty property, std::int32_t value) = 0;
    virtual void SetText(CChartProperty property, std::string_view text) = 0;
    virtual void SetArray(CChartProperty property, std::span<const double> values) = 0;
    /// The same without a copy of the values.
    virtual void ShareArray(CChartProperty property, const CSharedValues& values) = 0;
    virtual void SetArray(CChartProperty property, std::span<const std::int32_t> values) = 0;
    /// `count` texts, each followed by a tab.
    virtual void SetArray(CChartProperty property, std::string_view texts, std::int32_t count) = 0;
    /// An array property without values.
    virtual void ClearArray(CChartProperty property) = 0;

    virtual void Draw(std::int32_t first, std::int32_t second) = 0;
    virtual void Apply() = 0;

    /// Copies the chart to the clipboard as a metafile of `size`, and as a picture for programs that only paste those.
    virtual void CopyMetafile(CChartSize size) = 0;
    /// The chart as it is zoomed, on white. NotOpened while no chart exists.
    [[nodiscard]] virtual ks::CWriteResult ExportMetafile(CChartSize size, const std::string& path) = 0;
    [[nodiscard]] virtual ks::CWriteResult ExportBitmap(CChartSize size, const std::string& path) = 0;

    /// The parent has a new size; the properties Width, Height and Area are already set.
    virtual void Resized(std::int32_t width, std::int32_t height) = 0;

    /// Paints the chart on white into `area` of the painter's coordinates, curves as vectors, text as large as on the
    /// screen. The painter's device may be a printer.
    virtual void PaintOnto(QPainter& painter, const QRectF& area) = 0;
};
