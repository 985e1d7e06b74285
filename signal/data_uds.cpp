#include "files/error.h"
#include "files/uds_fields.h"
#include "files/uds_file.h"
#include "signal/channel_class.h"
#include "signal/data.h"
#include "signal/messages.h"

#include <exception>
#include <new>
#include <string>
#include <utility>

namespace ks {

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
    file.SetColumns({m_x, m_y, {}});
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
}

}  // namespace ks
