#include "chart/plane_geometry.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr CPlaneBox kBox{0.0, 0.0, 10.0, 10.0};

std::vector<CPolyline> Listed(const CPolylines& polylines) {
    std::vector<CPolyline> list;
    for (std::size_t index = 0; index < polylines.Count(); ++index)
        list.emplace_back(polylines[index].begin(), polylines[index].end());
    return list;
}
std::vector<CPolyline> Clipped(const CPolyline& line, const CPlaneBox& box = kBox) {
    return Listed(ClippedPolyline(line, box));
}
std::vector<CPolyline> Dashed(const CPolyline& line, const std::vector<double>& pattern) {
    return Listed(DashedPolyline(line, pattern));
}
std::vector<CPolyline> Visible(const CPolyline& line, const std::vector<double>& pattern) {
    return Listed(VisibleDashes(line, kBox, pattern));
}

TEST(Polylines, AreKeptApartAndSinglePointsDropped) {
    CPolylines lines;
    lines.End();
    lines.Add({1, 1});
    lines.End();
    for (const double x : {2.0, 3.0}) lines.Add({x, 0});
    lines.End();
    for (const double x : {4.0, 5.0, 6.0}) lines.Add({x, 0});
    lines.End();
    lines.End();
    EXPECT_THAT(Listed(lines), ElementsAre(CPolyline{{2, 0}, {3, 0}}, CPolyline{{4, 0}, {5, 0}, {6, 0}}));
}

TEST(ClippedPolyline, KeepsALineInsideAsItIs) {
    EXPECT_THAT(Clipped({{1, 1}, {5, 5}, {9, 1}}), ElementsAre(CPolyline{{1, 1}, {5, 5}, {9, 1}}));
}

TEST(ClippedPolyline, CutsAtTheBorder) {
    EXPECT_THAT(Clipped({{-5, 5}, {15, 5}}), ElementsAre(CPolyline{{0, 5}, {10, 5}}));
    EXPECT_THAT(Clipped({{5, -10}, {5, 30}}), ElementsAre(CPolyline{{5, 0}, {5, 10}}));
    EXPECT_THAT(Clipped({{-5, -5}, {5, 5}}), ElementsAre(CPolyline{{0, 0}, {5, 5}}));
}

TEST(ClippedPolyline, FallsApartWhereItLeavesAndComesBack) {
    EXPECT_THAT(Clipped({{2, 5}, {2, 15}, {8, 15}, {8, 5}}),
                ElementsAre(CPolyline{{2, 5}, {2, 10}}, CPolyline{{8, 10}, {8, 5}}));
}

TEST(ClippedPolyline, DropsWhatMissesTheBox) {
    EXPECT_THAT(Clipped({{-5, -5}, {-5, 20}}), IsEmpty());
    EXPECT_THAT(Clipped({{-1, 6}, {6, 13}}), ElementsAre(CPolyline{{0, 7}, {3, 10}}));
    EXPECT_THAT(Clipped({{-6, 5}, {5, 16.5}}), IsEmpty());
}

TEST(ClippedPolyline, KeepsALineOnTheBorder) {
    EXPECT_THAT(Clipped({{0, 2}, {0, 8}}), ElementsAre(CPolyline{{0, 2}, {0, 8}}));
}

TEST(ClippedPolyline, APointThatIsNotFiniteEndsAPart) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THAT(Clipped({{1, 1}, {2, 2}, {3, nan}, {4, 4}, {5, 5}}),
                ElementsAre(CPolyline{{1, 1}, {2, 2}}, CPolyline{{4, 4}, {5, 5}}));
}

TEST(ClippedPolyline, NothingComesOfFewerThanTwoPoints) {
    EXPECT_THAT(Clipped({}), IsEmpty());
    EXPECT_THAT(Clipped({{5, 5}}), IsEmpty());
}

TEST(ClippedPolygon, CutsACornerOff) {
    EXPECT_THAT(
        ClippedPolygon(CPolyline{{5, 5}, {15, 5}, {15, 15}, {5, 15}}, kBox),
        testing::UnorderedElementsAre(CPlanePoint{5, 5}, CPlanePoint{10, 5}, CPlanePoint{10, 10}, CPlanePoint{5, 10}));
}

TEST(ClippedPolygon, CoversTheBoxWhenItIsLarger) {
    EXPECT_THAT(
        ClippedPolygon(CPolyline{{-5, -5}, {25, -5}, {25, 25}, {-5, 25}}, kBox),
        testing::UnorderedElementsAre(CPlanePoint{0, 0}, CPlanePoint{10, 0}, CPlanePoint{10, 10}, CPlanePoint{0, 10}));
}

TEST(ClippedPolygon, IsEmptyOutside) {
    EXPECT_THAT(ClippedPolygon(CPolyline{{20, 20}, {30, 20}, {30, 30}}, kBox), IsEmpty());
}

TEST(DashedPolyline, CutsALineByThePattern) {
    EXPECT_THAT(Dashed({{0, 0}, {10, 0}}, {3, 2}), ElementsAre(CPolyline{{0, 0}, {3, 0}}, CPolyline{{5, 0}, {8, 0}}));
}

TEST(DashedPolyline, TakesThePatternAroundCorners) {
    EXPECT_THAT(Dashed({{0, 0}, {2, 0}, {2, 4}}, {3, 2}),
                ElementsAre(CPolyline{{0, 0}, {2, 0}, {2, 1}}, CPolyline{{2, 3}, {2, 4}}));
}

TEST(DashedPolyline, UsesAnOddPatternTwice) {
    EXPECT_THAT(Dashed({{0, 0}, {6, 0}}, {2}), ElementsAre(CPolyline{{0, 0}, {2, 0}}, CPolyline{{4, 0}, {6, 0}}));
}

TEST(DashedPolyline, IsTheLineItselfWithoutAUsablePattern) {
    const CPolyline line{{0, 0}, {6, 0}};
    EXPECT_THAT(Dashed(line, {}), ElementsAre(line));
    EXPECT_THAT(Dashed(line, {0, 0}), ElementsAre(line));
    EXPECT_THAT(Dashed(line, {3, -1}), ElementsAre(line));
}

TEST(DashedPolyline, TheDashesOfALongLineAddUpToThePatternsShare) {
    CPolyline circle;
    for (int step = 0; step <= 3600; ++step)
        circle.push_back({std::cos(step / 572.957795), std::sin(step / 572.957795)});
    double drawn = 0.0;
    for (const CPolyline& dash : Dashed(circle, {0.003, 0.001})) {
        for (std::size_t index = 1; index < dash.size(); ++index)
            drawn += std::hypot(dash[index].x - dash[index - 1].x, dash[index].y - dash[index - 1].y);
    }
    EXPECT_NEAR(drawn, 0.75 * 2.0 * 3.14159265, 0.004);
}

TEST(VisibleDashes, ClipsBeforeDashing) {
    EXPECT_THAT(Visible({{-100, 5}, {6, 5}}, {4.0, 1.0}),
                ElementsAre(CPolyline{{0, 5}, {4, 5}}, CPolyline{{5, 5}, {6, 5}}));
}

TEST(VisibleDashes, AScribbleIsDrawnAsALine) {
    // 101 strokes of 10 are longer than fifty times the box's width and height together.
    CPolyline scribble;
    for (int stroke = 0; stroke <= 101; ++stroke) scribble.push_back({stroke * 0.05, stroke % 2 == 0 ? 0.0 : 10.0});
    EXPECT_EQ(Visible(scribble, {4.0, 1.0}).size(), 1U);
    scribble.resize(100);
    EXPECT_GT(Visible(scribble, {4.0, 1.0}).size(), 190U);
}

TEST(Intersection, HoldsNothingWhereBoxesMiss) {
    EXPECT_EQ(Intersection(kBox, {5, -5, 20, 3}), (CPlaneBox{5, 0, 10, 3}));
    const CPlaneBox none = Intersection(kBox, {11, 0, 12, 5});
    EXPECT_THAT(Clipped({{0, 2}, {20, 2}}, none), IsEmpty());
    EXPECT_THAT(ClippedPolygon(CPolyline{{0, 0}, {20, 0}, {20, 5}}, none), IsEmpty());
}

}  // namespace
