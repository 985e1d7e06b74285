#include "chart/chart_style.h"

#include "chart/line_look.h"

#include <QList>
#include <QPalette>
#include <QWidget>

#include <cmath>
#include <cstddef>

namespace {

constexpr double kGridShare = 0.16;  // of the ink in the grid's color
constexpr int kPaperLetterPixels = 13;

QColor Mixed(const QColor& ink, const QColor& background, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a * share + b * (1.0 - share))); };
    return {mix(ink.red(), background.red()), mix(ink.green(), background.green()), mix(ink.blue(), background.blue())};
}

}  // namespace

int CChartStyle::Length(double pixels) const {
    return static_cast<int>(std::lround(pixels * scale));
}

QPen CChartStyle::Pen(const QColor& color, double pixels) const {
    QPen pen(color, pixels * scale);
    pen.setCapStyle(Qt::FlatCap);
    return pen;
}

QPen CChartStyle::CurvePen(int lineStyle, std::size_t index) const {
    const CLineLook look = LookOfLine(lineStyle, index, kind);
    QPen pen = Pen(QColor(QRgb(look.rgb)), look.width);
    pen.setJoinStyle(Qt::RoundJoin);
    if (!look.dashes.empty()) pen.setDashPattern(QList<qreal>(look.dashes.begin(), look.dashes.end()));
    return pen;
}

CChartStyle ScreenStyle(const QWidget& widget) {
    CChartStyle style;
    style.background = widget.palette().color(QPalette::Base);
    style.ink = widget.palette().color(QPalette::Text);
    style.grid = Mixed(style.ink, style.background, kGridShare);
    const bool isDark = style.background.lightness() < style.ink.lightness();
    style.kind = isDark ? CChartBackground::Dark : CChartBackground::Light;
    style.font = widget.font();
    return style;
}

CChartStyle PaperStyle(double scale) {
    CChartStyle style;
    style.background = Qt::white;
    style.ink = Qt::black;
    style.grid = Mixed(style.ink, style.background, kGridShare);
    style.font.setFamilies({"Liberation Sans", "Arial", "Helvetica"});
    style.font.setStyleHint(QFont::SansSerif);
    style.font.setPixelSize(static_cast<int>(std::lround(kPaperLetterPixels * scale)));
    style.scale = scale;
    return style;
}
