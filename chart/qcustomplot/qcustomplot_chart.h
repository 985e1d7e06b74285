#pragma once

#include "chart/chart_control.h"
#include "files/replacing_file.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

class CChartModel;
class CPlotWidget;

/// The chart control that MakeChartControl gives.
class CQCustomPlotChart final : public CChartControl {
public:
    using ShowReadout = std::function<void(const QString& text)>;

    explicit CQCustomPlotChart(ShowReadout showReadout = {});
    ~CQCustomPlotChart() override;

    void Create(const CChartCreation& creation) override;
    void Destroy() override;
    [[nodiscard]] bool Exists() const override;
    void SetInteger(CChartProperty property, std::int32_t value) override;
    void SetText(CChartProperty property, std::string_view text) override;
    void SetArray(CChartProperty property, std::span<const double> values) override;
    void ShareArray(CChartProperty property, const CSharedValues& values) override;
    void SetArray(CChartProperty property, std::span<const std::int32_t> values) override;
    void SetArray(CChartProperty property, std::string_view texts, std::int32_t count) override;
    void ClearArray(CChartProperty property) override;
    void Draw(std::int32_t first, std::int32_t second) override;
    void Apply() override;
    void CopyMetafile(CChartSize size) override;
    [[nodiscard]] ks::CWriteResult ExportMetafile(CChartSize size, const std::string& path) override;
    [[nodiscard]] ks::CWriteResult ExportBitmap(CChartSize size, const std::string& path) override;
    void Resized(std::int32_t width, std::int32_t height) override;
    void PaintOnto(QPainter& painter, const QRectF& area) override;

private:
    [[nodiscard]] CPlotWidget& Plot() const;
    void ShowModel();

    ShowReadout m_showReadout;
    std::unique_ptr<CChartModel> m_model;
    QPointer<QWidget> m_window;  ///< a CPlotWidget; deleted with its parent or by Destroy
};
