#include "chart/legend_layout.h"

#include <algorithm>
#include <cmath>

namespace {

CLegendLayout LayOutAt(const CLegendSpace& space, double letterScale) {
    const double columnWidth = std::min(space.columnWidth * letterScale, space.width);
    const int rowsThatFit = std::max(1, static_cast<int>(space.height / (space.rowHeight * letterScale)));
    const int columnsThatFit = std::max(1, static_cast<int>(space.width / columnWidth));
    const int columnsWanted = (space.entryCount + rowsThatFit - 1) / rowsThatFit;
    const int columns = std::min(columnsThatFit, columnsWanted);
    const int rows = std::min(rowsThatFit, (space.entryCount + columns - 1) / columns);
    const int places = columns * rows;
    const int shown = space.entryCount <= places ? space.entryCount : places - 1;
    return {columns, rows, shown, letterScale, columnWidth};
}

}  // namespace

CLegendLayout LayOutLegend(const CLegendSpace& space) {
    CLegendLayout layout;
    if (space.entryCount <= 0 || !(space.width > 0.0)) return layout;
    for (const double letterScale : {1.0, 0.85, 0.7}) {
        layout = LayOutAt(space, letterScale);
        const bool isWhole = layout.columnWidth == space.columnWidth * letterScale;
        if (isWhole && layout.shownEntries == space.entryCount) return layout;
    }
    return layout;
}
