#include "compare/note.h"

#include "compare/messages.h"
#include "compare/sampling.h"

#include <string_view>
#include <vector>

namespace {

/// Files hold single precision: two steps that it does not tell apart are the same step.
bool IsSameStep(double a, double b) {
    return static_cast<float>(a) == static_cast<float>(b);
}

}  // namespace

std::string_view NameOf(CNoteKind kind) {
    switch (kind) {
        case CNoteKind::NotFiltered:
            return "not-filtered";
        case CNoteKind::ReferenceResampled:
            return "reference-resampled";
        case CNoteKind::Resampled:
            return "resampled";
        case CNoteKind::CutToCommonRange:
            return "cut-to-common-range";
        case CNoteKind::CutByPage:
            return "cut-by-page";
        case CNoteKind::NoCommonTime:
            return "no-common-time";
        case CNoteKind::UnitsDiffer:
            return "units-differ";
        case CNoteKind::AverageIsFirst:
            break;
    }
    return "average-is-first";
}

void AppendResampling(std::vector<CNote>& notes, CNoteKind kind, const CSampling& before, const CSampling& after) {
    if (before.points == after.points && IsSameStep(before.step, after.step)) return;
    const bool isReference = kind == CNoteKind::ReferenceResampled;
    notes.push_back({kind, isReference ? compare_message::ReferenceResampledNote(before, after)
                                       : compare_message::ResampledNote(before, after)});
}

void AppendCutToCommonRange(std::vector<CNote>& notes, const CSampling& before, const CSampling& after) {
    if (before.points == after.points) return;
    notes.push_back({CNoteKind::CutToCommonRange, compare_message::CutToCommonRangeNote(before, after)});
}

void AppendCutByPage(std::vector<CNote>& notes, std::string_view pageName, const CSampling& before,
                     const CSampling& after) {
    if (before.points == after.points) return;
    notes.push_back({CNoteKind::CutByPage, compare_message::CutByPageNote(pageName, before, after)});
}

void AppendNoCommonTime(std::vector<CNote>& notes, const CSampling& signal, std::string_view path,
                        const CSampling& reference) {
    if (!HaveNoCommonTime(signal, reference)) return;
    notes.push_back({CNoteKind::NoCommonTime, compare_message::NoCommonTimeNote(signal, path, reference)});
}

void AppendUnitsDiffer(std::vector<CNote>& notes, std::string_view units, std::string_view path,
                       std::string_view referenceUnits) {
    if (units.empty() || referenceUnits.empty() || units == referenceUnits) return;
    notes.push_back({CNoteKind::UnitsDiffer, compare_message::UnitsDifferNote(units, path, referenceUnits)});
}
