#include "files/error.h"
#include "signal/data.h"
#include "signal/integrate.h"
#include "signal/limits.h"
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
#include <vector>

namespace ks {

bool CData::Resample(double dt) {
    if (dt <= 0.0) throw CError(signal_message::kTimeStepNotPositive);
    if (m_y.empty() || m_x.empty()) throw CError(signal_message::kNotEnoughPoints);
    if (!IsAscending(m_x)) throw CError(signal_message::kXNotIncreasing);
    const CNumberedCurve curve{m_x, m_y, GetNFP(), GetNLP(), GetCount()};
    const std::optional<CPointRange> range = ResampledRange(curve, dt);
    if (!range) throw CError(signal_message::kInterpolationFailed);
    std::vector<double> y = Interpolate(curve, *range, dt);
    if (y.empty()) throw CError(signal_message::kNoYData);  // as SetData would, but before anything has changed

    SetNFP(range->first);
    SetNLP(range->last);
    Setdelt(dt);
    FinishOperation(RegularAxis(range->first, CountOf(range->first, range->last), dt), std::move(y));
    return true;
}

bool CData::Integrate() {
    if (GetCount() <= 3) throw CError(signal_message::kTooFewForIntegral);
    if (m_x.empty() || m_y.empty()) throw CError(signal_message::kXOrYEmpty);
    if (m_x.size() != m_y.size()) throw CError(signal_message::kXAndYNotSame);
    const CIntegralUnits result = IntegralUnits(GetXUNITS(), GetYUNITS(), GetINIVEL(), GetDIMSYS());
    const std::size_t anchor = TimeZeroIndex(GetNFP(), m_y.size());

    FinishOperation({}, CumulativeIntegral(m_x, m_y, anchor, result.factor, result.initialValue));
    SetYUNITS(result.units);
    SetYQuantity(result.type);
    return true;
}

bool CData::TruncateByTime(double start, double stop) {
    if (start >= stop) throw CError(signal_message::StopTimeNotAfterStart(start, stop));
    const std::size_t known = std::min(m_x.size(), m_y.size());
    const CIndexRange range = SamplesInWindow(std::span(m_x).first(known), start, stop, GetCount());
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
    const CIndexRange range = SamplesBetween(first, last, GetCount(), std::min(m_x.size(), m_y.size()));

    SetNFP(start);
    SetNLP(stop);
    KeepSamples(range.begin, range.end);
    return true;
}

/// What both truncations share once range and point numbers are settled.
void CData::KeepSamples(std::size_t begin, std::size_t end) {
    const auto part = [&](const std::vector<double>& values) {
        const auto first = values.begin();
        return std::vector<double>(first + static_cast<std::ptrdiff_t>(begin),
                                   first + static_cast<std::ptrdiff_t>(end));
    };
    FinishOperation(part(m_x), part(m_y));
    SetDataStatus("Truncated");
}

/// Stores an operation's result with Z zero; an empty `x` keeps X. The limits follow in SetData.
void CData::FinishOperation(std::vector<double> x, std::vector<double> y) {
    m_z.assign(y.size(), 0.0);
    SetData(std::move(x), std::move(y));
    SetModified(true);
}

}  // namespace ks
