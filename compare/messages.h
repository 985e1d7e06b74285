#pragma once

#include <boost/lexical_cast.hpp>
#include <cstddef>
#include <string>
#include <string_view>

#include "compare/sampling.h"

// The sentences of the comparison, as the user reads them.

inline constexpr std::string_view kNoCommonTimeRange = "Error Computing the time range for evaluation";

inline constexpr std::string_view kNoMemoryForPage =
    "There is not enough memory for the curves of this page. Fewer or shorter signals would need less.";

inline constexpr std::string_view kNoMemoryForStep =
    "There is not enough memory for this step. Fewer or shorter signals would need less.";

inline constexpr std::string_view kNoMemoryForRun =
    "There is not enough memory to compare these signals. Fewer or shorter signals would need less.";

/// Reference name of a signal compared with a reference made from `count` computed signals.
inline std::string AverageName(std::size_t count) {
    return "Average of " + boost::lexical_cast<std::string>(count) + " files";
}

/// A signal that could not be prepared or compared.
inline std::string SignalFailure(std::string_view path, std::string_view text) {
    return std::string(path) + ": " + std::string(text);
}

inline std::string AsciiTableNotWritten(std::string_view path) {
    return "The ASCII data could not be written to " + std::string(path) + ".";
}

// Sentences of the notes; see compare/note.h. Numbers have six significant digits.

/// `format` is the name of the format of the signal's file.
std::string NotFilteredNote(std::string_view format);

inline constexpr std::string_view kNothingComparedNote =
    "The signals have no time in common, so no reference was made. Nothing was compared; every result is 0.";
inline constexpr std::string_view kOldReferenceNote =
    "The signals have no time in common, so no reference was made. They were compared with the reference of the run "
    "before.";

std::string ReferenceResampledNote(const CSampling& before, const CSampling& after);
std::string ResampledNote(const CSampling& before, const CSampling& after);
std::string CutToCommonRangeNote(const CSampling& before, const CSampling& after);
std::string CutByPageNote(std::string_view pageName, const CSampling& before, const CSampling& after);
/// `path` and `reference` are those of the signal to compare with.
std::string NoCommonTimeNote(const CSampling& signal, std::string_view path, const CSampling& reference);
std::string AverageIsFirstNote(std::string_view path);
