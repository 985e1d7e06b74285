#include "chart/chart_model.h"

#include "chart/chart_control.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace {

std::size_t Count(std::int32_t value) {
    return static_cast<std::size_t>(std::max(value, 0));
}

CSharedValues CopyOf(std::span<const double> values) {
    const auto copy = std::make_shared<const std::vector<double>>(values.begin(), values.end());
    return {copy, *copy};
}

}  // namespace

void CChartModel::SetInteger(CChartProperty property, std::int32_t value) {
    if (property == CChartProperty::SeriesCount) m_seriesCount = Count(value);
    if (property == CChartProperty::PointCount) m_pointCount = Count(value);
}

void CChartModel::SetText(CChartProperty property, std::string_view text) {
    if (property == CChartProperty::XTitle) m_xTitle = text;
    if (property == CChartProperty::YTitle) m_yTitle = text;
    if (property == CChartProperty::MainTitle) m_mainTitle = text;
    if (property == CChartProperty::SubTitle) m_subTitle = text;
}

void CChartModel::SetArray(CChartProperty property, std::span<const double> values) {
    if (property == CChartProperty::XData || property == CChartProperty::YData) ShareArray(property, CopyOf(values));
    if (values.empty()) return;
    if (property == CChartProperty::NoDataValue) m_drawn.noData[0] = values[0];
    if (property == CChartProperty::SecondNoDataValue) m_drawn.noData[1] = values[0];
}

void CChartModel::ShareArray(CChartProperty property, const CSharedValues& values) {
    if (property == CChartProperty::XData) m_x = values;
    if (property == CChartProperty::YData) m_y = values;
}

void CChartModel::SetArray(CChartProperty property, std::span<const std::int32_t> values) {
    if (property == CChartProperty::LineStyles) m_lineStyles.assign(values.begin(), values.end());
}

void CChartModel::SetArray(CChartProperty property, std::string_view texts, std::int32_t count) {
    if (property != CChartProperty::Legend) return;
    m_names.clear();
    while (m_names.size() < Count(count) && !texts.empty()) {
        const std::size_t end = std::min(texts.find('\t'), texts.size());
        m_names.emplace_back(texts.substr(0, end));
        texts.remove_prefix(std::min(end + 1, texts.size()));
    }
}

void CChartModel::ClearArray(CChartProperty property) {
    SetArray(property, std::span<const double>());
    SetArray(property, std::span<const std::int32_t>());
    SetArray(property, std::string_view(), 0);
}

std::size_t CChartModel::SeriesCount() const {
    if (m_pointCount == 0) return m_seriesCount;
    return std::min({m_seriesCount, m_x.values.size() / m_pointCount, m_y.values.size() / m_pointCount});
}

std::string CChartModel::Name(std::size_t series) const {
    return series < m_names.size() ? m_names[series] : "";
}

std::int32_t CChartModel::LineStyle(std::size_t series) const {
    return series < m_lineStyles.size() ? m_lineStyles[series] : 0;
}

CSharedValues CChartModel::Row(const CSharedValues& matrix, std::size_t series) const {
    return {matrix.owner, matrix.values.subspan(series * m_pointCount, m_pointCount)};
}
