#include "viewer/page.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kUnitsPerInch = 600.0;  // of the layout
constexpr double kPointsPerInch = 72.0;
constexpr double kLeading = 1.12;  // from line to line, in heights of the letters
constexpr double kRuleWidth = 0.75 / kPointsPerInch;

// Most printers reach to within a quarter of an inch of the edge.
constexpr double kTopMargin = 0.25;
constexpr double kSideMargin = 0.6;
constexpr double kFooterHeight = 0.2;  // a line of its letters

// Between header and footer.
constexpr double kFirstBodyRow = 0.95;
constexpr double kLastBodyRow = 10.15;

// The smallest paper on which a page has its natural size: A4 upright sets the width, and on shorter paper than this
// the title and header lines would touch.
constexpr QSizeF kSmallestPaper{8.2, 6.0};

QPointF Units(QPointF inches) {
    return inches * kUnitsPerInch;
}

}  // namespace

QString Printable(QString text) {
    for (QChar& character : text)
        if (character.category() == QChar::Other_Control) character = QLatin1Char(' ');
    return text;
}

QFont CPrintFont::Font() const {
    QFont font(QStringLiteral("Times New Roman"));
    font.setStyleHint(QFont::Serif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);  // widths are then the same on every device
    font.setPixelSize(static_cast<int>(std::lround(points / kPointsPerInch * kUnitsPerInch)));
    font.setBold(isBold);
    return font;
}

double CPrintFont::LineHeight() const {
    return QFontMetricsF(Font()).height() * kLeading / kUnitsPerInch;
}

double CPrintFont::Width(const QString& text) const {
    return QFontMetricsF(Font()).horizontalAdvance(Printable(text)) / kUnitsPerInch;
}

QStringList CPrintFont::Lines(const QString& text, double width) const {
    const QString printable = Printable(text);
    QTextLayout layout(printable, Font());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width * kUnitsPerInch);
        lines.append(printable.mid(line.textStart(), line.textLength()));
    }
    layout.endLayout();
    if (lines.isEmpty()) lines.append(QString());
    return lines;
}

CPage::CPage(QSizeF paper)
    : m_scale(std::min({1.0, paper.width() / kSmallestPaper.width(), paper.height() / kSmallestPaper.height()})),
      m_size(paper / m_scale) {}

double CPage::RowTop(double row) const {
    return kTopMargin + row * (m_size.height() - 2.0 * kTopMargin - kFooterHeight) / kFooterRow;
}

QRectF CPage::Body() const {
    const double belowHeader = RowTop(kHeaderRow) + kTitleFont.LineHeight();  // matters on short paper
    return {QPointF(kSideMargin, std::max(RowTop(kFirstBodyRow), belowHeader)),
            QPointF(m_size.width() - kSideMargin, RowTop(kLastBodyRow))};
}

void CPage::AddText(QPointF place, const QString& text, const CPrintFont& font) {
    m_texts.push_back({place, Printable(text), font});
}

void CPage::AddLine(double row, Qt::AlignmentFlag alignment, const QString& text, const CPrintFont& font) {
    const double room = m_size.width() - 2.0 * kSideMargin - font.Width(text);
    const double share = alignment == Qt::AlignLeft ? 0.0 : alignment == Qt::AlignRight ? 1.0 : 0.5;
    AddText({kSideMargin + room * share, RowTop(row)}, text, font);
}

void CPage::AddRule(QPointF from, QPointF to) {
    m_rules.push_back({from, to});
}

void CPage::AddPicture(const QRectF& area, Picture picture) {
    m_pictures.push_back({area, std::move(picture)});
}

void CPage::Paint(QPainter& painter) const {
    painter.save();
    painter.scale(painter.device()->logicalDpiX() / kUnitsPerInch * m_scale,
                  painter.device()->logicalDpiY() / kUnitsPerInch * m_scale);
    for (const CPicture& picture : m_pictures)
        picture.paint(painter, {Units(picture.area.topLeft()), Units(picture.area.bottomRight())});
    painter.setPen(QPen(Qt::black, kRuleWidth * kUnitsPerInch, Qt::SolidLine, Qt::FlatCap));
    for (const CRule& rule : m_rules) painter.drawLine(Units(rule.from), Units(rule.to));
    for (const CText& text : m_texts) {
        const QFont font = text.font.Font();
        painter.setFont(font);
        painter.drawText(Units(text.place) + QPointF(0.0, QFontMetricsF(font).ascent()), text.text);
    }
    painter.restore();
}
