#pragma once

#include "signal/saved_axis.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Every sentence of the signal record and its operations, once. Settled letter for letter, odd spellings included:
/// users and scripts know them.
namespace ks::signal_message {

// Setters of the arrays.

/// X is to stay or to be built from the header, without any Y or Z.
inline constexpr std::string_view kNoXYOrZData = "No X, Y or Z Siganl Data.";
/// X and Y are both empty, or no sample is in the time window.
inline constexpr std::string_view kNoXOrYData = "No X or Y Signal Data";
/// Y is empty, or resampling would leave it so.
inline constexpr std::string_view kNoYData = "No Y Signal Data";
/// X is to be built from the header, whose time step is 0.
inline constexpr std::string_view kNoXAndNoTimeStep = "No x signal data and delt is zero.";
/// X is to be built from the header, whose point numbers are 0.
inline constexpr std::string_view kNoXAndNoPointNumbers =
    "No x signal data, NFP and NLP are zero.\nSet x signal data or set NFP and NLP";
/// X as built from the header is not as long as Y.
inline constexpr std::string_view kXAndYCountsDiffer = "X and Y Counts are different";
/// X and Y have different lengths; Z was to be zeros.
inline constexpr std::string_view kXAndYDiffer = "x != y signal data";
/// X, Y and Z have different lengths.
inline constexpr std::string_view kXYAndZDiffer = "x != y != z signal data";
/// A list of points is empty.
inline constexpr std::string_view kNoPoints = "No Information.";
/// A single point to be overwritten does not exist.
inline constexpr std::string_view kIndexOutOfBounds = " Index Out of Bounds...";

// Resampling.

/// The new time step is 0 or negative.
inline constexpr std::string_view kTimeStepNotPositive = "Requested Time step <= 0";
/// X or Y is empty.
inline constexpr std::string_view kNotEnoughPoints = "Not enough data points";
/// X has a value that is not greater than the one before it.
inline constexpr std::string_view kXNotIncreasing = "X axis data is not monotonically increasing";
/// The new point numbers are out of range, or there would be too many points.
inline constexpr std::string_view kInterpolationFailed = "Error Interpolating Data";

// Integration.

/// The point numbers span three points or fewer.
inline constexpr std::string_view kTooFewForIntegral = "Too few data points to compute an Integral";
/// X or Y is empty.
inline constexpr std::string_view kXOrYEmpty = "X or Y data is empty.";
/// X and Y have different lengths.
inline constexpr std::string_view kXAndYNotSame = "The number of data (X and Y) points are not same.";

// Truncation.

/// The window ends where it begins, or before.
std::string StopTimeNotAfterStart(double start, double stop);
/// The range of point numbers ends where it begins, or before.
std::string StartIndexNotBeforeStop(std::int32_t start, std::int32_t stop);
/// The same after the point numbers became array indices.
inline constexpr std::string_view kStopIndexNotAfterStart = "Stop index is <= Start Index";
/// The range reaches beyond the points that there are; also a page's range of lags.
inline constexpr std::string_view kIndicesOutOfRange = "Unable to provide requested stop/start indices";

// Loading.

/// A file of a single channel was asked for a channel with a name.
std::string NoSuchChannel(std::string_view channel);

// Saving.

/// Memory ran out while the file was written.
std::string NoMemoryToSave(const std::string& path);
/// A warning: the file was written, but its readers make up other times. `path` is that file.
std::string TimesLost(const std::string& path, const CLostAbscissa& lost);

// Export of the points as text.

/// Point `index`, from 0, of `count` is infinite or not a number.
std::string PointNotFinite(std::size_t index, std::size_t count);

// Filtering: failures.

/// The channel frequency class is not one of SAE J211.
inline constexpr std::string_view kUnknownChannelClass = "BWfilt: Frequency Channel Class is not specified in SAE J211";
/// Y is empty.
inline constexpr std::string_view kNoDataToFilter = "Nonpositive number of Data Points";
/// The time step is 0 or negative.
inline constexpr std::string_view kFilterTimeStepNotPositive = "Nonpositive time step";
/// The cutoff frequency is 0 or negative.
inline constexpr std::string_view kCutoffNotPositive = "Nonpositive Cutoff Frequency";

// Filtering: warnings.

/// XTYPE is not "TIME".
inline constexpr std::string_view kXTypeNotTime = "Data must have X Type TIME";
/// XUNITS is neither "SECONDS" nor "SEC".
inline constexpr std::string_view kTimeNotInSeconds = "Time must be in seconds";
/// The signal is too short for the filter's tails.
inline constexpr std::string_view kShortTail = "BWFILT tail length < 10 ms, does not satisfy SAE J211 reccomendation";
/// The filter reaches beyond half the frequency of the filtering before it, PREFIL.
inline constexpr std::string_view kOverlapDistortion =
    "WARNING - Filter causes overlap distortion with previous filtering";

}  // namespace ks::signal_message
