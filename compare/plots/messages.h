#pragma once

#include <string_view>

/// The sentences of the chart pages, as the user reads them.
namespace page_message {

/// Memory ran out on the page Cross Correlation, whose curves need by far the most.
inline constexpr std::string_view kNoMemoryForCovariance =
    "There is not enough memory for the cross correlation of these signals. Shorter signals would need less.";

}  // namespace page_message
