#include "signal/data.h"

#include "files/error.h"
#include "files/points.h"
#include "signal/data_status.h"
#include "signal/limits.h"
#include "signal/messages.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ks {
namespace {

/// The extrema of `values`; `before` when there are no values.
CExtrema ExtremaOr(const CExtrema& before, const std::vector<double>& values) {
    return values.empty() ? before : ExtremaOf(values);
}

}  // namespace

void CData::SetData(std::vector<double> x, std::vector<double> y, std::vector<double> z) {
    if (x.empty()) {
        KeepOrBuildX(y, z);
    } else {
        m_x = std::move(x);
    }
    if (y.empty() && m_y.empty()) throw CError(signal_message::kNoYData);
    m_y = std::move(y);

    const bool keepsZ = z.empty() && !m_z.empty() && m_z.size() == m_y.size();
    if (z.empty() && !keepsZ) {
        m_z.assign(m_y.size(), 0.0);
        if (m_x.size() != m_y.size()) throw CError(signal_message::kXAndYDiffer);
    }
    if (!z.empty()) m_z = std::move(z);
    if (m_x.size() != m_y.size() || m_y.size() != m_z.size()) throw CError(signal_message::kXYAndZDiffer);
    UpdateLimits();
}

void CData::SetData(std::vector<double> x, std::vector<double> y) {
    if (x.empty() && y.empty()) throw CError(signal_message::kNoXOrYData);
    SetData(std::move(x), std::move(y), {});
}

void CData::SetData(std::vector<double> y) {
    if (y.empty()) throw CError(signal_message::kNoYData);
    SetData({}, std::move(y), {});
}

void CData::SetPoints(const CPointList& points) {
    if (points.empty()) throw CError(signal_message::kNoPoints);
    SetPoints(MakeColumns(points));
}

void CData::SetPoints(CPointColumns columns) {
    if (columns.Count() == 0) throw CError(signal_message::kNoPoints);
    if (columns.z.empty()) columns.z.assign(columns.Count(), 0.0);
    if (columns.x.size() != columns.Count() || columns.z.size() != columns.Count()) {
        throw CError(signal_message::kXYAndZDiffer);
    }
    m_x = std::move(columns.x);
    m_y = std::move(columns.y);
    m_z = std::move(columns.z);
    UpdateLimits();
}

void CData::SetPoint(std::size_t i, double x, double y) {
    if (i >= m_x.size() || i >= m_y.size()) throw std::runtime_error(std::string(signal_message::kIndexOutOfBounds));
    m_x[i] = x;
    m_y[i] = y;
    m_areLimitsStale = true;  // overwriting a whole curve point by point must not scan it as often as it has points
    UpdateTimes();
}

std::int32_t CData::GetCount() const {
    return CountOf(GetNFP(), GetNLP());
}

void CData::GenerateTime() {
    m_x = RegularAxis(GetNFP(), GetCount(), Getdelt());
}

void CData::UpdateLimits() {
    m_limits = ScannedLimits();
    m_areLimitsStale = false;
    UpdateTimes();
}

/// Never stores what it scans: several threads may ask one record at the same time.
CLimits CData::Limits() const {
    return m_areLimitsStale ? ScannedLimits() : m_limits;
}

CLimits CData::ScannedLimits() const {
    return {ExtremaOr(m_limits.x, m_x), ExtremaOr(m_limits.y, m_y), ExtremaOr(m_limits.z, m_z)};
}

void CData::SetDataStatus(std::string_view text) {
    m_dataStatus = CanonicalDataStatus(text);
}

/// SetData without an x: the stored X stays, or is built where there is none.
void CData::KeepOrBuildX(const std::vector<double>& y, const std::vector<double>& z) {
    if (y.empty() && z.empty()) throw CError(signal_message::kNoXYOrZData);
    if (!m_x.empty()) return;
    if (Getdelt() == 0.0) throw CError(signal_message::kNoXAndNoTimeStep);
    if (GetNFP() == 0 && GetNLP() == 0) throw CError(signal_message::kNoXAndNoPointNumbers);
    GenerateTime();
    if (!y.empty() && y.size() != m_x.size()) throw CError(signal_message::kXAndYCountsDiffer);
}

void CData::UpdateTimes() {
    m_startTime = GetNFP() * Getdelt();
    m_endTime = GetNLP() * Getdelt();
}

}  // namespace ks
