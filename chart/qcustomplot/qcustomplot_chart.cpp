#include "chart/qcustomplot/qcustomplot_chart.h"

#include "chart/chart_clipboard.h"
#include "chart/chart_control.h"
#include "chart/chart_model.h"
#include "chart/chart_style.h"
#include "chart/qcustomplot/plot_contents.h"
#include "chart/qcustomplot/plot_paper.h"
#include "chart/qcustomplot/plot_widget.h"
#include "files/replacing_file.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

CQCustomPlotChart::CQCustomPlotChart(ShowReadout showReadout)
    : m_showReadout(std::move(showReadout)), m_model(std::make_unique<CChartModel>()) {}

CQCustomPlotChart::~CQCustomPlotChart() {
    Destroy();
}

void CQCustomPlotChart::Create(const CChartCreation& creation) {
    Destroy();
    m_model = std::make_unique<CChartModel>();
    m_window = new CPlotWidget(creation.parent, m_showReadout);  // until Destroy, or until the parent is deleted
    ShowModel();
    m_window->setGeometry(0, 0, creation.clientArea.width, creation.clientArea.height);
    if (creation.parent) m_window->show();
}

void CQCustomPlotChart::Destroy() {
    if (!m_window) return;
    const std::unique_ptr<QWidget> gone(m_window.data());
    m_window.clear();
    if (m_showReadout) m_showReadout({});  // the pointer may still be where the chart was
}

bool CQCustomPlotChart::Exists() const {
    return !m_window.isNull();
}

void CQCustomPlotChart::SetInteger(CChartProperty property, std::int32_t value) {
    m_model->SetInteger(property, value);
}

void CQCustomPlotChart::SetText(CChartProperty property, std::string_view text) {
    m_model->SetText(property, text);
}

void CQCustomPlotChart::SetArray(CChartProperty property, std::span<const double> values) {
    m_model->SetArray(property, values);
}

void CQCustomPlotChart::ShareArray(CChartProperty property, const CSharedValues& values) {
    m_model->ShareArray(property, values);
}

void CQCustomPlotChart::SetArray(CChartProperty property, std::span<const std::int32_t> values) {
    m_model->SetArray(property, values);
}

void CQCustomPlotChart::SetArray(CChartProperty property, std::string_view texts, std::int32_t count) {
    m_model->SetArray(property, texts, count);
}

void CQCustomPlotChart::ClearArray(CChartProperty property) {
    m_model->ClearArray(property);
}

void CQCustomPlotChart::Draw(std::int32_t /*first*/, std::int32_t /*second*/) {
    if (Exists()) Plot().replot();
}

void CQCustomPlotChart::Apply() {
    if (Exists()) ShowModel();
}

void CQCustomPlotChart::ShowModel() {
    Plot().SetContents(ContentsOf(*m_model));
    Plot().SetStyle(m_window->parentWidget() ? ScreenStyle(*m_window) : PaperStyle(1.0));
}

void CQCustomPlotChart::CopyMetafile(CChartSize size) {
    if (!Exists()) return;
    auto data = ChartForClipboard(MetafileOf(Plot(), size), PreviewOf(Plot(), size));
    QGuiApplication::clipboard()->setMimeData(data.release());
}

ks::CWriteResult CQCustomPlotChart::ExportMetafile(CChartSize size, const std::string& path) {
    return Exists() ? ks::WriteFile(path, MetafileOf(Plot(), size)) : ks::CWriteResult::NotOpened;
}

ks::CWriteResult CQCustomPlotChart::ExportBitmap(CChartSize size, const std::string& path) {
    if (!Exists()) return ks::CWriteResult::NotOpened;
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    PictureOf(Plot(), size).save(&file, "BMP");
    return ks::WriteFile(path, std::string_view(file.data().constData(), static_cast<std::size_t>(file.size())));
}

void CQCustomPlotChart::Resized(std::int32_t width, std::int32_t height) {
    if (Exists()) m_window->setGeometry(0, 0, width, height);
}

void CQCustomPlotChart::PaintOnto(QPainter& painter, const QRectF& area) {
    if (Exists()) PaintOnPaper(Plot(), painter, area);
}

CPlotWidget& CQCustomPlotChart::Plot() const {
    return static_cast<CPlotWidget&>(*m_window);
}
