#include "chart/visible_curve.h"

#include "chart/chart_control.h"
#include "chart/curve_points.h"
#include "chart/plane_geometry.h"
#include "chart/view_range.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <numbers>
#include <random>
#include <span>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

CSharedValues Shared(std::vector<double> values) {
    const auto kept = std::make_shared<const std::vector<double>>(std::move(values));
    return {kept, *kept};
}

CCurvePoints Curve(std::vector<double> x, std::vector<double> y) {
    return {Shared(std::move(x)), Shared(std::move(y)), {}};
}

/// One pixel per unit, y downward, `width` columns from x = 0 on.
CCurveView PlainView(double width) {
    return {{0.0, 1.0, 0.0, 1.0}, {0.0, 1.0, 0.0, -1.0}, 0.0, width};
}

std::vector<CPolyline> Visible(const CCurvePoints& curve, const CCurveView& view) {
    CPolylines polylines;
    AddVisibleCurve(curve, view, polylines);
    std::vector<CPolyline> list;
    for (std::size_t index = 0; index < polylines.Count(); ++index)
        list.emplace_back(polylines[index].begin(), polylines[index].end());
    return list;
}

using CColumns = std::map<double, CExtremes>;

/// Extremes of the polylines' points by pixel column, of the columns that lie in the view as a whole.
CColumns ColumnsOf(const std::vector<CPolyline>& polylines, const CCurveView& view) {
    CColumns columns;
    for (const CPolyline& line : polylines) {
        for (const CPlanePoint& point : line) {
            const double column = std::floor(point.x / view.columnWidth);
            const bool isWhole =
                column * view.columnWidth >= view.left && (column + 1.0) * view.columnWidth <= view.right;
            if (isWhole) columns[column].Add(point.y);
        }
    }
    return columns;
}

/// The same of the curve itself, by a plain loop.
CColumns ColumnsOf(const CCurvePoints& curve, const CCurveView& view) {
    CPolyline all;
    for (const CPointRun& run : curve.Runs()) {
        for (std::size_t i = run.first; i < run.end; ++i)
            all.push_back({view.x.PixelOf(curve.X()[i]), view.y.PixelOf(curve.Y()[i])});
    }
    return ColumnsOf({all}, view);
}

/// Steps of x: how far apart the points of a curve are.
using Step = std::pair<const char*, double (*)(std::mt19937&)>;
const std::array<Step, 3> kSteps{
    {{"regular", [](std::mt19937&) { return 1.0; }},
     {"random", [](std::mt19937& random) { return std::exponential_distribution<double>(1.0)(random); }},
     {"clustered", [](std::mt19937& random) {
          return std::bernoulli_distribution(0.9)(random) ? 0.0 : std::exponential_distribution<double>(0.05)(random);
      }}}};

CCurvePoints RandomCurve(std::mt19937& random, std::size_t count, double (*step)(std::mt19937&)) {
    std::normal_distribution<double> value(0.0, 1.0);
    std::vector<double> x(count);
    std::vector<double> y(count);
    double at = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        at += step(random);
        x[i] = at;
        y[i] = value(random) + 20.0 * std::sin(at * 0.001);
    }
    return Curve(std::move(x), std::move(y));
}

CCurveView RandomView(std::mt19937& random, const CCurvePoints& curve) {
    const CViewRange all = curve.XRange().Range();
    std::uniform_real_distribution<double> share(-0.1, 1.1);
    double lower = all.lower + share(random) * all.Size();
    double upper = all.lower + share(random) * all.Size();
    if (std::bernoulli_distribution(0.3)(random)) upper = lower + (upper - lower) * 1e-3;
    if (upper < lower) std::swap(lower, upper);
    if (upper == lower) upper = lower + 1.0;
    return {{lower, upper, 60.0, 960.0}, {-25.0, 25.0, 500.0, 10.0}, 58.5, 961.5};
}

/// What matters most: no peak is lost, at any zoom, and nothing is drawn that is not there.
TEST(VisibleCurve, EveryPixelColumnHasTheExtremesOfItsPoints) {
    std::mt19937 random(7);
    for (const Step& step : kSteps) {
        for (const std::size_t count : std::array<std::size_t, 4>{2, 500, 5000, 100000}) {
            const CCurvePoints curve = RandomCurve(random, count, step.second);
            for (int zoom = 0; zoom < 40; ++zoom) {
                CCurveView view = RandomView(random, curve);
                view.columnWidth = zoom % 2 == 0 ? 1.0 : 1.0 / 1.25;
                ASSERT_EQ(ColumnsOf(Visible(curve, view), view), ColumnsOf(curve, view))
                    << step.first << ", " << count << " points, " << view.x.lower << " to " << view.x.upper;
            }
        }
    }
}

TEST(VisibleCurve, EveryColumnBeginsAndEndsWithItsFirstAndLastPoint) {
    std::mt19937 random(3);
    const CCurvePoints curve = RandomCurve(random, 20000, kSteps[1].second);
    const CCurveView view{{3000.0, 15000.0, 60.0, 960.0}, {-25.0, 25.0, 500.0, 10.0}, 60.0, 960.0};
    std::map<double, std::pair<double, double>> ends;
    for (std::size_t i = 0; i < curve.X().size(); ++i) {
        const double y = view.y.PixelOf(curve.Y()[i]);
        ends.try_emplace(std::floor(view.x.PixelOf(curve.X()[i])), y, y).first->second.second = y;
    }
    const std::vector<CPolyline> lines = Visible(curve, view);
    ASSERT_EQ(lines.size(), 1U);
    std::map<double, std::pair<double, double>> shown;
    for (const CPlanePoint& point : lines[0])
        shown.try_emplace(std::floor(point.x), point.y, point.y).first->second.second = point.y;
    ASSERT_GT(shown.size(), 890U);
    for (auto column = std::next(shown.begin()); std::next(column) != shown.end(); ++column)
        EXPECT_EQ(column->second, ends.at(column->first));
}

TEST(VisibleCurve, CostsAsMuchAsThePixelsAre) {
    std::mt19937 random(5);
    const CCurvePoints curve = RandomCurve(random, 200000, kSteps[0].second);
    CCurveView view{{0.0, 200000.0, 0.0, 900.0}, {-25.0, 25.0, 500.0, 10.0}, 0.0, 900.0};
    std::size_t most = 0;
    for (const CPolyline& line : Visible(curve, view)) most += line.size();
    EXPECT_LE(most, 4U * 900U + 2U);
}

TEST(VisibleCurve, FewPointsAreThemselves) {
    std::vector<double> x;
    std::vector<double> y;
    CPolyline expected;
    for (int i = 0; i < 40; ++i) {
        x.push_back(i * 0.25);
        y.push_back(std::sin(i));
        expected.push_back({x.back(), -y.back()});
    }
    EXPECT_THAT(Visible(Curve(x, y), PlainView(10.0)), ElementsAre(expected));
}

TEST(VisibleCurve, LinesEnterAndLeaveTheView) {
    EXPECT_THAT(Visible(Curve({-5, -3, 2, 4, 30, 50}, {1, 2, 3, 4, 5, 6}), PlainView(10.0)),
                ElementsAre(CPolyline{{-3, -2}, {2, -3}, {4, -4}, {30, -5}}));
    EXPECT_THAT(Visible(Curve({-5, -3, 30, 50}, {1, 2, 3, 4}), PlainView(10.0)),
                ElementsAre(CPolyline{{-3, -2}, {30, -3}}));
}

TEST(VisibleCurve, NothingIsSeenBesideTheCurve) {
    EXPECT_THAT(Visible(Curve({-5, -3}, {1, 2}), PlainView(10.0)), IsEmpty());
    EXPECT_THAT(Visible(Curve({13, 15}, {1, 2}), PlainView(10.0)), IsEmpty());
    EXPECT_THAT(Visible(Curve({}, {}), PlainView(10.0)), IsEmpty());
    EXPECT_THAT(Visible(Curve({kNan}, {1}), PlainView(10.0)), IsEmpty());
}

TEST(VisibleCurve, AGapEndsALine) {
    EXPECT_THAT(Visible(Curve({1, 2, 3, 4, 5, 6, 7}, {1, 2, kNan, 4, kNan, 6, 7}), PlainView(10.0)),
                ElementsAre(CPolyline{{1, -1}, {2, -2}}, CPolyline{{6, -6}, {7, -7}}));
}

TEST(VisibleCurve, AGapWithinAColumnOfFewPointsEndsALine) {
    EXPECT_THAT(Visible(Curve({1.0, 1.2, 1.4, 1.6}, {1, kNan, 3, 4}), PlainView(10.0)),
                ElementsAre(CPolyline{{1.4, -3}, {1.6, -4}}));
}

TEST(VisibleCurve, NoLineCrossesAGapBetweenColumns) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 100; ++i) {
        x.push_back(i * 0.1);
        y.push_back(i >= 30 && i < 60 ? kNan : 1.0);
    }
    const std::vector<CPolyline> lines = Visible(Curve(x, y), PlainView(10.0));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_LT(lines[0].back().x, 3.0);
    EXPECT_GE(lines[1].front().x, 6.0);
}

TEST(VisibleCurve, PeaksBetweenNarrowGapsAreKept) {
    std::mt19937 random(11);
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 20000; ++i) {
        x.push_back(i * 0.01);
        y.push_back(i % 3 == 2 ? kNan : std::uniform_real_distribution<double>(-1.0, 1.0)(random));
    }
    const CCurvePoints curve = Curve(x, y);
    EXPECT_EQ(ColumnsOf(Visible(curve, PlainView(200.0)), PlainView(200.0)), ColumnsOf(curve, PlainView(200.0)));
}

TEST(VisibleCurve, AVerticalLineIsDrawnFromEndToEnd) {
    EXPECT_THAT(Visible(Curve({1, 5, 5, 9}, {0, 0, 3, 3}), PlainView(10.0)),
                ElementsAre(CPolyline{{1, 0}, {5, 0}, {5, -3}, {9, -3}}));
    const std::vector<CPolyline> many =
        Visible(Curve(std::vector<double>(8, 5.0), {1, 2, 9, 2, -4, 1, 1, 1}), PlainView(10.0));
    EXPECT_THAT(many, ElementsAre(CPolyline{{5, -1}, {5, 4}, {5, -9}, {5, -1}}));
}

TEST(VisibleCurve, ACurveThatRunsBackwardKeepsItsOrder) {
    EXPECT_THAT(Visible(Curve({3, 1, 2, 20, 5}, {1, 2, 3, 4, kNan}), PlainView(10.0)),
                ElementsAre(CPolyline{{3, -1}, {1, -2}, {2, -3}, {20, -4}}));
}

TEST(VisibleCurve, ACurveThatRunsBackwardStaysCloseToItsPoints) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 100000; ++i) {
        x.push_back(50.0 + 40.0 * std::cos(i * 2.0 * std::numbers::pi / 100000));
        y.push_back(40.0 * std::sin(i * 2.0 * std::numbers::pi / 100000));
    }
    const std::vector<CPolyline> lines = Visible(Curve(x, y), PlainView(100.0));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_LT(lines[0].size(), 2000U);
    for (std::size_t i = 1; i < lines[0].size(); ++i)
        EXPECT_LT(std::hypot(lines[0][i].x - lines[0][i - 1].x, lines[0][i].y - lines[0][i - 1].y), 0.5);
    EXPECT_EQ(lines[0].back(), (CPlanePoint{x.back(), -y.back()}));
}

double HeightAt(std::span<const CPlanePoint> line, double x) {
    const auto after =
        std::find_if(line.begin() + 1, line.end(), [&](const CPlanePoint& point) { return point.x >= x; });
    const CPlanePoint& to = after == line.end() ? line.back() : *after;
    const CPlanePoint& from = after == line.end() ? line[line.size() - 2] : *(after - 1);
    return from.y + (to.y - from.y) * (x - from.x) / (to.x - from.x);
}

TEST(ThinnedPolyline, KeepsTheEndsOfAStraightLine) {
    EXPECT_EQ(ThinnedPolyline(CPolyline{{0, 0}, {1, 1}, {2, 2}, {3, 3}}, 0.1), (CPolyline{{0, 0}, {3, 3}}));
    EXPECT_EQ(ThinnedPolyline(CPolyline{{0, 0}}, 0.1), (CPolyline{{0, 0}}));
    EXPECT_THAT(ThinnedPolyline({}, 0.1), IsEmpty());
}

TEST(ThinnedPolyline, KeepsPeaksAndVerticalLines) {
    const CPolyline peak{{0, 0}, {1, 0.2}, {2, 0}};
    EXPECT_EQ(ThinnedPolyline(peak, 0.1), peak);
    const CPolyline vertical{{1, 0}, {1, 5}, {1, -5}, {1, 2}, {2, 2}};
    EXPECT_EQ(ThinnedPolyline(vertical, 0.1), vertical);
}

TEST(ThinnedPolyline, PassesEveryPointWithinTheTolerance) {
    std::mt19937 random(13);
    for (const double roughness : {0.01, 0.1, 1.0}) {
        CPolyline line;
        double x = 0.0;
        for (int i = 0; i < 3000; ++i) {
            x += std::uniform_real_distribution<double>(0.01, 1.0)(random);
            line.push_back({x, 30.0 * std::sin(x / 20.0) + std::normal_distribution<double>(0.0, roughness)(random)});
        }
        const CPolyline thinned = ThinnedPolyline(line, 0.1);
        EXPECT_LT(thinned.size(), line.size());
        for (const CPlanePoint& point : line) ASSERT_NEAR(HeightAt(thinned, point.x), point.y, 0.1 + 1e-9);
    }
}

}  // namespace
