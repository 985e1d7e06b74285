#pragma once

/// Sentences of the chart pages, as the user reads them.
namespace page_message {
inline constexpr const char* kNoMemoryForCovariance =
    "There is not enough memory for the cross correlation of these signals. Shorter signals would need less.";
}  // namespace page_message
