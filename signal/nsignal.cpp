#include "signal/nsignal.h"

#include "files/error.h"
#include "signal/butterworth.h"
#include "signal/channel_class.h"
#include "signal/column.h"
#include "signal/messages.h"

#include <cstdint>
#include <span>

namespace ks {

bool CNSignal::FilterCFC(std::int32_t cfc) {
    if (!IsChannelClass(cfc)) throw CError(signal_message::kUnknownChannelClass);
    if (cfc >= GetCFCClass()) return true;
    return Filter(FilterFrequencyOf(cfc));
}

bool CNSignal::Filter(double frequencyHz) {
    CheckFilterInput(GetPointCount(), Getdelt(), frequencyHz);  // first, so that a refused record gains no warning

    if (GetXTYPE() != "TIME") AddWarning(signal_message::kXTypeNotTime);
    // Narrower than IsTimeUnit, kept: "SECOND" has always been warned about here.
    if (GetXUNITS() != "SECONDS" && GetXUNITS() != "SEC") AddWarning(signal_message::kTimeNotInSeconds);

    if (ChangesData(GetPointCount(), Getdelt(), frequencyHz)) {
        const CColumnRewrite y = RewriteY();
        NoteTail(FilterInto(y.input, y.output, Getdelt(), frequencyHz));
    } else {
        NoteTail(TailOfUnchanged(Getdelt(), frequencyHz));
    }
    ForgetInjuryValues();
    SetFCUT(frequencyHz);
    SetFSTP(2.5 * frequencyHz);
    UpdateLimits();
    SetDataStatus("FILTERED");
    SetCFCClass(ClassOfFilter(frequencyHz, GetCFCClass()));
    WarnOfOverlap();
    SetModified(true);
    return true;
}

bool CNSignal::BWFILT(std::span<double> data, double timeStepS, double frequencyHz) {
    NoteTail(FilterInPlace(data, timeStepS, frequencyHz));
    return true;
}

void CNSignal::NoteTail(CFilterTail tail) {
    if (tail == CFilterTail::Short) AddWarning(signal_message::kShortTail);
}

/// Filtering makes the injury values stale. Value 5 and its copy in the fourth further real stay; kept on purpose.
void CNSignal::ForgetInjuryValues() {
    SetINJ1(0.0);
    SetINJ2(0.0);
    SetINJ3(0.0);
    SetINJ4(0.0);
    SetINJ6(0.0);
    SetFurtherReal(0, 0.0);
}

void CNSignal::WarnOfOverlap() {
    if (GetCFCClass() == 600 || GetCFCClass() == 1000) return;
    if (!(GetPREFIL() > 0.0 && GetFSTP() > 0.5 * GetPREFIL())) return;
    SetDataStatus("DISTORTED");
    AddWarning(signal_message::kOverlapDistortion);
}

}  // namespace ks
