#pragma once

/// Part of an axis, lower <= upper.
struct CViewRange {
    double lower = 0.0;
    double upper = 0.0;
    [[nodiscard]] double Size() const { return upper - lower; }
    bool operator==(const CViewRange&) const = default;
};

/// Collects the smallest range that holds all values.
class CDataRange {
public:
    void Add(double value) {
        if (!(value >= m_range.lower && m_hasValues)) m_range.lower = value;
        if (!(value <= m_range.upper && m_hasValues)) m_range.upper = value;
        m_hasValues = true;
    }
    [[nodiscard]] bool HasValues() const { return m_hasValues; }
    [[nodiscard]] CViewRange Range() const { return m_range; }

private:
    CViewRange m_range;
    bool m_hasValues = false;
};

/// The range an axis shows for data: the data's own, extended by `margin` times its size on both sides; a band around
/// the value when all data are one value; 0 to 1 without data.
CViewRange RangeToShow(const CDataRange& data, double margin);

/// `factor` < 1 shows less, > 1 more; `center` stays where it is.
CViewRange Zoomed(const CViewRange& range, double center, double factor);

/// Moved by `share` of its size.
CViewRange Panned(const CViewRange& range, double share);

/// The nearest range that is neither finer than doubles can resolve nor wider than twenty times `home`, and that still
/// touches `home`.
CViewRange Limited(const CViewRange& range, const CViewRange& home);

/// Significant digits needed for labels a thousandth of the range apart to differ, 6 to 15.
int LabelDigits(const CViewRange& range);
