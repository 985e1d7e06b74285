#include "chart/chart_sequences.h"

#include "chart/chart_control.h"
#include "compare/chart_block.h"
#include "files/one_line.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace {

struct CSetting {
    std::int32_t property;
    std::int32_t value;
};

constexpr std::array<CSetting, 17> kCreationSettings{{{3610, 1},
                                                      {3045, 1},
                                                      {3282, 3},
                                                      {3254, 0},
                                                      {3022, 0},
                                                      {3281, 0},
                                                      {3200, 1},
                                                      {2621, 1},
                                                      {3640, 0},
                                                      {3401, 0},
                                                      {3416, 0},
                                                      {3642, 0},
                                                      {2928, 1},
                                                      {3290, 1},
                                                      {3223, 1},
                                                      {3208, 1},
                                                      {2620, 3}}};
constexpr std::array<CSetting, 3> kResetSettings{{{3290, 0}, {3223, 0}, {2623, 0}}};
constexpr std::array<std::int32_t, 3> kArraysEmptiedByReset{3246, 3291, 3292};

constexpr std::int64_t kManyPoints = 10000;
constexpr std::int32_t kStyleCount = 10;
constexpr std::int32_t kLastStyleBeforeGap = 6;  // the chart has no styles 7 and 8
constexpr std::int32_t kStyleGap = 2;

void SetIntegers(CChartControl& chart, std::span<const CSetting> settings) {
    for (const CSetting& setting : settings) chart.SetInteger(GivenProperty(setting.property), setting.value);
}

std::int32_t CyclingStyle(std::int32_t series) {
    const std::int32_t style = series % kStyleCount;
    return style > kLastStyleBeforeGap ? style + kStyleGap : style;
}

std::string JoinedNames(std::span<const std::string> names) {
    std::string joined;
    for (const std::string& name : names) joined += ks::OneLine(name) + '\t';
    return joined;
}

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

std::span<const std::int32_t> CLineStyles::Set(std::int32_t mode, std::int32_t seriesCount) {
    const auto count = static_cast<std::size_t>(std::max(seriesCount, 0));
    if (m_values.size() < count) m_values.resize(count);
    const std::span<std::int32_t> values = std::span(m_values).first(count);
    switch (mode) {
        case 0:
            for (std::int32_t series = 0; series < seriesCount; ++series)
                values[static_cast<std::size_t>(series)] = CyclingStyle(series);
            break;
        case 1:
            std::fill(values.begin(), values.end(), 0);
            break;
        case 2:
            std::fill(values.begin(), values.end(), 5);
            break;
        case 3:
            std::fill(values.begin(), values.end(), 6);
            break;
        default:
            break;
    }
    return values;
}

std::string_view CutChartText(std::string_view text) {
    std::size_t characters = 0;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (ContinuesCharacter(text[position])) continue;
        if (characters == kLongestChartText) return text.substr(0, position);
        ++characters;
    }
    return text;
}

void CreateChart(CChartControl& chart, QWidget* parent, CChartSize clientArea, double noDataValue) {
    if (chart.Exists()) chart.Destroy();
    CChartCreation creation;
    creation.parent = parent;
    creation.clientArea = clientArea;
    chart.Create(creation);
    SetIntegers(chart, kCreationSettings);
    const std::span<const double> noData(&noDataValue, 1);
    chart.SetArray(CChartProperty::NoDataValue, noData);
    chart.SetArray(CChartProperty::SecondNoDataValue, noData);
}

void FillChart(CChartControl& chart, const std::shared_ptr<const CChartBlock>& shared,
               std::span<const std::string> names, CLineStyles& lineStyles) {
    const CChartBlock& block = *shared;
    const std::int64_t cells = std::int64_t{block.seriesCount} * block.pointCount;
    const auto cellCount = static_cast<std::size_t>(cells);
    // A run sets the counts before a page has laid out the matrices that belong to them.
    if (block.x.size() < cellCount || block.y.size() < cellCount) return;

    chart.SetInteger(CChartProperty::SeriesCount, block.seriesCount);
    chart.SetInteger(CChartProperty::PointCount, block.pointCount);
    chart.SetInteger(GivenProperty(3104), cells > kManyPoints ? 10 : 3);
    chart.SetInteger(GivenProperty(3016), 1);
    chart.ShareArray(CChartProperty::XData, {shared, std::span(block.x).first(cellCount)});
    chart.SetInteger(GivenProperty(3017), 1);
    chart.ShareArray(CChartProperty::YData, {shared, std::span(block.y).first(cellCount)});
    chart.SetText(CChartProperty::YTitle, CutChartText(block.yTitle));
    chart.SetText(CChartProperty::XTitle, CutChartText(block.xTitle));
    chart.SetText(CChartProperty::MainTitle, CutChartText(block.titleOne));
    chart.SetText(CChartProperty::SubTitle, CutChartText(block.titleTwo));
    chart.SetArray(CChartProperty::Legend, JoinedNames(names), block.seriesCount);
    chart.SetArray(CChartProperty::LineStyles, lineStyles.Set(block.lineStyleMode, block.seriesCount));
    chart.SetInteger(GivenProperty(3040), 0);
    chart.SetInteger(GivenProperty(3605), 0);
    chart.Apply();
    ResetChart(chart);
}

void ResetChart(CChartControl& chart) {
    SetIntegers(chart, kResetSettings);
    for (const std::int32_t property : kArraysEmptiedByReset) chart.ClearArray(GivenProperty(property));
}

void ShowChart(CChartControl& chart, QWidget* parent, CChartSize clientArea,
               const std::shared_ptr<const CChartBlock>& block, std::span<const std::string> names,
               CLineStyles& lineStyles) {
    CreateChart(chart, parent, clientArea, block->paddingValue);
    FillChart(chart, block, names, lineStyles);
    chart.Draw(0, 0);
}

void ResizeChart(CChartControl& chart, CChartSize clientArea) {
    chart.SetInteger(CChartProperty::Width, clientArea.width);
    chart.SetInteger(CChartProperty::Height, clientArea.height);
    const std::array<std::int32_t, 4> area{0, 0, clientArea.width, clientArea.height};
    chart.SetArray(CChartProperty::Area, area);
    chart.Resized(clientArea.width, clientArea.height);
}
