#include "chart/line_look.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace {

constexpr std::array<std::int32_t, 10> kStyles{0, 1, 2, 3, 4, 5, 6, 9, 10, 11};
constexpr std::array<CChartBackground, 2> kBackgrounds{CChartBackground::Light, CChartBackground::Dark};

using Look = std::tuple<std::uint32_t, double, std::vector<double>>;

Look Whole(const CLineLook& look) {
    return {look.rgb, look.width, {look.dashes.begin(), look.dashes.end()}};
}

/// WCAG 2.1, "relative luminance".
double Luminance(std::uint32_t rgb) {
    const auto linear = [rgb](unsigned shift) {
        const double value = ((rgb >> shift) & 0xFFU) / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

double Contrast(std::uint32_t a, std::uint32_t b) {
    const double first = Luminance(a) + 0.05;
    const double second = Luminance(b) + 0.05;
    return first > second ? first / second : second / first;
}

TEST(LineLook, TheTenStylesDifferInPatternOrWidth) {
    std::set<std::pair<double, std::vector<double>>> looks;
    for (const std::int32_t style : kStyles) {
        const CLineLook look = LookOfLine(style, 0, CChartBackground::Light);
        looks.emplace(look.width, std::vector<double>(look.dashes.begin(), look.dashes.end()));
    }
    EXPECT_EQ(looks.size(), kStyles.size());
}

TEST(LineLook, TheFirstSeventySeriesAllLookDifferent) {
    for (const CChartBackground background : kBackgrounds) {
        std::set<Look> looks;
        for (std::size_t series = 0; series < 70; ++series)
            looks.insert(Whole(LookOfLine(kStyles[series % kStyles.size()], series, background)));
        EXPECT_EQ(looks.size(), 70U);
    }
}

TEST(LineLook, SeriesOfOneStyleDifferInColor) {
    EXPECT_NE(LookOfLine(5, 0, CChartBackground::Light).rgb, LookOfLine(5, 1, CChartBackground::Light).rgb);
}

TEST(LineLook, EveryColorStandsOutFromItsBackground) {
    for (std::size_t series = 0; series < 7; ++series) {
        EXPECT_GE(Contrast(LookOfLine(0, series, CChartBackground::Light).rgb, 0xFFFFFF), 3.0) << series;
        EXPECT_GE(Contrast(LookOfLine(0, series, CChartBackground::Dark).rgb, 0x2D2D30), 3.0) << series;
    }
}

TEST(LineLook, DashPatternsHaveALineAndABlankInTurn) {
    for (const std::int32_t style : kStyles) {
        const CLineLook look = LookOfLine(style, 0, CChartBackground::Light);
        EXPECT_EQ(look.dashes.size() % 2, 0U);
        for (const double length : look.dashes) EXPECT_GT(length, 0.0);
    }
}

TEST(LineLook, StylesZeroFiveAndSixAreSolidAndGrowWider) {
    const CLineLook thin = LookOfLine(0, 0, CChartBackground::Light);
    const CLineLook medium = LookOfLine(5, 0, CChartBackground::Light);
    const CLineLook thick = LookOfLine(6, 0, CChartBackground::Light);
    EXPECT_TRUE(thin.dashes.empty() && medium.dashes.empty() && thick.dashes.empty());
    EXPECT_LT(thin.width, medium.width);
    EXPECT_LT(medium.width, thick.width);
}

TEST(LineLook, AnUnknownStyleIsDrawnAsTheFirst) {
    EXPECT_EQ(Whole(LookOfLine(7, 3, CChartBackground::Light)), Whole(LookOfLine(0, 3, CChartBackground::Light)));
}

}  // namespace
