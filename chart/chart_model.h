#pragma once

#include "chart/chart_control.h"
#include "chart/curve_points.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a chart shows, gathered from its properties. Properties without a meaning here are accepted and ignored.
/// Shared values are kept as they are; others are copied.
class CChartModel {
public:
    void SetInteger(CChartProperty property, std::int32_t value);
    void SetText(CChartProperty property, std::string_view text);
    void SetArray(CChartProperty property, std::span<const double> values);
    void ShareArray(CChartProperty property, const CSharedValues& values);
    void SetArray(CChartProperty property, std::span<const std::int32_t> values);
    void SetArray(CChartProperty property, std::string_view texts, std::int32_t count);
    void ClearArray(CChartProperty property);

    /// Number of series whose X and Y values are complete.
    [[nodiscard]] std::size_t SeriesCount() const;
    /// Shares the series' values.
    [[nodiscard]] CCurvePoints Curve(std::size_t series) const { return {Row(m_x, series), Row(m_y, series), m_drawn}; }
    /// Empty when the legend has fewer names.
    [[nodiscard]] std::string Name(std::size_t series) const;
    /// 0 when there are fewer line styles.
    [[nodiscard]] std::int32_t LineStyle(std::size_t series) const;
    [[nodiscard]] const std::string& XTitle() const { return m_xTitle; }
    [[nodiscard]] const std::string& YTitle() const { return m_yTitle; }
    [[nodiscard]] const std::string& MainTitle() const { return m_mainTitle; }
    [[nodiscard]] const std::string& SubTitle() const { return m_subTitle; }

private:
    [[nodiscard]] CSharedValues Row(const CSharedValues& matrix, std::size_t series) const;

    std::size_t m_seriesCount = 0;
    std::size_t m_pointCount = 0;
    CSharedValues m_x, m_y;
    std::vector<std::string> m_names;
    std::vector<std::int32_t> m_lineStyles;
    std::string m_xTitle, m_yTitle, m_mainTitle, m_subTitle;
    CDrawnPoints m_drawn;
};
