#pragma once

#include <QString>
#include <QStringView>
#include <optional>

class CMessages;
class QLineEdit;

/// The finite number that the whole of `text` spells, blanks around it aside; the decimal point is "." in every
/// locale. No value for anything else: an empty text, "nan", "inf", a number beyond the range of a double.
std::optional<double> NumberFromText(QStringView text);

/// The shortest text that reads back to the same number.
QString NumberText(double value);

/// The number in `field`. When it holds none, says so, puts the focus there with the text selected, and gives no value.
std::optional<double> ReadNumberField(QLineEdit& field, CMessages& messages);

/// Makes `field` wide enough for any shortest text of a number.
void FitNumberField(QLineEdit& field);
