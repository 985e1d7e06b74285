#include "app/dialogs/number_field.h"

#include "app/message_box.h"
#include "app/messages.h"
#include "files/number_text.h"

#include <QFontMetrics>
#include <QLineEdit>

#include <cstddef>
#include <optional>

std::optional<double> NumberFromText(QStringView text) {
    const QByteArray bytes = text.trimmed().toUtf8();
    return ks::ReadWholeNumber({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

QString NumberText(double value) {
    return QString::fromStdString(ks::ShortestText(value));
}

std::optional<double> ReadNumberField(QLineEdit& field, CMessages& messages) {
    if (const auto value = NumberFromText(field.text())) return value;
    messages.ShowError(field.window(), app_message::NotANumber(field.accessibleName()));
    field.setFocus();
    field.selectAll();
    return std::nullopt;
}

void FitNumberField(QLineEdit& field) {
    const QFontMetrics metrics = field.fontMetrics();
    const int frameAndMargins = metrics.height();
    field.setMinimumWidth(metrics.horizontalAdvance(QStringLiteral("-0.30000001192092896")) + frameAndMargins);
}
