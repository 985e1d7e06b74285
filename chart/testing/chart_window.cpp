#include "chart/testing/chart_window.h"

#include "chart/chart_sequences.h"
#include "chart/line_look.h"
#include "chart/make_chart.h"
#include "chart/testing/sample_blocks.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QPalette>
#include <QPixmap>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>

#include <clocale>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

namespace {

constexpr std::int32_t kAllThick = 3;      // line style mode
constexpr std::int32_t kThickestLine = 6;  // the line style of that mode

}  // namespace

CSamplePage FlatPage(std::int32_t seriesCount) {
    return SamplePage(seriesCount, 101, 5.0, 6.0, [](int series, double) { return series + 1.0; });
}

QRgb SeriesColor(std::size_t series, CChartBackground background) {
    return 0xFF000000U | LookOfLine(kThickestLine, series, background).rgb;
}

QRect BoxOfColor(const QImage& image, QRgb color, const QRect& part) {
    QRect box;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            if (image.pixel(x, y) == color) box |= QRect(x, y, 1, 1);
    }
    return box;
}

bool IsNear(double actual, double expected, double tolerance) {
    return std::abs(actual - expected) <= tolerance;
}

CChartWindowTest::CChartWindowTest() {
    std::setlocale(LC_NUMERIC, "C");  // as the program does after its QApplication is made
}

CChartWindowTest::~CChartWindowTest() = default;

void CChartWindowTest::Show(const CSamplePage& page) {
    Close();
    m_window = std::make_unique<CParentWindow>();
    m_window->resize(kWindow.width, kWindow.height);
    QPalette light;
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::Text, Qt::black);
    m_window->setPalette(light);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_chart = MakeChartControl([this](const QString& text) { m_readouts.append(text); });
    ShowAgain(page);
}

void CChartWindowTest::ShowThick(CSamplePage page) {
    page.block.lineStyleMode = kAllThick;
    Show(page);
}

void CChartWindowTest::ShowAgain(const CSamplePage& page) {
    CLineStyles styles;
    ShowChart(*m_chart, m_window.get(), kWindow, SharedBlock(page), page.names, styles);
}

void CChartWindowTest::Close() {
    m_chart.reset();
    m_window.reset();
    m_readouts.clear();
}

QWidget& CChartWindowTest::Plot() const {
    return *m_window->findChild<QWidget*>("chart");
}

QImage CChartWindowTest::Picture() const {
    QCoreApplication::processEvents();  // a replot may be queued
    return m_window->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void CChartWindowTest::Move(const QPointF& to, Qt::MouseButtons buttons) {
    QMouseEvent move(QEvent::MouseMove, to, Plot().mapToGlobal(to), Qt::NoButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(&Plot(), &move);
}

void CChartWindowTest::Wheel(int clicks, const QPointF& at) {
    QWheelEvent wheel(at, Plot().mapToGlobal(at), {}, {0, 120 * clicks}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Plot(), &wheel);
}

void CChartWindowTest::DoubleClick() {
    QTest::mouseDClick(&Plot(), Qt::LeftButton, {}, kMiddle.toPoint());
}

QString CChartWindowTest::ReadoutAt(const QPointF& place) {
    m_readouts.clear();
    Move(place);
    return m_readouts.isEmpty() ? QString() : m_readouts.last();
}

QPointF CChartWindowTest::DataAt(const QPointF& place) {
    static const QRegularExpression form("^X: (\\S+)   Y: (\\S+)$");
    const QRegularExpressionMatch match = form.match(ReadoutAt(place));
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    if (!match.hasMatch()) return {kNone, kNone};
    return {match.captured(1).toDouble(), match.captured(2).toDouble()};
}

QPointF CChartWindowTest::Resolution() {
    const QPointF difference = DataAt({400, 150}) - DataAt({200, 350});
    return {difference.x() / 200.0, difference.y() / 200.0};
}

QPointF CChartWindowTest::PlaceOf(const QPointF& data) {
    const QPointF from = DataAt(kMiddle);
    const QPointF resolution = Resolution();
    return {kMiddle.x() + (data.x() - from.x()) / resolution.x(), kMiddle.y() - (data.y() - from.y()) / resolution.y()};
}

void CChartWindowTest::CheckAllShown() {
    const QPointF resolution = Resolution();
    const QPointF start = PlaceOf({5.0, 1.0});
    QVERIFY(start.x() > 20.0 && start.x() < 120.0);
    const QPointF end = PlaceOf({6.0, 3.0});
    QVERIFY(end.x() > 560.0 && end.x() < 800.0);
    QVERIFY(IsNear(resolution.x() * (end.x() - start.x()), 1.0, 1e-3));
    QVERIFY(end.y() > 15.0 && start.y() < 470.0 && start.y() - end.y() > 300.0);
}
