#pragma once

#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class QPainter;

/// The text with a blank in place of each control character.
QString Printable(QString text);

/// The font of a printed text. Sizes on paper do not depend on the device: fonts are sized in pixels of the layout,
/// so that screen, printer, and file break lines at the same places.
struct CPrintFont {
    double points = 10.0;
    bool isBold = false;

    [[nodiscard]] QFont Font() const;
    /// Height of a line and width of a text, in inches.
    [[nodiscard]] double LineHeight() const;
    [[nodiscard]] double Width(const QString& text) const;
    /// The text in lines of at most `width` inches, broken between words, or within a word that is too long. At least
    /// one line. Control characters become blanks.
    [[nodiscard]] QStringList Lines(const QString& text, double width) const;
};

/// Fonts of the header, the footer, the groups and the fields.
inline constexpr CPrintFont kTitleFont{16.0, false};
inline constexpr CPrintFont kFooterFont{12.0, false};
inline constexpr CPrintFont kGroupFont{11.0, true};
inline constexpr CPrintFont kFieldFont{10.0, false};

/// One sheet of paper: what is where, in inches from its upper left corner. Rows are page units: row 0 is the
/// title's line, row kFooterRow the footer's; on paper 11 inches high a row is one inch, on other paper in proportion.
///
/// On paper narrower or shorter than usual, the same page is drawn smaller: Size() is then larger than the paper.
class CPage {
public:
    /// @param paper  width and height in inches, both > 0
    explicit CPage(QSizeF paper);

    static constexpr double kHeaderRow = 0.5;
    static constexpr double kFooterRow = 10.3;

    [[nodiscard]] QSizeF Size() const { return m_size; }
    /// How much smaller the page is drawn: 1 on usual paper.
    [[nodiscard]] double Scale() const { return m_scale; }
    [[nodiscard]] double RowTop(double row) const;
    /// The area between header and footer, for the groups.
    [[nodiscard]] QRectF Body() const;

    /// One line of text whose box begins at `place`.
    void AddText(QPointF place, const QString& text, const CPrintFont& font);
    /// A text in the line at `row`, at the left or right margin or between them.
    void AddLine(double row, Qt::AlignmentFlag alignment, const QString& text, const CPrintFont& font);
    /// A thin line.
    void AddRule(QPointF from, QPointF to);
    /// Something that paints itself into `area`, whose coordinates are those of the painter it is given.
    using Picture = std::function<void(QPainter& painter, const QRectF& area)>;
    void AddPicture(const QRectF& area, Picture picture);

    /// Paints the page onto a printer, a file or a preview; the painter's origin is the paper's corner.
    void Paint(QPainter& painter) const;

private:
    struct CText {
        QPointF place;
        QString text;
        CPrintFont font;
    };
    struct CRule {
        QPointF from, to;
    };
    struct CPicture {
        QRectF area;
        Picture paint;
    };

    double m_scale = 1.0;
    QSizeF m_size;
    std::vector<CText> m_texts;
    std::vector<CRule> m_rules;
    std::vector<CPicture> m_pictures;
};
