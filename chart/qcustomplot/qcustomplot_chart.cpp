#include "chart/qcustomplot/qcustomplot_chart.h"

#include <qcustomplot.h>

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QPicture>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>
#include <vector>

#include "chart/chart_clipboard.h"
#include "chart/chart_model.h"
#include "chart/chart_style.h"
#include "chart/legend_layout.h"
#include "chart/metafile/metafile_device.h"
#include "chart/metafile/plane_geometry.h"
#include "chart/view_range.h"

/// One curve, its points in the form QCustomPlot draws; shared by the window and every export.
struct CPlotCurve {
    QString name;
    int lineStyle = 0;
    QSharedPointer<QCPGraphDataContainer> byX;      ///< x never falls: the fast way
    QSharedPointer<QCPCurveDataContainer> byOrder;  ///< set instead when x falls somewhere
    bool onePoint = false;
};

struct CPlotContents {
    QString xTitle, yTitle, mainTitle, subTitle;
    std::vector<CPlotCurve> curves;
    CViewRange xHome, yHome;
};

namespace {

constexpr double kXMargin = 0.0;
constexpr double kYMargin = 0.05;
constexpr double kLargestLegendShare = 0.4;  // of the chart's width
constexpr double kLargestNameShare = 0.25;
constexpr double kUsualName = 16.0;  // characters
constexpr double kRowHeight = 1.1;   // of the legend, in heights of its letters
constexpr int kMostXTicks = 7;
constexpr int kMostYTicks = 8;
constexpr double kKeyZoom = 0.8;
constexpr double kKeyPan = 0.1;
constexpr double kPrintScale = 3.0;    // 288 dots per inch: finer than the eye tells curves apart
constexpr double kPaperWidth = 800.0;  // pixels: proportion of letters to the whole of an exported chart
constexpr double kPixelsPerInch = 96.0;

QString Text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QString Translated(const char* text) {
    return QCoreApplication::translate("CQCustomPlotChart", text);
}

CPlotCurve Curve(const CChartModel& model, std::size_t series, CDataRange& xRange, CDataRange& yRange) {
    QVector<QCPGraphData> points;
    points.reserve(static_cast<qsizetype>(model.X(series).size()));
    bool rises = true;
    model.ForEachPoint(series, [&](double x, double y) {
        rises = rises && (points.isEmpty() || points.back().key <= x);
        points.append(QCPGraphData(x, y));
        xRange.Add(x);
        if (!std::isnan(y)) yRange.Add(y);
    });

    CPlotCurve curve;
    curve.name = Text(model.Name(series));
    if (curve.name.isEmpty()) curve.name = Translated("Curve %1").arg(series + 1);
    curve.lineStyle = model.LineStyle(series);
    curve.onePoint = points.size() == 1;
    if (rises) {
        curve.byX = QSharedPointer<QCPGraphDataContainer>::create();
        curve.byX->set(points, true);
        return curve;
    }
    QVector<QCPCurveData> inOrder;
    inOrder.reserve(points.size());
    for (const QCPGraphData& point : points)
        inOrder.append(QCPCurveData(static_cast<double>(inOrder.size()), point.key, point.value));
    curve.byOrder = QSharedPointer<QCPCurveDataContainer>::create();
    curve.byOrder->set(inOrder, true);
    return curve;
}

std::shared_ptr<const CPlotContents> Contents(const CChartModel& model) {
    auto contents = std::make_shared<CPlotContents>();
    CDataRange xRange;
    CDataRange yRange;
    for (std::size_t series = 0; series < model.SeriesCount(); ++series)
        contents->curves.push_back(Curve(model, series, xRange, yRange));
    contents->xHome = RangeToShow(xRange, kXMargin);
    contents->yHome = RangeToShow(yRange, kYMargin);
    contents->xTitle = Text(model.XTitle());
    contents->yTitle = Text(model.YTitle());
    contents->mainTitle = Text(model.MainTitle());
    contents->subTitle = Text(model.SubTitle());
    return contents;
}

QCPRange Range(const CViewRange& range) {
    return {range.lower, range.upper};
}
CViewRange Range(const QCPRange& range) {
    return {range.lower, range.upper};
}

/// The names beside the curves, in as many columns as they need; scrolls when there are more than room.
class CLegendElement : public QCPLayoutElement {
public:
    explicit CLegendElement(QCustomPlot* plot) : QCPLayoutElement(plot) { setLayer("legend"); }

    void SetEntries(std::vector<std::pair<QString, QPen>> entries, const CChartStyle& style) {
        m_entries = std::move(entries);
        m_style = style;
        Scroll(0);
    }

    void Scroll(int entries) {
        const int last = std::max(0, static_cast<int>(m_entries.size()) - m_layout.shownEntries);
        m_first = std::clamp(m_first + entries, 0, last);
    }

    [[nodiscard]] const CLegendLayout& Layout() const { return m_layout; }

    /// The whole name of the entry at a place; empty beside the entries.
    [[nodiscard]] QString NameAt(const QPointF& position) const {
        for (int place = 0; place < m_layout.shownEntries; ++place)
            if (Place(place).contains(position)) return m_entries[Index(place)].first;
        return {};
    }

    void update(UpdatePhase phase) override {
        if (phase == upPreparation) LayOut();
        QCPLayoutElement::update(phase);
    }
    [[nodiscard]] QSize minimumOuterSizeHint() const override { return {OuterWidth(), 0}; }
    [[nodiscard]] QSize maximumOuterSizeHint() const override { return {OuterWidth(), QWIDGETSIZE_MAX}; }

    /// Follows the plot's viewport.
    void LayOut() {
        m_layout = CLegendLayout();  // full letters for the measuring
        const QFontMetricsF metrics(m_style.font);
        const double plotWidth = parentPlot()->viewport().width();
        double widest = 0.0;
        for (const auto& entry : m_entries) widest = std::max(widest, metrics.horizontalAdvance(entry.first));
        CLegendSpace space;
        space.entryCount = static_cast<int>(m_entries.size());
        space.rowHeight = metrics.height() * kRowHeight;
        const double longestName = std::max(plotWidth * kLargestNameShare, metrics.averageCharWidth() * kUsualName);
        space.columnWidth = std::ceil(SampleWidth() + 3.0 * Gap() + std::min(widest, longestName));
        space.height = parentPlot()->viewport().height() - HeightAbove();
        space.width = plotWidth * kLargestLegendShare;
        m_layout = LayOutLegend(space);
        Scroll(0);
    }

    [[nodiscard]] int OuterWidth() const {
        return static_cast<int>(std::ceil(m_layout.columns * m_layout.columnWidth)) + margins().right();
    }

protected:
    void draw(QCPPainter* painter) override {
        painter->setFont(Letters());
        for (int place = 0; place < m_layout.shownEntries; ++place) DrawEntry(*painter, place);
        const auto hidden = static_cast<int>(m_entries.size()) - m_layout.shownEntries;
        if (hidden <= 0) return;
        painter->setPen(m_style.ink);
        //: The legend has no room for all names.
        const QString note = QCoreApplication::translate("CQCustomPlotChart", "and %n more", nullptr, hidden);
        painter->drawText(Place(m_layout.shownEntries), Qt::AlignLeft | Qt::AlignVCenter, note);
    }

    void wheelEvent(QWheelEvent* event) override {
        const int degrees = event->angleDelta().y();
        if (degrees != 0) Scroll(degrees > 0 ? -m_layout.rows : m_layout.rows);
        event->accept();
        parentPlot()->replot(QCustomPlot::rpQueuedReplot);
    }

private:
    [[nodiscard]] double SampleWidth() const { return 30.0 * m_style.scale * m_layout.letterScale; }
    [[nodiscard]] double Gap() const { return 6.0 * m_style.scale * m_layout.letterScale; }
    [[nodiscard]] std::size_t Index(int place) const { return static_cast<std::size_t>(m_first + place); }

    [[nodiscard]] QFont Letters() const {
        QFont font = m_style.font;
        if (font.pixelSize() > 0)
            font.setPixelSize(std::max(1, qRound(font.pixelSize() * m_layout.letterScale)));
        else
            font.setPointSizeF(font.pointSizeF() * m_layout.letterScale);
        return font;
    }

    /// Of the titles, which take the rows above in the chart's layout.
    [[nodiscard]] double HeightAbove() const {
        double height = 2.0 * m_style.Length(6);
        QCPLayoutGrid& grid = *parentPlot()->plotLayout();
        for (int row = 0; row + 1 < grid.rowCount(); ++row)
            if (grid.hasElement(row, 0)) height += grid.element(row, 0)->minimumOuterSizeHint().height();
        return height;
    }

    [[nodiscard]] QRectF Place(int place) const {
        const double rowHeight = QFontMetricsF(Letters()).height() * kRowHeight;
        const int column = place / m_layout.rows;
        const int row = place % m_layout.rows;
        return {rect().left() + column * m_layout.columnWidth, rect().top() + row * rowHeight, m_layout.columnWidth,
                rowHeight};
    }

    void DrawEntry(QCPPainter& painter, int place) {
        const auto& [name, pen] = m_entries[Index(place)];
        const QRectF box = Place(place).adjusted(Gap(), 0.0, -Gap(), 0.0);
        painter.setPen(pen);
        painter.drawLine(QLineF(box.left(), box.center().y(), box.left() + SampleWidth(), box.center().y()));
        painter.setPen(m_style.ink);
        const QRectF letters = box.adjusted(SampleWidth() + Gap(), 0.0, 0.0, 0.0);
        const QFontMetricsF metrics(Letters());
        const QString shown = metrics.horizontalAdvance(name) <= letters.width() + 1.0
                                  ? name
                                  : metrics.elidedText(name, Qt::ElideMiddle, letters.width());
        painter.drawText(letters, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, shown);
    }

    std::vector<std::pair<QString, QPen>> m_entries;
    CChartStyle m_style;
    CLegendLayout m_layout;
    int m_first = 0;
};

/// Draws dashes line by line, which on the screen is many times faster than a dashed pen along a long curve.
class CDashedGraph : public QCPGraph {
public:
    using QCPGraph::QCPGraph;

protected:
    void drawLinePlot(QCPPainter* painter, const QVector<QPointF>& lines) const override {
        if (mPen.style() == Qt::SolidLine || painter->modes().testFlag(QCPPainter::pmVectorized)) {
            QCPGraph::drawLinePlot(painter, lines);
            return;
        }
        std::vector<CPlanePoint> points;
        points.reserve(static_cast<std::size_t>(lines.size()));
        for (const QPointF& point : lines) points.push_back({point.x(), point.y()});
        std::vector<double> pattern;
        for (const double length : mPen.dashPattern()) pattern.push_back(length * mPen.widthF());
        QPen pen = mPen;
        pen.setStyle(Qt::SolidLine);
        painter->setPen(pen);
        applyDefaultAntialiasingHint(painter);
        const QRectF clip(clipRect());
        const CPlaneBox box{clip.left(), clip.top(), clip.right(), clip.bottom()};
        for (const CPolyline& dash : VisibleDashes(points, box, pattern))
            for (std::size_t index = 1; index < dash.size(); ++index)
                painter->drawLine(QLineF(dash[index - 1].x, dash[index - 1].y, dash[index].x, dash[index].y));
    }
};

}  // namespace

/// The plot itself: on the screen, or never shown and painted onto something else.
class CPlotWidget final : public QCustomPlot {
public:
    explicit CPlotWidget(QWidget* parent) : QCustomPlot(parent) {
        setObjectName("chart");
        setAccessibleName(Translated("Chart"));
        setFocusPolicy(Qt::StrongFocus);
        setAttribute(Qt::WA_NoMousePropagation, false);  // the context menu is the parent's
        setPlottingHints(QCP::phFastPolylines);
        setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
        QLocale numbers = QLocale::c();  // as in tables, dialogs and reports, and the same on every machine
        numbers.setNumberOptions(QLocale::OmitGroupSeparator);
        setLocale(numbers);
        axisRect()->setupFullAxesBox(true);
        xAxis2->setTicker(xAxis->ticker());
        yAxis2->setTicker(yAxis->ticker());
        axisRect()->setRangeZoomFactor(kKeyZoom, kKeyZoom);
        for (QCPAxis* axis : {xAxis, yAxis}) {
            axis->setNumberFormat("gbc");
            connect(axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
                    [this, axis](const QCPRange& range) { LimitRange(*axis, range); });
        }
        connect(this, &QCustomPlot::beforeReplot, this, [this] { FitTicks(); });
        connect(this, &QCustomPlot::mouseDoubleClick, this, [this](const QMouseEvent* event) {
            if (event->button() == Qt::LeftButton) ResetZoom();
        });
        m_legend = new CLegendElement(this);  // the layout owns it
        plotLayout()->addElement(0, 1, m_legend);
        plotLayout()->setColumnStretchFactor(1, 0.001);
    }

    std::function<void(const QString&)> showReadout;

    void SetContents(std::shared_ptr<const CPlotContents> contents) {
        m_contents = std::move(contents);
        clearPlottables();
        for (const CPlotCurve& curve : m_contents->curves) AddCurve(curve);
        xAxis->setLabel(m_contents->xTitle);
        yAxis->setLabel(m_contents->yTitle);
        AddTitles();
        setAccessibleDescription(Description());
        ShowAll();
    }

    void SetStyle(const CChartStyle& style) {
        m_style = style;
        setBackground(QBrush(style.background));
        for (QCPAxis* axis : axisRect()->axes()) StyleAxis(*axis);
        const int edge = style.Length(6);
        plotLayout()->setColumnSpacing(0);
        plotLayout()->setRowSpacing(style.Length(2));
        axisRect()->setMargins(QMargins(edge, edge, edge, edge));
        axisRect()->setMinimumMargins(QMargins(edge, style.Length(10), style.Length(16), edge));
        m_legend->setMargins(QMargins(0, style.Length(10), edge, 0));
        StyleCurves();
        for (QCPTextElement* title : m_titles) {
            title->setTextColor(style.ink);
            QFont font = style.font;
            font.setBold(title == m_titles.front());
            title->setFont(font);
        }
    }

    void CopyView(const CPlotWidget& other) {
        xAxis->setRange(other.xAxis->range());
        yAxis->setRange(other.yAxis->range());
    }

    void ResetZoom() {
        ShowAll();
        replot(rpQueuedReplot);
    }

    void PaintInto(QPaintDevice& device, CChartSize size, QCPPainter::PainterModes modes) {
        setViewport(QRect(0, 0, size.width, size.height));
        FitTicks();
        QCPPainter painter(&device);
        painter.setModes(modes);
        toPainter(&painter, size.width, size.height);
    }

protected:
    void changeEvent(QEvent* event) override {
        QCustomPlot::changeEvent(event);
        const bool looksDifferent = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange ||
                                    event->type() == QEvent::StyleChange;
        if (!looksDifferent || !parentWidget()) return;
        SetStyle(ScreenStyle(*this));
        replot(rpQueuedReplot);
    }

    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
            case Qt::Key_Plus:
            case Qt::Key_Equal:
                ZoomBy(kKeyZoom);
                break;
            case Qt::Key_Minus:
                ZoomBy(1.0 / kKeyZoom);
                break;
            case Qt::Key_Left:
                PanBy(*xAxis, -kKeyPan);
                break;
            case Qt::Key_Right:
                PanBy(*xAxis, kKeyPan);
                break;
            case Qt::Key_Down:
                PanBy(*yAxis, -kKeyPan);
                break;
            case Qt::Key_Up:
                PanBy(*yAxis, kKeyPan);
                break;
            case Qt::Key_0:
            case Qt::Key_Home:
                ShowAll();
                break;
            case Qt::Key_PageDown:
                m_legend->Scroll(m_legend->Layout().rows);
                break;
            case Qt::Key_PageUp:
                m_legend->Scroll(-m_legend->Layout().rows);
                break;
            default:
                QCustomPlot::keyPressEvent(event);
                return;
        }
        replot(rpQueuedReplot);
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        QCustomPlot::mouseMoveEvent(event);
        if (showReadout) showReadout(ReadoutAt(event->position()));
    }

    void leaveEvent(QEvent* event) override {
        QCustomPlot::leaveEvent(event);
        if (showReadout) showReadout({});
    }

    bool event(QEvent* event) override {
        if (event->type() != QEvent::ToolTip) return QCustomPlot::event(event);
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), m_legend->NameAt(help->pos()), this);
        return true;
    }

    void paintEvent(QPaintEvent* event) override {
        QCustomPlot::paintEvent(event);
        if (!hasFocus()) return;
        // Not the style's focus frame: some styles fill what is inside with a tint.
        QPainter painter(this);
        for (const QRect& edge : QRegion(rect()) - QRegion(rect().adjusted(1, 1, -1, -1)))
            painter.fillRect(edge, palette().highlight());
    }

private:
    void AddCurve(const CPlotCurve& curve) {
        if (curve.byX) {
            auto* graph = new CDashedGraph(xAxis, yAxis);  // the plot owns it
            graph->setData(curve.byX);
            if (curve.onePoint) graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, 6.0));
            return;
        }
        auto* drawn = new QCPCurve(xAxis, yAxis);  // the plot owns it
        drawn->setData(curve.byOrder);
    }

    void AddTitles() {
        for (QCPTextElement* title : m_titles) plotLayout()->remove(title);
        m_titles.clear();
        plotLayout()->simplify();
        for (const QString& text : {m_contents->subTitle, m_contents->mainTitle}) {
            if (text.isEmpty()) continue;
            plotLayout()->insertRow(0);
            m_titles.insert(m_titles.begin(), new QCPTextElement(this, text));
            plotLayout()->addElement(0, 0, m_titles.front());
        }
    }

    void StyleAxis(QCPAxis& axis) const {
        const CChartStyle& style = m_style;
        axis.setBasePen(style.Pen(style.ink, 1.0));
        axis.setTickPen(style.Pen(style.ink, 1.0));
        axis.setSubTickPen(style.Pen(style.ink, 1.0));
        axis.setTickLength(style.Length(5));
        axis.setSubTickLength(style.Length(2));
        axis.setTickLabelPadding(style.Length(5));
        axis.setLabelPadding(style.Length(5));
        axis.setTickLabelFont(style.font);
        axis.setLabelFont(style.font);
        axis.setTickLabelColor(style.ink);
        axis.setLabelColor(style.ink);
        axis.grid()->setPen(style.Pen(style.grid, 1.0));
        axis.grid()->setZeroLinePen(style.Pen(style.grid, 2.0));
    }

    /// As many tick labels as stand side by side with room between them.
    void FitTicks() {
        m_legend->LayOut();
        const QFontMetricsF metrics(m_style.font);
        const double beside = metrics.height() * 2.0 + LabelWidth(*yAxis, metrics);
        const double width = viewport().width() - m_legend->OuterWidth() - beside;
        const double height = viewport().height() - metrics.height() * 4.0;
        const auto fitting = [](double room, double label, int most) {
            return std::clamp(static_cast<int>(room / label), 2, most);
        };
        xAxis->ticker()->setTickCount(fitting(width, 2.0 * LabelWidth(*xAxis, metrics), kMostXTicks));
        yAxis->ticker()->setTickCount(fitting(height, 3.0 * metrics.height(), kMostYTicks));
    }

    [[nodiscard]] double LabelWidth(const QCPAxis& axis, const QFontMetricsF& metrics) const {
        const CViewRange range = Range(axis.range());
        const double step = std::pow(10.0, std::floor(std::log10(range.Size() / 5.0)));
        double widest = metrics.horizontalAdvance(QStringLiteral("-0.00"));
        for (const double end : {range.lower, range.upper}) {
            const QString label = locale().toString(std::round(end / step) * step, 'g', LabelDigits(range));
            widest = std::max(widest, metrics.horizontalAdvance(label));
        }
        return widest;
    }

    void StyleCurves() {
        std::vector<std::pair<QString, QPen>> entries;
        for (int index = 0; index < plottableCount(); ++index) {
            const auto series = static_cast<std::size_t>(index);
            const CPlotCurve& curve = m_contents->curves[series];
            entries.emplace_back(curve.name, m_style.CurvePen(curve.lineStyle, series));
            plottable(index)->setPen(entries.back().second);
        }
        m_legend->SetEntries(std::move(entries), m_style);
    }

    [[nodiscard]] QString Description() const {
        QStringList names;
        for (const CPlotCurve& curve : m_contents->curves) names += curve.name;
        //: What a screen reader says about the chart: axis titles and the names of the curves.
        return Translated("%1 over %2. Curves: %3").arg(m_contents->yTitle, m_contents->xTitle, names.join(", "));
    }

    void ShowAll() {
        xAxis->setRange(Range(m_contents->xHome));
        yAxis->setRange(Range(m_contents->yHome));
    }

    void LimitRange(QCPAxis& axis, const QCPRange& range) {
        if (!m_contents) return;
        const CViewRange wanted = Range(range);
        const CViewRange limited = Limited(wanted, &axis == xAxis ? m_contents->xHome : m_contents->yHome);
        axis.setNumberPrecision(LabelDigits(limited));
        if (!(limited == wanted)) axis.setRange(Range(limited));
    }

    void ZoomBy(double factor) {
        for (QCPAxis* axis : {xAxis, yAxis})
            axis->setRange(Range(Zoomed(Range(axis->range()), axis->range().center(), factor)));
    }

    static void PanBy(QCPAxis& axis, double share) { axis.setRange(Range(Panned(Range(axis.range()), share))); }

    [[nodiscard]] QString ReadoutAt(const QPointF& position) const {
        if (!axisRect()->rect().contains(position.toPoint())) return {};
        const auto number = [this](const QCPAxis& axis, double pixel) {
            return locale().toString(axis.pixelToCoord(pixel), 'g', LabelDigits(Range(axis.range())));
        };
        return Translated("X: %1   Y: %2").arg(number(*xAxis, position.x()), number(*yAxis, position.y()));
    }

    std::shared_ptr<const CPlotContents> m_contents;
    CChartStyle m_style;
    CLegendElement* m_legend = nullptr;
    std::vector<QCPTextElement*> m_titles;
};

CQCustomPlotChart::CQCustomPlotChart(QObject* parent)
    : QObject(parent), m_model(std::make_unique<CChartModel>()), m_contents(Contents(*m_model)) {}

CQCustomPlotChart::~CQCustomPlotChart() {
    Destroy();
}

void CQCustomPlotChart::Create(const CChartCreation& creation) {
    Destroy();
    m_model = std::make_unique<CChartModel>();
    m_contents = Contents(*m_model);
    auto* plot = new CPlotWidget(creation.parent);  // until Destroy, or until the parent goes
    m_window = plot;
    plot->SetContents(m_contents);
    plot->SetStyle(creation.parent ? ScreenStyle(*plot) : PaperStyle(1.0));
    plot->showReadout = [this](const QString& text) { emit ReadoutChanged(text); };
    plot->setGeometry(0, 0, creation.clientArea.width, creation.clientArea.height);
    if (creation.parent) plot->show();
}

void CQCustomPlotChart::Destroy() {
    if (!m_window) return;
    const std::unique_ptr<QWidget> gone(m_window.data());
    m_window.clear();
    emit ReadoutChanged({});  // the pointer may rest where the chart was
}

bool CQCustomPlotChart::Exists() const {
    return !m_window.isNull();
}

void CQCustomPlotChart::SetInteger(ChartProperty property, std::int32_t value) {
    m_model->SetInteger(property, value);
}

void CQCustomPlotChart::SetText(ChartProperty property, std::string_view text) {
    m_model->SetText(property, text);
}

void CQCustomPlotChart::SetArray(ChartProperty property, std::span<const double> values) {
    m_model->SetArray(property, values);
}

void CQCustomPlotChart::SetArray(ChartProperty property, std::span<const std::int32_t> values) {
    m_model->SetArray(property, values);
}

void CQCustomPlotChart::SetArray(ChartProperty property, std::string_view texts, std::int32_t count) {
    m_model->SetArray(property, texts, count);
}

void CQCustomPlotChart::ClearArray(ChartProperty property) {
    m_model->ClearArray(property);
}

void CQCustomPlotChart::Draw(std::int32_t, std::int32_t) {
    if (Exists()) Plot()->replot();
}

void CQCustomPlotChart::Apply() {
    if (!Exists()) return;
    m_contents = Contents(*m_model);
    Plot()->SetContents(m_contents);
    Plot()->SetStyle(m_window->parentWidget() ? ScreenStyle(*m_window) : PaperStyle(1.0));
}

void CQCustomPlotChart::CopyMetafile(CChartSize size) {
    if (!Exists()) return;
    constexpr double kPictureScale = 2.0;
    const CChartSize pixels{static_cast<int>(kPaperWidth * kPictureScale),
                            static_cast<int>(kPaperWidth * kPictureScale * size.height / size.width)};
    QImage picture(pixels.width, pixels.height, QImage::Format_RGB32);
    OnPaper(kPictureScale)->PaintInto(picture, pixels, QCPPainter::pmNoCaching);
    QGuiApplication::clipboard()->setMimeData(ChartForClipboard(Metafile(size), picture).release());
}

ks::WriteResult CQCustomPlotChart::ExportMetafile(CChartSize size, const std::string& path) {
    return Exists() ? ks::WriteFile(path, Metafile(size)) : ks::WriteResult::NotOpened;
}

ks::WriteResult CQCustomPlotChart::ExportBitmap(CChartSize size, const std::string& path) {
    if (!Exists()) return ks::WriteResult::NotOpened;
    QImage picture(size.width, size.height, QImage::Format_RGB32);
    OnPaper(size.width / kPaperWidth)->PaintInto(picture, size, QCPPainter::pmNoCaching);
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    picture.save(&file, "BMP");
    return ks::WriteFile(path, std::string_view(file.data().constData(), static_cast<std::size_t>(file.size())));
}

void CQCustomPlotChart::Resized(std::int32_t width, std::int32_t height) {
    if (Exists()) m_window->setGeometry(0, 0, width, height);
}

void CQCustomPlotChart::PaintOnto(QPainter& painter, const QRectF& area) {
    if (!Exists()) return;
    const QRectF onDevice = painter.combinedTransform().mapRect(area);
    const double unitsPerInch = kPixelsPerInch * kPrintScale;
    const CChartSize size{qRound(onDevice.width() / painter.device()->logicalDpiX() * unitsPerInch),
                          qRound(onDevice.height() / painter.device()->logicalDpiY() * unitsPerInch)};
    if (size.width <= 0 || size.height <= 0) return;
    QPicture picture;
    OnPaper(kPrintScale)
        ->PaintInto(picture, size, QCPPainter::pmVectorized | QCPPainter::pmNoCaching | QCPPainter::pmNonCosmetic);
    // A picture played on a device grows with the device's resolution; the area already says how large it is to be.
    const double growthX = static_cast<double>(painter.device()->logicalDpiX()) / picture.logicalDpiX();
    const double growthY = static_cast<double>(painter.device()->logicalDpiY()) / picture.logicalDpiY();
    painter.save();
    painter.translate(area.topLeft());
    painter.scale(area.width() / size.width / growthX, area.height() / size.height / growthY);
    painter.drawPicture(0, 0, picture);
    painter.restore();
}

QWidget* CQCustomPlotChart::Widget() const {
    return m_window.data();
}

void CQCustomPlotChart::ResetZoom() {
    if (Exists()) Plot()->ResetZoom();
}

CPlotWidget* CQCustomPlotChart::Plot() const {
    return static_cast<CPlotWidget*>(m_window.data());
}

std::unique_ptr<CPlotWidget> CQCustomPlotChart::OnPaper(double scale) const {
    auto plot = std::make_unique<CPlotWidget>(nullptr);
    plot->SetContents(m_contents);
    plot->SetStyle(PaperStyle(scale));
    plot->CopyView(*Plot());
    return plot;
}

std::string CQCustomPlotChart::Metafile(CChartSize size) const {
    CMetafileDevice device(size);
    OnPaper(size.width / kPaperWidth)
        ->PaintInto(device, size, QCPPainter::pmVectorized | QCPPainter::pmNoCaching | QCPPainter::pmNonCosmetic);
    return device.Finish();
}
