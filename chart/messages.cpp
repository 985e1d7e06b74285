#include "chart/messages.h"

#include <cstddef>

namespace chart_message {

QString Description(const QString& yTitle, const QString& xTitle, const QStringList& curveNames) {
    //: %1 and %2 are axis titles, %3 the names of the curves
    return QCoreApplication::translate("Quorvel", "%1 over %2. Curves: %3").arg(yTitle, xTitle, curveNames.join(", "));
}

QString UnnamedCurve(std::size_t series) {
    return QCoreApplication::translate("Quorvel", "Curve %1").arg(series + 1);
}

QString HiddenEntries(int count) {
    return QCoreApplication::translate("Quorvel", "and %n more", nullptr, count);
}

QString Readout(const QString& x, const QString& y) {
    return QCoreApplication::translate("Quorvel", "X: %1   Y: %2").arg(x, y);
}

}  // namespace chart_message
