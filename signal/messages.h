#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "signal/saved_axis.h"

/// Every sentence of the signal record and its operations, once. Settled letter for letter, odd spellings included:
/// users and scripts know them.
namespace ks::signal_message {

// Setters of the arrays.
inline constexpr const char* kNoXYOrZData = "No X, Y or Z Siganl Data.";
inline constexpr const char* kNoXOrYData = "No X or Y Signal Data";
inline constexpr const char* kNoYData = "No Y Signal Data";
inline constexpr const char* kNoXAndNoTimeStep = "No x signal data and delt is zero.";
inline constexpr const char* kNoXAndNoPointNumbers =
    "No x signal data, NFP and NLP are zero.\nSet x signal data or set NFP and NLP";
inline constexpr const char* kXAndYCountsDiffer = "X and Y Counts are different";
inline constexpr const char* kXAndYDiffer = "x != y signal data";
inline constexpr const char* kXYAndZDiffer = "x != y != z signal data";
inline constexpr const char* kNoPoints = "No Information.";
inline constexpr const char* kIndexOutOfBounds = " Index Out of Bounds...";

// Resampling.
inline constexpr const char* kTimeStepNotPositive = "Requested Time step <= 0";
inline constexpr const char* kNotEnoughPoints = "Not enough data points";
inline constexpr const char* kXNotIncreasing = "X axis data is not monotonically increasing";
inline constexpr const char* kInterpolationFailed = "Error Interpolating Data";

// Integration.
inline constexpr const char* kTooFewForIntegral = "Too few data points to compute an Integral";
inline constexpr const char* kXOrYEmpty = "X or Y data is empty.";
inline constexpr const char* kXAndYNotSame = "The number of data (X and Y) points are not same.";

// Truncation.
std::string StopTimeNotAfterStart(double start, double stop);
std::string StartIndexNotBeforeStop(std::int32_t start, std::int32_t stop);
inline constexpr const char* kStopIndexNotAfterStart = "Stop index is <= Start Index";
inline constexpr const char* kIndicesOutOfRange = "Unable to provide requested stop/start indices";

// Loading.
std::string NoSuchChannel(std::string_view channel);

// Saving.
std::string NoMemoryToSave(const std::string& path);
/// A warning: the file was written, but its readers make up other times. `path` is that file.
std::string TimesLost(const std::string& path, const CLostAbscissa& lost);

// Export of the points as text.
std::string PointNotFinite(std::size_t index, std::size_t count);

// Filtering: failures.
inline constexpr const char* kUnknownChannelClass = "BWfilt: Frequency Channel Class is not specified in SAE J211";
inline constexpr const char* kNoDataToFilter = "Nonpositive number of Data Points";
inline constexpr const char* kFilterTimeStepNotPositive = "Nonpositive time step";
inline constexpr const char* kCutoffNotPositive = "Nonpositive Cutoff Frequency";

// Filtering: warnings.
inline constexpr const char* kXTypeNotTime = "Data must have X Type TIME";
inline constexpr const char* kTimeNotInSeconds = "Time must be in seconds";
inline constexpr const char* kShortTail = "BWFILT tail length < 10 ms, does not satisfy SAE J211 reccomendation";
inline constexpr const char* kOverlapDistortion = "WARNING - Filter causes overlap distortion with previous filtering";

}  // namespace ks::signal_message
