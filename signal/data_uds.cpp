#include "files/error.h"
#include "files/uds_fields.h"
#include "files/uds_file.h"
#include "files/uds_layout.h"
#include "signal/channel_class.h"
#include "signal/column.h"
#include "signal/data.h"
#include "signal/messages.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <new>
#include <span>
#include <string>
#include <utility>

namespace ks {
namespace {

template <class Axis>
bool HasSameBits(std::span<const double> values, const Axis& axis) {
    constexpr std::size_t kAtATime = 512;  // without a branch for every value
    for (std::size_t begin = 0; begin < values.size(); begin += kAtATime) {
        const std::size_t end = std::min(values.size(), begin + kAtATime);
        std::uint64_t differences = 0;
        for (std::size_t i = begin; i < end; ++i) {
            differences |= std::bit_cast<std::uint64_t>(values[i]) ^ std::bit_cast<std::uint64_t>(axis[i]);
        }
        if (differences != 0) return false;
    }
    return true;
}

}  // namespace

void CData::LoadUDS(const std::string& path) {
    CUDS1992 file;
    file.Read(path);
    FromUDSFields(std::move(file));
    SetSourcePath(path);
}

void CData::SaveUDS(const std::string& path) const {
    try {
        CUDS1992 file;
        ToUDSFields(file);
        file.Write(path);
    } catch (const std::bad_alloc&) {
        throw CError(signal_message::NoMemoryToSave(path));
    } catch (const std::exception& error) {
        throw CError(error.what());
    }
}

void CData::FromUDSFields(const CUDSFile& file) {
    SetPoints(file.Columns());
    TakeDescriptors(file);
}

void CData::FromUDSFields(CUDSFile&& file) {
    SetPoints(file.TakeColumns());
    TakeDescriptors(file);
}

void CData::ToUDSFields(CUDSFile& file) const {
    CUDSFields& fields = file.Fields();
    fields = static_cast<const CUDSFields&>(*this);
    fields.SetFILEID("UDS-1992");
    fields.SetSTATUS(m_dataStatus);
    if (Getdelt() == 0.0) fields.SetFILEFORM("X-Y");
    file.SetColumns({GetX().ToVector(), GetY().ToVector(), {}});
    file.SetSecondComponent(m_hasSecondComponent);
}

/// Everything of the file except its points.
void CData::TakeDescriptors(const CUDSFile& file) {
    SetFields(file.Fields());
    SetSourcePath({});
    SetSourceFormat(file.NumberFormatName());
    SetFileType({});
    SetSecondComponent(file.HasSecondComponent());
    m_furtherReals = {0.0, 0.0, 0.0, GetINJ5()};
    SetDataStatus(GetSTATUS());
    SetCFCClass(ClassifyRecordedFrequencies(GetFCUT(), GetPREFIL()));
    UpdateTimes();
    RecognizeAxis();
}

/// A reader makes the abscissas of a file without any from the first point number and the time step. They are the same
/// as three numbers.
void CData::RecognizeAxis() {
    if (GetFILEFORM() != kOrdinatesForm || GetX().Rule() != nullptr) return;
    CColumn axis = CColumn::Regular({Getdelt(), GetNFP(), CRulePrecision::Single}, GetX().size());
    const bool isSame =
        VisitAxis(axis, [read = GetX().Values()](const auto& multiples) { return HasSameBits(read, multiples); });
    if (!isSame) return;
    m_x.Replace(std::move(axis));
    m_x.Update();
}

}  // namespace ks
