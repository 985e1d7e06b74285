#pragma once

#include "compare/signal.h"
#include "signal/nsignal.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <string>
#include <vector>

/// The curves of a page, and their legend names in the same order.
using CSeriesList = std::vector<boost::shared_ptr<ks::CNSignal>>;

/// Base of every chart page, and the summary page itself, which has no series.
///
/// A page derives its curves from the document's signals. An exception of a signal operation passes out of
/// BuildSeries; the lists then hold what was added before it.
class CPlot {
public:
    CPlot() = default;
    CPlot(const CPlot&) = delete;
    CPlot& operator=(const CPlot&) = delete;
    virtual ~CPlot() = default;

    /// Empties both lists and fills them. Pages that say so cut `computed` permanently to the common range.
    /// @return false when the page has nothing to show
    virtual bool BuildSeries(std::vector<CSignal>& computed, const ks::CNSignal& reference, CSeriesList& series,
                             std::vector<std::string>& names);

    /// Sets both axis titles, after BuildSeries.
    virtual void GetAxisTitles(std::string& xTitle, std::string& yTitle) const;

    /// The page's id, or 0 for the base and the residuals page; kept for programs that link the library.
    [[nodiscard]] std::int32_t GetPageKind() const { return m_pageKind; }

protected:
    explicit CPlot(std::int32_t pageKind) : m_pageKind(pageKind) {}

private:
    std::int32_t m_pageKind = 0;
};

/// Whether the first or the last X values of two records differ. False when either has no X values.
bool HaveDifferentRanges(const ks::CNSignal& a, const ks::CNSignal& b);

/// Cuts both records to their common time range with TruncateByTime where their ranges differ. A record without X
/// values leaves both as they are. Returns true.
/// @throws ks::CError from TruncateByTime
bool CommonRange(ks::CNSignal& a, ks::CNSignal& b);

/// Legend name of a computed signal: the file name of its path, extension included.
std::string LegendName(const CSignal& computed);
