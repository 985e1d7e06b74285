#include "files/uds_writer.h"

#include "files/error.h"
#include "files/messages.h"
#include "files/number_format.h"
#include "files/text_encoding.h"
#include "files/uds_content.h"
#include "files/uds_field_table.h"
#include "files/uds_fields.h"
#include "files/uds_layout.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace ks {
namespace {

using Bytes = std::span<std::byte>;

/// Left-aligned, padded with blanks, cut to the width.
void PutText(std::string_view latin1, Bytes target) {
    std::ranges::fill(target, std::byte{' '});
    const std::string_view cut = latin1.substr(0, target.size());
    std::ranges::transform(cut, target.begin(), [](char c) { return static_cast<std::byte>(c); });
}

/// Puts one field of the field set into its bytes, by the kind of the field.
class CFieldWriter {
public:
    const CUDSFields& fields;
    CNumberFormats from;
    CNumberFormats to;
    Bytes target;

    void operator()(const CUDSTextAccess& access) const { PutText(Latin1FromUtf8((fields.*access.get)()), target); }
    void operator()(const CUDSIntegerAccess& access) const {
        const auto value = std::bit_cast<CFourBytes>((fields.*access.get)());
        std::ranges::copy(ConvertInteger(value, from.byteOrder, to.byteOrder), target.begin());
    }
    void operator()(const CUDSRealAccess& access) const {
        const auto value = std::bit_cast<CFourBytes>((fields.*access.get)());
        std::ranges::copy(ConvertReal(value, from.numberFormat, to.numberFormat), target.begin());
    }
};

/// One image, filled record by record.
class CImageMaking {
public:
    CImageMaking(const CUDSContent& content, const CUDSGeometry& geometry, const CNumberFormats& machine)
        : m_content(content), m_geometry(geometry), m_machine(machine) {}

    void PutHeaders();
    void PutData();
    std::vector<std::byte> Take() { return std::move(m_image); }
    void MakeRoom();

private:
    Bytes NextRecord();
    void PutHeader(CUDSRecord record, std::string_view tag);
    void PutBlocks(std::string_view tag, std::span<const double> values);
    void PutValues(std::span<const double> values, Bytes target) const;

    const CUDSContent& m_content;
    const CUDSGeometry& m_geometry;
    CNumberFormats m_machine;
    std::vector<std::byte> m_image;
    std::size_t m_used = 0;  ///< bytes of the records already taken
};

std::size_t KindsOfBlocks(std::string_view form) {
    if (form == kPairsForm) return 2;
    return form == kOrdinatesForm ? 1 : 0;
}

void CImageMaking::MakeRoom() {
    const std::size_t headers = m_content.hasSecondComponent ? 3 : 2;
    const auto perKind = static_cast<std::size_t>(RecordsFor(m_content.columns.Count(), m_geometry));
    const std::size_t data = KindsOfBlocks(m_content.fields.GetFILEFORM()) * perKind;
    m_image.resize((headers + data) * m_geometry.recordSize);
}

Bytes CImageMaking::NextRecord() {
    const Bytes record = Bytes(m_image).subspan(m_used, m_geometry.recordSize);
    m_used += m_geometry.recordSize;
    return record;
}

void CImageMaking::PutHeader(CUDSRecord record, std::string_view tag) {
    const Bytes bytes = NextRecord();
    PutText(tag, bytes.first(m_geometry.tagWidth));
    for (const CUDSField& field : UdsFieldTable()) {
        if (field.record != record) continue;
        const Bytes target =
            bytes.subspan(static_cast<std::size_t>(field.offset), static_cast<std::size_t>(field.width));
        std::visit(CFieldWriter{m_content.fields, m_machine, m_content.formats, target}, field.access);
    }
}

void CImageMaking::PutHeaders() {
    PutHeader(CUDSRecord::File, kFileId);
    if (m_content.hasSecondComponent) PutHeader(CUDSRecord::SecondComponent, kSecondComponentTag);
    PutHeader(CUDSRecord::Curve, kCurveTag);
}

void CImageMaking::PutData() {
    const std::size_t kinds = KindsOfBlocks(m_content.fields.GetFILEFORM());
    if (kinds >= 1) PutBlocks(kOrdinateTag, m_content.columns.y);
    if (kinds == 2) PutBlocks(kAbscissaTag, m_content.columns.x);
}

void CImageMaking::PutBlocks(std::string_view tag, std::span<const double> values) {
    while (!values.empty()) {
        const Bytes record = NextRecord();
        const std::size_t count = std::min(values.size(), m_geometry.valuesPerRecord);
        PutText(tag, record.first(m_geometry.tagWidth));
        PutValues(values.first(count), record.subspan(m_geometry.tagWidth, count * m_geometry.realWidth));
        values = values.subspan(count);
    }
}

void CImageMaking::PutValues(std::span<const double> values, Bytes target) const {
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto narrowed = std::bit_cast<CFourBytes>(static_cast<float>(values[i]));
        std::ranges::copy(narrowed, target.subspan(i * m_geometry.realWidth).begin());
    }
    ConvertReals(target, m_machine.numberFormat, m_content.formats.numberFormat);
}

}  // namespace

void CheckIndicesForWriting(const CUDSFields& fields) {
    if (fields.GetNFP() > fields.GetNLP()) throw CError(uds_write_message::kCrossedIndices);
    if (fields.GetNFP() == fields.GetNLP()) throw CError(uds_write_message::kEqualIndices);
}

CNumberFormats OutputFormats(bool isSunOutput, const CNumberFormats& machine) {
    const bool isUnknown = machine.byteOrder == CByteOrder::Unknown || machine.numberFormat == CNumberFormat::Unknown;
    if (isUnknown) throw CError(uds_write_message::kUnknownFormat);
    return isSunOutput ? CNumberFormats{CByteOrder::BigEndian, CNumberFormat::Sun} : machine;
}

std::vector<std::byte> MakeUdsImage(const CUDSContent& content, const CUDSGeometry& geometry,
                                    const CNumberFormats& machine) {
    // Before any memory is reserved: the point numbers alone could ask for gigabytes.
    const std::int64_t byIndices = CountByIndices(content.fields);
    const std::size_t points = content.columns.Count();
    if (byIndices < 0 || static_cast<std::uint64_t>(byIndices) != points) {
        throw CError(uds_write_message::CountMismatch(byIndices, points));
    }
    const bool isPairs = content.fields.GetFILEFORM() == kPairsForm;
    if (isPairs && content.columns.x.size() != points) {
        throw CError(uds_write_message::CountMismatch(byIndices, content.columns.x.size()));
    }

    CImageMaking making(content, geometry, machine);
    making.MakeRoom();
    making.PutHeaders();
    making.PutData();
    return making.Take();
}

}  // namespace ks
