#pragma once

#include <QString>
#include <QStringView>

#include <optional>

class CMessages;
class QLineEdit;

/// The finite number that all of `text` forms, ignoring blanks around it; the decimal point is "." in every locale.
/// No value for anything else: an empty text, "nan", "inf", a number beyond the range of a double.
std::optional<double> NumberFromText(QStringView text);

/// The shortest text that reads back to the same number.
QString NumberText(double value);

/// The number in `field`. If there is none, shows a message, selects the text, moves the focus to the field, and
/// returns no value.
std::optional<double> ReadNumberField(QLineEdit& field, CMessages& messages);

/// Makes `field` wide enough for the shortest text of any number.
void FitNumberField(QLineEdit& field);
