#pragma once

#include "compare/sampling.h"

#include <cstddef>
#include <string>
#include <string_view>

/// The sentences of the comparison, as the user reads them. Those of pages and ratings are in their folders.
namespace compare_message {

// Messages of a run.

/// No reference can be made from the computed signals: they have no time in common.
inline constexpr std::string_view kNoCommonTimeRange = "Error Computing the time range for evaluation";
/// Memory ran out in a step on one signal; follows its path.
inline constexpr std::string_view kNoMemoryForStep =
    "There is not enough memory for this step. Fewer or shorter signals would need less.";
/// Memory ran out outside such a step.
inline constexpr std::string_view kNoMemoryForRun =
    "There is not enough memory to compare these signals. Fewer or shorter signals would need less.";

/// A signal that could not be prepared or compared, with the sentence of what failed.
std::string SignalFailure(std::string_view path, std::string_view text);

/// Not an error: the reference name of a signal compared with a reference made from `count` computed signals.
std::string AverageName(std::size_t count);

// Messages of a page.

/// Memory ran out while the page was built.
inline constexpr std::string_view kNoMemoryForPage =
    "There is not enough memory for the curves of this page. Fewer or shorter signals would need less.";

/// The file for the page's ASCII table cannot be written.
std::string AsciiTableNotWritten(std::string_view path);
/// The same, and the existing file had to be written in place.
std::string AsciiTableDamaged(std::string_view path);

// Notes; see compare/note.h. Numbers have six significant digits.

/// The run has no reference: no time in common, and none of an earlier run.
inline constexpr std::string_view kNothingComparedNote =
    "The signals have no time in common, so no reference was made. Nothing was compared; every result is 0.";
/// The same when the reference of an earlier run was used.
inline constexpr std::string_view kOldReferenceNote =
    "The signals have no time in common, so no reference was made. They were compared with the reference of the run "
    "before.";

/// A run filters its signals, but not those of the format with the name `format`.
std::string NotFilteredNote(std::string_view format);
/// The reference had no regular time step.
std::string ReferenceResampledNote(const CSampling& before, const CSampling& after);
/// A computed signal got the time step of the reference or of the other signals.
std::string ResampledNote(const CSampling& before, const CSampling& after);
/// A computed signal was cut to the time that all signals, or it and the reference, have in common.
std::string CutToCommonRangeNote(const CSampling& before, const CSampling& after);
/// Showing a page cut a computed signal.
std::string CutByPageNote(std::string_view pageName, const CSampling& before, const CSampling& after);
/// A signal shares no time with `reference`, the signal to compare with, which is at `path`.
std::string NoCommonTimeNote(const CSampling& signal, std::string_view path, const CSampling& reference);
/// A signal was rated against the one at `path`, whose Y is in other units.
std::string UnitsDifferNote(std::string_view units, std::string_view path, std::string_view referenceUnits);
/// The reference was made from the computed signals, the first of which is at `path`.
std::string AverageIsFirstNote(std::string_view path);

}  // namespace compare_message
