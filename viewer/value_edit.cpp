#include "viewer/value_edit.h"

#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace {

constexpr int kLeastCharacters = 12;
constexpr int kBesideText = 8;  // pixels: the line edit's own margins and its cursor

}  // namespace

CValueEdit::CValueEdit(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
    setAcceptDrops(false);  // files dropped on it are the window's
}

void CValueEdit::ShowText(const QString& text) {
    setText(text);
    setCursorPosition(0);
    updateGeometry();
}

QSize CValueEdit::sizeHint() const {
    ensurePolished();
    const QFontMetrics metrics(font());
    const int letters = std::max(metrics.horizontalAdvance(text()), metrics.averageCharWidth() * kLeastCharacters);
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QSize contents(letters + kBesideText, metrics.height());
    const int width = style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, this).width();
    return {width, QLineEdit::sizeHint().height()};
}
