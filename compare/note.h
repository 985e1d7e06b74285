#pragma once

#include "compare/sampling.h"

#include <string>
#include <string_view>
#include <vector>

/// What a note is about. Programs know the kinds by the names of NameOf; those are frozen.
enum class CNoteKind {
    NotFiltered,         ///< "not-filtered": the signal came from ASCII points, which are never filtered
    ReferenceResampled,  ///< "reference-resampled": the reference's file gives no time step
    Resampled,           ///< "resampled": a computed signal was brought to the step of the comparison
    CutToCommonRange,    ///< "cut-to-common-range": a computed signal was cut to the time in common
    CutByPage,           ///< "cut-by-page": a chart page cut a computed signal permanently
    NoCommonTime,        ///< "no-common-time": a signal and the reference, or all signals, share no time
    UnitsDiffer,         ///< "units-differ": a signal was rated against a reference whose Y has other units
    AverageIsFirst,      ///< "average-is-first": the first signal serves as the reference made from all
};

/// The stable name of a kind.
std::string_view NameOf(CNoteKind kind);

/// A fact about the preparation of a signal, or of a run, that nothing else reports. It is not a warning: a note
/// neither joins the warnings nor changes a result or a verdict.
struct CNote {
    CNoteKind kind;
    std::string sentence;
};

// Each of these appends one note, or nothing when nothing has happened that is worth one.

/// A resampling of `kind` Resampled or ReferenceResampled. None when neither the step, in the single precision of
/// files, nor the number of points has changed.
void AppendResampling(std::vector<CNote>& notes, CNoteKind kind, const CSampling& before, const CSampling& after);
/// A cut to the common range; none when all points are left.
void AppendCutToCommonRange(std::vector<CNote>& notes, const CSampling& before, const CSampling& after);
/// The same by the chart page of this name.
void AppendCutByPage(std::vector<CNote>& notes, std::string_view pageName, const CSampling& before,
                     const CSampling& after);
/// A signal to be rated against the one at `path`, with the units of Y of both; none where they are equal or where one
/// of them is not known.
void AppendUnitsDiffer(std::vector<CNote>& notes, std::string_view units, std::string_view path,
                       std::string_view referenceUnits);
/// A signal without any time in common with the one at `path`, which it is to be compared with. To be asked before
/// either is resampled: that may carry a curve far beyond its own samples.
void AppendNoCommonTime(std::vector<CNote>& notes, const CSampling& signal, std::string_view path,
                        const CSampling& reference);
