#pragma once

#include "compare/plots/plot.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

/// Which page lists a page is in.
enum class CPageLists {
    Every,              ///< of every run
    OfAccelerations,    ///< only where the reference is an acceleration
    OfOtherQuantities,  ///< only where it is anything else
    None,               ///< of no run; the page can still be selected by its id
};

/// One page: everything about it that others need to know.
struct CPage {
    std::int32_t id = 0;                         ///< frozen
    std::string_view name = {};                  ///< as the page selector shows it
    std::unique_ptr<CPlot> (*make)() = nullptr;  ///< makes a page object
    CPageLists lists = CPageLists::None;         ///< the place in a list is that of the row in the table
    bool hasChart = true;                        ///< false: a table; no series, no chart block of its own
    std::string_view remark = {};                ///< a sentence to show when the page is chosen; may be empty
};

/// Every page, in the order in which the page lists offer them.
std::span<const CPage> PageTable();

/// The row of an id; null for an id that no page has.
const CPage* FindPage(std::int32_t pageId);

/// Name of a page; empty for an id that no page has.
std::string_view PageName(std::int32_t pageId);

/// What the user should know about the page; mostly empty.
std::string_view PageRemark(std::int32_t pageId);

/// Whether the page draws series; false for the summary, before the first run (id 0), and for an id that no page has.
bool HasChart(std::int32_t pageId);

/// The page object of an id; a plain CPlot for an id that no page has.
std::unique_ptr<CPlot> MakePage(std::int32_t pageId);

/// The ids of all pages, ascending.
std::vector<std::int32_t> PageIds();

/// The ids of the pages that a run offers, in order.
std::vector<std::int32_t> OfferedPages(bool isAcceleration);
