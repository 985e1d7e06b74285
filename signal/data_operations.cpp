#include "files/error.h"
#include "signal/column.h"
#include "signal/data.h"
#include "signal/integrate.h"
#include "signal/messages.h"
#include "signal/resample.h"
#include "signal/truncate.h"
#include "signal/units.h"
#include "signal/whole_number.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

namespace ks {

bool CData::Resample(double dt) {
    if (dt <= 0.0) throw CError(signal_message::kTimeStepNotPositive);
    if (GetY().empty() || GetX().empty()) throw CError(signal_message::kNotEnoughPoints);
    if (!IsAscending(GetX())) throw CError(signal_message::kXNotIncreasing);
    const CNumberedCurve curve{GetX(), GetY(), GetNFP(), GetNLP(), GetCount()};
    const std::optional<CPointRange> range = ResampledRange(curve, dt);
    if (!range) throw CError(signal_message::kInterpolationFailed);
    CColumn y = Interpolate(curve, *range, dt);
    if (y.empty()) throw CError(signal_message::kNoYData);  // as SetData would, but before anything has changed

    SetNFP(range->first);
    SetNLP(range->last);
    Setdelt(dt);
    const CColumn x = CColumn::Regular({dt, range->first}, y.size());
    FinishOperation(x, std::move(y));
    return true;
}

bool CData::Integrate() {
    if (GetCount() <= 3) throw CError(signal_message::kTooFewForIntegral);
    if (GetX().empty() || GetY().empty()) throw CError(signal_message::kXOrYEmpty);
    if (GetX().size() != GetY().size()) throw CError(signal_message::kXAndYNotSame);
    const CIntegralUnits result = IntegralUnits(GetXUNITS(), GetYUNITS(), GetINIVEL(), GetDIMSYS());
    const std::size_t anchor = TimeZeroIndex(GetNFP(), GetY().size());

    FinishOperation({}, CumulativeIntegral(GetX(), GetY(), anchor, result.factor, result.initialValue));
    SetYUNITS(result.units);
    SetYQuantity(result.type);
    return true;
}

bool CData::TruncateByTime(double start, double stop) {
    if (start >= stop) throw CError(signal_message::StopTimeNotAfterStart(start, stop));
    const std::size_t known = std::min(GetX().size(), GetY().size());
    const CIndexRange range = SamplesInWindow(GetX().Part(0, known), start, stop, GetCount());
    if (range.Count() == 0) throw CError(signal_message::kNoXOrYData);  // as SetData would, but nothing has changed

    SetNFP(FirstPointAt(start, Getdelt()));
    SetNLP(Saturated(std::int64_t{GetNFP()} + static_cast<std::int64_t>(range.Count()) - 1));
    KeepSamples(range.begin, range.end);
    return true;
}

bool CData::TruncateByIndex(std::int32_t start, std::int32_t stop) {
    if (start >= stop) throw CError(signal_message::StartIndexNotBeforeStop(start, stop));
    const std::int64_t first = std::int64_t{start} - GetNFP();
    const std::int64_t last = std::int64_t{stop} - GetNFP();
    const CIndexRange range = SamplesBetween(first, last, GetCount(), std::min(GetX().size(), GetY().size()));

    SetNFP(start);
    SetNLP(stop);
    KeepSamples(range.begin, range.end);
    return true;
}

/// What both truncations share once range and point numbers are settled.
void CData::KeepSamples(std::size_t begin, std::size_t end) {
    const std::size_t count = end - begin;
    FinishOperation(GetX().Part(begin, count), GetY().Part(begin, count));
    SetDataStatus("Truncated");
}

/// Stores an operation's result with Z zero; an empty `x` keeps X. The limits follow in SetData.
void CData::FinishOperation(CColumn x, CColumn y) {
    m_z.Replace(CColumn::Zeros(y.size()));
    SetColumns(std::move(x), std::move(y), {});
    SetModified(true);
}

}  // namespace ks
