#include "app/number_field.h"

#include <fast_float/fast_float.h>

#include <QCoreApplication>
#include <QFontMetrics>
#include <QLineEdit>
#include <cmath>
#include <system_error>

#include "app/messages.h"
#include "files/number_text.h"

std::optional<double> NumberFromText(QStringView text) {
    const QByteArray bytes = text.trimmed().toUtf8();
    const char* const end = bytes.constData() + bytes.size();
    const char* begin = bytes.constData();
    if (bytes.startsWith('+') && !bytes.startsWith("+-")) ++begin;
    double value = 0.0;
    const auto result = fast_float::from_chars(begin, end, value);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

QString NumberText(double value) {
    return QString::fromStdString(ks::ShortestText(value));
}

std::optional<double> ReadNumberField(QLineEdit& field, CMessages& messages) {
    if (const auto value = NumberFromText(field.text())) return value;
    //: %1 is the name of the field, for example Min Time
    const QString text = QCoreApplication::translate(
        "CNumberField", "\"%1\" needs a number, with a point before its decimals, for example 0.25.");
    messages.ShowError(field.window(), text.arg(field.accessibleName()));
    field.setFocus();
    field.selectAll();
    return std::nullopt;
}

void FitNumberField(QLineEdit& field) {
    const QFontMetrics metrics = field.fontMetrics();
    const int frameAndMargins = metrics.height();
    field.setMinimumWidth(metrics.horizontalAdvance(QStringLiteral("-0.30000001192092896")) + frameAndMargins);
}
