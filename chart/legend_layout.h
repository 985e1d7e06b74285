#pragma once

/// What a legend has to place and where.
struct CLegendSpace {
    int entryCount = 0;
    double rowHeight = 1.0;    ///< at full letter size
    double columnWidth = 1.0;  ///< of the widest entry at full letter size
    double height = 0.0;
    double width = 0.0;  ///< at most
};

/// Entries run down the columns. If they do not all fit, a note in the last place says how many are missing.
struct CLegendLayout {
    int columns = 0;
    int rows = 0;
    int shownEntries = 0;
    double letterScale = 1.0;  ///< 1.0, 0.85 or 0.7: smaller letters before names are cut or entries left out
    double columnWidth = 0.0;  ///< at that letter size; less if not even one column fits
    bool operator==(const CLegendLayout&) const = default;
};

CLegendLayout LayOutLegend(const CLegendSpace& space);
