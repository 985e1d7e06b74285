#include "files/uds_file.h"

#include "files/error.h"
#include "files/input_file.h"
#include "files/messages.h"
#include "files/number_format.h"
#include "files/replacing_file.h"
#include "files/uds_layout.h"
#include "files/uds_reader.h"
#include "files/uds_writer.h"

#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace ks {

CUDSFile::CUDSFile(const CUDSGeometry& geometry) : m_geometry(geometry) {}

CUDS1992::CUDS1992() : CUDSFile(CUDSGeometry{}) {}

void CUDSFile::Read(const std::string& path) {
    m_content = {};
    if (path.empty()) throw CError(uds_read_message::kEmptyPath);
    CInputFile file;
    if (!file.Open(path)) throw CError(read_message::NotOpenedForReading(path));
    if (!file.FindSize()) throw CError(uds_read_message::NoFileInformation(path));
    try {
        ReadUds(file, m_geometry, m_content);
    } catch (...) {
        m_content.columns = {};
        throw;
    }
}

void CUDSFile::Write(const std::string& path) {
    if (path.empty()) throw CError(uds_write_message::kEmptyPath);
    CheckIndicesForWriting(m_content.fields);
    if (!CanWrite(path)) throw CError(uds_write_message::kNotOpened);

    const std::vector<std::byte> image = MakeCheckedImage();
    CWriteTrouble trouble;
    const CWriteResult result = WriteFile(path, image, &trouble);
    if (result == CWriteResult::NotOpened) throw CError(uds_write_message::kNotOpened);
    if (result == CWriteResult::NotCompleted) throw CError(uds_write_message::NotCompleted(path, trouble));
    if (result == CWriteResult::Damaged) throw CError(uds_write_message::Damaged(path));
}

std::vector<std::byte> CUDSFile::MakeImage() {
    CheckIndicesForWriting(m_content.fields);
    return MakeCheckedImage();
}

std::vector<std::byte> CUDSFile::MakeCheckedImage() {
    const CNumberFormats machine = ProbeMachineFormats();
    m_content.formats = OutputFormats(m_isSunOutput, machine);
    m_content.fields.SetNUMFORM(NumberFormatName());
    RepairYear(m_content.fields);
    return MakeUdsImage(m_content, m_geometry, machine);
}

CPointColumns CUDSFile::TakeColumns() {
    return std::exchange(m_content.columns, {});
}

void CUDSFile::SetColumns(CPointColumns columns) {
    if (columns.x.size() != columns.y.size()) {
        throw CError(uds_write_message::ColumnsDiffer(columns.x.size(), columns.y.size()));
    }
    m_content.columns = std::move(columns);
}

std::string CUDSFile::NumberFormatName() const {
    return std::string(ks::NumberFormatName(m_content.formats.numberFormat));
}

}  // namespace ks
