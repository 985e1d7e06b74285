#include "signal/data.h"

#include "files/error.h"
#include "files/points.h"
#include "signal/column.h"
#include "signal/data_status.h"
#include "signal/limits.h"
#include "signal/messages.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ks {
void CData::SetColumns(CColumn x, CColumn y, CColumn z) {
    if (x.empty()) {
        KeepOrBuildX(y, z);
    } else {
        m_x.Replace(std::move(x));
    }
    if (y.empty() && GetY().empty()) throw CError(signal_message::kNoYData);
    m_y.Replace(std::move(y));

    const std::size_t count = GetY().size();
    const bool keepsZ = z.empty() && !GetZ().empty() && GetZ().size() == count;
    if (z.empty() && !keepsZ) {
        m_z.Replace(CColumn::Zeros(count));
        if (GetX().size() != count) throw CError(signal_message::kXAndYDiffer);
    }
    if (!z.empty()) m_z.Replace(std::move(z));
    if (GetX().size() != count || GetZ().size() != count) throw CError(signal_message::kXYAndZDiffer);
    UpdateLimits();
}

void CData::SetData(std::vector<double> x, std::vector<double> y, std::vector<double> z) {
    SetColumns(CColumn(std::move(x)), CColumn(std::move(y)), CColumn(std::move(z)));
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
    const std::size_t count = columns.Count();
    if (columns.x.size() != count || (!columns.z.empty() && columns.z.size() != count)) {
        throw CError(signal_message::kXYAndZDiffer);
    }
    m_x.Replace(CColumn(std::move(columns.x)));
    m_y.Replace(CColumn(std::move(columns.y)));
    m_z.Replace(columns.z.empty() ? CColumn::Zeros(count) : CColumn(std::move(columns.z)));
    UpdateLimits();
}

void CData::SetPoint(std::size_t i, double x, double y) {
    if (i >= GetX().size() || i >= GetY().size())
        throw std::runtime_error(std::string(signal_message::kIndexOutOfBounds));
    const std::span<double> xValues = m_x.Change().Mutable();  // both before either changes: memory may be short
    const std::span<double> yValues = m_y.Change().Mutable();
    xValues[i] = x;
    yValues[i] = y;
    UpdateLimits();
}

std::int32_t CData::GetCount() const {
    return CountOf(GetNFP(), GetNLP());
}

void CData::GenerateTime() {
    m_x.Replace(CColumn::Regular({Getdelt(), GetNFP()}, static_cast<std::size_t>(GetCount())));
}

void CData::UpdateLimits() {
    m_x.Update();
    m_y.Update();
    m_z.Update();
    UpdateTimes();
}

void CData::SetDataStatus(std::string_view text) {
    m_dataStatus = CanonicalDataStatus(text);
}

/// SetData without an x: the stored X stays, or is built where there is none.
void CData::KeepOrBuildX(const CColumn& y, const CColumn& z) {
    if (y.empty() && z.empty()) throw CError(signal_message::kNoXYOrZData);
    if (!GetX().empty()) return;
    if (Getdelt() == 0.0) throw CError(signal_message::kNoXAndNoTimeStep);
    if (GetNFP() == 0 && GetNLP() == 0) throw CError(signal_message::kNoXAndNoPointNumbers);
    GenerateTime();
    if (!y.empty() && y.size() != GetX().size()) throw CError(signal_message::kXAndYCountsDiffer);
}

void CData::UpdateTimes() {
    m_startTime = GetNFP() * Getdelt();
    m_endTime = GetNLP() * Getdelt();
}

}  // namespace ks
