#pragma once

#include "chart/chart_control.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a chart shows, gathered from its properties. Properties without a meaning here are accepted and ignored.
class CChartModel {
public:
    void SetInteger(CChartProperty property, std::int32_t value);
    void SetText(CChartProperty property, std::string_view text);
    void SetArray(CChartProperty property, std::span<const double> values);
    void SetArray(CChartProperty property, std::span<const std::int32_t> values);
    void SetArray(CChartProperty property, std::string_view texts, std::int32_t count);
    void ClearArray(CChartProperty property);

    /// Number of series whose X and Y values are complete.
    [[nodiscard]] std::size_t SeriesCount() const;
    [[nodiscard]] std::span<const double> X(std::size_t series) const { return Row(m_x, series); }
    [[nodiscard]] std::span<const double> Y(std::size_t series) const { return Row(m_y, series); }
    /// Empty when the legend has fewer names.
    [[nodiscard]] std::string Name(std::size_t series) const;
    /// 0 when there are fewer line styles.
    [[nodiscard]] std::int32_t LineStyle(std::size_t series) const;
    [[nodiscard]] const std::string& XTitle() const { return m_xTitle; }
    [[nodiscard]] const std::string& YTitle() const { return m_yTitle; }
    [[nodiscard]] const std::string& MainTitle() const { return m_mainTitle; }
    [[nodiscard]] const std::string& SubTitle() const { return m_subTitle; }

    /// True for a point to draw: neither coordinate is the no-data value, both are finite and
    /// small enough to draw (below 1e200).
    [[nodiscard]] bool IsDrawn(double x, double y) const {
        return IsDrawable(x) && IsDrawable(y) && !IsNoData(x) && !IsNoData(y);
    }

    /// Calls take(x, y) for each point to draw, in order. Where points were left out between two others, one call with
    /// the next point's x and a NaN comes in between; points left out at the ends are ignored.
    template <class Take>
    void ForEachPoint(std::size_t series, Take take) const {
        const std::span<const double> x = X(series);
        const std::span<const double> y = Y(series);
        bool hasPoint = false;
        bool isGap = false;
        for (std::size_t point = 0; point < x.size(); ++point) {
            if (!IsDrawn(x[point], y[point])) {
                isGap = hasPoint;
                continue;
            }
            if (isGap) take(x[point], std::numeric_limits<double>::quiet_NaN());
            take(x[point], y[point]);
            hasPoint = true;
            isGap = false;
        }
    }

private:
    [[nodiscard]] std::span<const double> Row(std::span<const double> matrix, std::size_t series) const;
    [[nodiscard]] static bool IsDrawable(double value) { return std::abs(value) < 1e200; }
    [[nodiscard]] bool IsNoData(double value) const { return value == m_noData[0] || value == m_noData[1]; }

    std::size_t m_seriesCount = 0;
    std::size_t m_pointCount = 0;
    std::vector<double> m_x, m_y;
    std::vector<std::string> m_names;
    std::vector<std::int32_t> m_lineStyles;
    std::string m_xTitle, m_yTitle, m_mainTitle, m_subTitle;
    std::array<double, 2> m_noData{std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};
};
