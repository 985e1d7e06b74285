#include "chart/line_look.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace {

constexpr double kThin = 1.5;
constexpr double kMedium = 2.25;
constexpr double kThick = 3.25;

constexpr std::array<double, 2> kDash{6.0, 3.0};
constexpr std::array<double, 2> kDot{1.5, 2.0};
constexpr std::array<double, 4> kDashDot{6.0, 2.5, 1.5, 2.5};
constexpr std::array<double, 6> kDashDotDot{6.0, 2.0, 1.5, 2.0, 1.5, 2.0};
constexpr std::array<double, 2> kLongDash{12.0, 4.0};
constexpr std::array<double, 4> kLongShort{10.0, 2.5, 4.0, 2.5};
constexpr std::array<double, 2> kShortDash{3.0, 3.0};

struct CStyleRow {
    std::int32_t style;
    double width;
    std::span<const double> dashes;
};

const std::array<CStyleRow, 10> kStyles{{{0, kThin, {}},
                                         {1, kThin, kDash},
                                         {2, kThin, kDot},
                                         {3, kThin, kDashDot},
                                         {4, kThin, kDashDotDot},
                                         {5, kMedium, {}},
                                         {6, kThick, {}},
                                         {9, kThin, kLongDash},
                                         {10, kThin, kLongShort},
                                         {11, kMedium, kShortDash}}};

// Hues that stay apart for readers with red, green or blue weakness, darkened or lightened until they stand out from
// the background by a contrast of at least 3:1.
constexpr std::array<std::uint32_t, 7> kOnLight{0x000000, 0x0072B2, 0xC44E00, 0x00805C, 0xA8478A, 0x2A87C8, 0xA07000};
constexpr std::array<std::uint32_t, 7> kOnDark{0xF2F2F2, 0x4FA8E0, 0xFF8A4C, 0x2FC79A, 0xE08CC4, 0x9AD4FF, 0xE6B022};

}  // namespace

CLineLook LookOfLine(std::int32_t lineStyle, std::size_t index, CChartBackground background) {
    const auto& colors = background == CChartBackground::Dark ? kOnDark : kOnLight;
    CLineLook look{colors[index % colors.size()], kStyles[0].width, kStyles[0].dashes};
    for (const CStyleRow& row : kStyles) {
        if (row.style != lineStyle) continue;
        look.width = row.width;
        look.dashes = row.dashes;
    }
    return look;
}
