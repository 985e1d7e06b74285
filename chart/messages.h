#pragma once

#include "widgets/sentence.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <cstddef>

/// The texts that the chart control adds to those of the page, once.
namespace chart_message {

/// What a screen reader calls the chart.
inline constexpr CSentence kChart{QT_TRANSLATE_NOOP("Quorvel", "Chart")};

/// What a screen reader says about the chart.
QString Description(const QString& yTitle, const QString& xTitle, const QStringList& curveNames);
/// Name of a curve that has none; `series` counts from 0.
QString UnnamedCurve(std::size_t series);
/// Last line of a legend that has no room for all names.
QString HiddenEntries(int count);
/// The point under the pointer, in the status bar.
QString Readout(const QString& x, const QString& y);

}  // namespace chart_message
