#include "compare/plots/plot.h"

#include "compare/signal.h"
#include "files/path_text.h"
#include "signal/column.h"
#include "signal/nsignal.h"

#include <algorithm>
#include <string>
#include <vector>

bool CPlot::BuildSeries(std::vector<CSignal>& /*computed*/, const ks::CNSignal& /*reference*/, CSeriesList& series,
                        std::vector<std::string>& names) {
    series.clear();
    names.clear();
    return true;
}

void CPlot::GetAxisTitles(std::string& xTitle, std::string& yTitle) const {
    xTitle.clear();
    yTitle.clear();
}

bool HaveDifferentRanges(const ks::CNSignal& a, const ks::CNSignal& b) {
    const ks::CColumn& ax = a.GetX();
    const ks::CColumn& bx = b.GetX();
    if (ax.empty() || bx.empty()) return false;
    return !(ax.front() == bx.front() && ax.back() == bx.back());
}

bool CommonRange(ks::CNSignal& a, ks::CNSignal& b) {
    if (!HaveDifferentRanges(a, b)) return true;
    const double start = std::max(a.GetX().front(), b.GetX().front());
    const double stop = std::min(a.GetX().back(), b.GetX().back());
    a.TruncateByTime(start, stop);
    b.TruncateByTime(start, stop);
    return true;
}

std::string LegendName(const CSignal& computed) {
    return std::string(ks::FileNameOf(computed.GetPath()));
}
