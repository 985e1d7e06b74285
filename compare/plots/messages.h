#pragma once

/// Sentences of the chart pages, as the user reads them.
namespace page_message {
/// The lags of the cross correlation do not fit the reference; the same sentence as TruncateByIndex has.
inline constexpr const char* kIndicesOutOfRange = "Unable to provide requested stop/start indices";
inline constexpr const char* kNoMemoryForCovariance =
    "There is not enough memory for the cross correlation of these signals. Shorter signals would need less.";
}  // namespace page_message
