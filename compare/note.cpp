#include "compare/note.h"

#include "compare/messages.h"

namespace {

/// Files hold single precision: two steps that it does not tell apart are the same step.
bool IsSameStep(double a, double b) {
    return static_cast<float>(a) == static_cast<float>(b);
}

}  // namespace

std::string_view NameOf(NoteKind kind) {
    switch (kind) {
        case NoteKind::NotFiltered:
            return "not-filtered";
        case NoteKind::ReferenceResampled:
            return "reference-resampled";
        case NoteKind::Resampled:
            return "resampled";
        case NoteKind::CutToCommonRange:
            return "cut-to-common-range";
        case NoteKind::CutByPage:
            return "cut-by-page";
        case NoteKind::NoCommonTime:
            return "no-common-time";
        case NoteKind::AverageIsFirst:
            break;
    }
    return "average-is-first";
}

void AppendResampling(std::vector<CNote>& notes, NoteKind kind, const CSampling& before, const CSampling& after) {
    if (before.points == after.points && IsSameStep(before.step, after.step)) return;
    const bool isReference = kind == NoteKind::ReferenceResampled;
    notes.push_back({kind, isReference ? ReferenceResampledNote(before, after) : ResampledNote(before, after)});
}

void AppendCutToCommonRange(std::vector<CNote>& notes, const CSampling& before, const CSampling& after) {
    if (before.points == after.points) return;
    notes.push_back({NoteKind::CutToCommonRange, CutToCommonRangeNote(before, after)});
}

void AppendCutByPage(std::vector<CNote>& notes, std::string_view pageName, const CSampling& before,
                     const CSampling& after) {
    if (before.points == after.points) return;
    notes.push_back({NoteKind::CutByPage, CutByPageNote(pageName, before, after)});
}

void AppendNoCommonTime(std::vector<CNote>& notes, const CSampling& signal, std::string_view path,
                        const CSampling& reference) {
    if (!HaveNoCommonTime(signal, reference)) return;
    notes.push_back({NoteKind::NoCommonTime, NoCommonTimeNote(signal, path, reference)});
}
