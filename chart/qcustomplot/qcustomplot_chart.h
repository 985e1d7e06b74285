#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <memory>

#include "chart/chart_control.h"

class CChartModel;
class CPlotWidget;
struct CPlotContents;

/// The chart control of the desktop program. On the screen it follows the desktop's palette; exported, copied and
/// printed charts are always on white. Wheel: zoom at the pointer; drag: pan; double click: reset. Keys: "+" and "-"
/// zoom, arrows pan, "0" and Home reset, Page Up and Page Down scroll a legend that has more names than room.
class CQCustomPlotChart final : public QObject, public CChartControl {
    Q_OBJECT

public:
    explicit CQCustomPlotChart(QObject* parent = nullptr);
    ~CQCustomPlotChart() override;

    void Create(const CChartCreation& creation) override;
    void Destroy() override;
    [[nodiscard]] bool Exists() const override;
    void SetInteger(ChartProperty property, std::int32_t value) override;
    void SetText(ChartProperty property, std::string_view text) override;
    void SetArray(ChartProperty property, std::span<const double> values) override;
    void SetArray(ChartProperty property, std::span<const std::int32_t> values) override;
    void SetArray(ChartProperty property, std::string_view texts, std::int32_t count) override;
    void ClearArray(ChartProperty property) override;
    void Draw(std::int32_t first, std::int32_t second) override;
    void Apply() override;
    void CopyMetafile(CChartSize size) override;
    [[nodiscard]] ks::WriteResult ExportMetafile(CChartSize size, const std::string& path) override;
    [[nodiscard]] ks::WriteResult ExportBitmap(CChartSize size, const std::string& path) override;
    void Resized(std::int32_t width, std::int32_t height) override;
    void PaintOnto(QPainter& painter, const QRectF& area) override;

    /// The window on the screen; none while no chart exists. It passes the context menu on to its parent.
    [[nodiscard]] QWidget* Widget() const;
    /// Shows all the data again.
    void ResetZoom();

signals:
    /// The pointer stands at these data coordinates: text for a status bar, empty when it left the curves' area.
    void ReadoutChanged(const QString& text);

private:
    [[nodiscard]] CPlotWidget* Plot() const;
    /// The same part of the same data, without a window, on white.
    [[nodiscard]] std::unique_ptr<CPlotWidget> OnPaper(double scale) const;
    [[nodiscard]] std::string Metafile(CChartSize size) const;

    std::unique_ptr<CChartModel> m_model;
    std::shared_ptr<const CPlotContents> m_contents;
    QPointer<QWidget> m_window;  ///< gone with its parent, or with Destroy
};
