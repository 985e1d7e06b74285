#include "files/uds_reader.h"

#include "files/byte_source.h"
#include "files/error.h"
#include "files/messages.h"
#include "files/number_format.h"
#include "files/points.h"
#include "files/real_decoder.h"
#include "files/text_encoding.h"
#include "files/uds_content.h"
#include "files/uds_field_table.h"
#include "files/uds_fields.h"
#include "files/uds_layout.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace ks {
namespace {

/// Data records read at a time: large enough for speed, small enough to refuse a bad file soon.
constexpr std::uint64_t kRecordsAtATime = 256;

/// Values to reserve memory for before the first one. Longer lists get room as their values arrive, for that many
/// times the values seen: a file's own claim about its length is not trusted with gigabytes.
constexpr std::uint64_t kFirstReserve = std::uint64_t{1} << 20U;
constexpr std::uint64_t kGrowth = 8;

std::string_view Trimmed(std::span<const std::byte> bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Whether the text has leading blanks, so that it does not keep its place.
bool BeginsWithBlanks(std::span<const std::byte> text) {
    return text.front() == std::byte{' '} && !Trimmed(text).empty();
}

/// Without an early end, so that the compiler can look at many bytes at a time.
bool IsEmpty(std::span<const std::byte> bytes) {
    std::byte any{0};
    for (const std::byte byte : bytes) any |= byte;
    return any == std::byte{0};
}

CFourBytes FourBytes(std::span<const std::byte> bytes) {
    return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

float WithoutNan(float value, std::uint64_t& notNumbers) {
    if (!std::isnan(value)) return value;
    ++notNumbers;
    return 0.0F;
}

/// Stores one field's bytes in the field set, by the kind of the field.
class CFieldReader {
public:
    std::span<const std::byte> bytes;
    CNumberFormats from;
    CNumberFormats to;
    CUDSFields& fields;
    std::uint64_t& notNumbers;

    void operator()(const CUDSTextAccess& access) const { (fields.*access.set)(Utf8FromLatin1(Trimmed(bytes))); }
    void operator()(const CUDSIntegerAccess& access) const {
        const CFourBytes value = ConvertInteger(FourBytes(bytes), from.byteOrder, to.byteOrder);
        (fields.*access.set)(std::bit_cast<std::int32_t>(value));
    }
    void operator()(const CUDSRealAccess& access) const {
        const CFourBytes value = ConvertReal(FourBytes(bytes), from.numberFormat, to.numberFormat);
        (fields.*access.set)(WithoutNan(std::bit_cast<float>(value), notNumbers));
    }
};

/// The data records of one tag.
struct CBlockKind {
    std::string paddedTag;  ///< as nearly all records have it
    std::string_view tag;
    std::vector<double>* list;  ///< of their values
};

/// The kind of a record by its tag, or null for a tag that must not be there.
const CBlockKind* KindOf(std::span<const std::byte> tag, std::span<const CBlockKind> kinds) {
    for (const CBlockKind& kind : kinds) {
        if (std::memcmp(tag.data(), kind.paddedTag.data(), tag.size()) == 0) return &kind;
    }
    for (const CBlockKind& kind : kinds) {
        if (Trimmed(tag) == kind.tag) return &kind;
    }
    return nullptr;
}

/// Room for as many records as are read at a time, if the source has them.
std::size_t BufferSize(const CByteSource& source, const CUDSGeometry& geometry) {
    const std::uint64_t most = kRecordsAtATime * geometry.recordSize;
    return static_cast<std::size_t>(std::clamp<std::uint64_t>(source.Size(), geometry.recordSize, most));
}

/// One reading. The steps follow each other in the order of the checks.
class CReading {
public:
    CReading(CByteSource& source, const CUDSGeometry& geometry, CUDSContent& content)
        : m_source(source),
          m_geometry(geometry),
          m_content(content),
          m_machine(ProbeMachineFormats()),
          m_left(source.Size()),
          m_memory(std::make_unique_for_overwrite<CBytes>(BufferSize(source, geometry))) {}

    void ReadFileHeader();
    void ReadSecondComponent();
    void ReadCurveHeader();
    void CheckIndicesAndSize();
    void ReadData();

private:
    void FillBuffer(std::size_t size);
    void NextHeaderRecord();
    [[nodiscard]] std::string_view Tag() const { return Trimmed(m_buffer.first(m_geometry.tagWidth)); }
    void StoreField(const CUDSField& field);
    void StoreFields(CUDSRecord record);
    void NoteLosses(CUDSRecord record);
    void NoteUserReals();
    [[nodiscard]] std::span<const std::byte> BytesOf(const CUDSField& field) const;
    [[nodiscard]] std::uint64_t Count() const { return static_cast<std::uint64_t>(CountByIndices(m_content.fields)); }

    void ReadBlocks(std::span<const CBlockKind> kinds);
    [[nodiscard]] CBlockKind MakeKind(std::string_view tag, std::vector<double>& list) const;
    void AppendValues(std::span<const std::byte> values, std::vector<double>& list);
    void MakeRoom(std::vector<double>& list, std::size_t more) const;
    void ReadPairs();
    void ReadOrdinates();
    void GenerateAbscissas();

    using CBytes = std::byte[];  // NOLINT(*-c-arrays): bytes that are not set before they are read

    CByteSource& m_source;
    const CUDSGeometry& m_geometry;
    CUDSContent& m_content;
    CNumberFormats m_machine;
    std::uint64_t m_left;              ///< bytes of the source not yet read
    std::unique_ptr<CBytes> m_memory;  ///< for the largest number of records read at once
    std::span<std::byte> m_buffer;     ///< the record or records last read
    std::vector<double> m_decoded;     ///< the values of the data record last read
};

void CReading::FillBuffer(std::size_t size) {
    m_buffer = {m_memory.get(), size};
    // A file that became shorter since its size was taken lacks the bytes that the checks promised.
    if (m_source.Read(m_buffer) < size) throw CError(uds_read_message::kBufferTooSmall);
    m_left -= size;
}

void CReading::NextHeaderRecord() {
    if (m_left < m_geometry.recordSize) throw CError(uds_read_message::kBufferTooSmall);
    FillBuffer(m_geometry.recordSize);
}

void CReading::StoreField(const CUDSField& field) {
    std::visit(
        CFieldReader{BytesOf(field), m_content.formats, m_machine, m_content.fields, m_content.repairs.notNumbers},
        field.access);
}

std::span<const std::byte> CReading::BytesOf(const CUDSField& field) const {
    return m_buffer.subspan(static_cast<std::size_t>(field.offset), static_cast<std::size_t>(field.width));
}

void CReading::StoreFields(CUDSRecord record) {
    for (const CUDSField& field : UdsFieldTable()) {
        if (field.record == record) StoreField(field);
    }
    NoteLosses(record);
}

void CReading::NoteLosses(CUDSRecord record) {
    CUDSRepairs& repairs = m_content.repairs;
    for (const CUDSField& field : UdsFieldTable()) {
        const bool isText = std::holds_alternative<CUDSTextAccess>(field.access);
        if (field.record == record && isText && BeginsWithBlanks(BytesOf(field))) ++repairs.movedTexts;
    }
    // In the file header the tag is a field.
    const auto tag = m_buffer.first(m_geometry.tagWidth);
    if (record != CUDSRecord::File && BeginsWithBlanks(tag)) ++repairs.movedTexts;
    const auto end = static_cast<std::size_t>(UdsRecordEnd(record));
    if (!IsEmpty(m_buffer.subspan(end))) ++repairs.clearedRecords;
}

/// RD2 to RD5 as the file has them. They take the value of RD1, so none of them counts as a number that became 0.
void CReading::NoteUserReals() {
    constexpr std::array<std::string_view, 4> kNames = {"RD2", "RD3", "RD4", "RD5"};
    CUDSRepairs& repairs = m_content.repairs;
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        const CFourBytes bytes = FourBytes(BytesOf(*FindUdsField(kNames[i])));
        const CFourBytes value = ConvertReal(bytes, m_content.formats.numberFormat, m_machine.numberFormat);
        repairs.userReals[i] = std::bit_cast<float>(value);
        if (std::isnan(repairs.userReals[i])) --repairs.notNumbers;
    }
}

void CReading::ReadFileHeader() {
    NextHeaderRecord();
    StoreField(*FindUdsField("FILEID"));
    if (Tag() != kFileId) throw CError(uds_read_message::kNotUds);
    // The number format must be known before the first number.
    StoreField(*FindUdsField("NUMFORM"));
    m_content.formats = FormatsOf(m_content.fields.GetNUMFORM());
    StoreFields(CUDSRecord::File);
}

void CReading::ReadSecondComponent() {
    NextHeaderRecord();
    if (Tag() != kSecondComponentTag) return;
    m_content.hasSecondComponent = true;
    StoreFields(CUDSRecord::SecondComponent);
    NextHeaderRecord();
}

void CReading::ReadCurveHeader() {
    if (Tag() != kCurveTag) throw CError(uds_read_message::kInvalidCurveHeader);
    StoreFields(CUDSRecord::Curve);
    NoteUserReals();
    // Kept: every file read so far got the first user real in all five.
    CUDSFields& fields = m_content.fields;
    for (const auto set : {&CUDSFields::SetRD2, &CUDSFields::SetRD3, &CUDSFields::SetRD4, &CUDSFields::SetRD5}) {
        (fields.*set)(fields.GetRD1());
    }
}

void CReading::CheckIndicesAndSize() {
    const CUDSFields& fields = m_content.fields;
    if (fields.GetNFP() == fields.GetNLP()) throw CError(uds_read_message::kEqualIndices);
    if (fields.GetNFP() > fields.GetNLP()) throw CError(uds_read_message::kCrossedIndices);

    const std::uint64_t records = m_left / m_geometry.recordSize;
    const std::uint64_t kinds = fields.GetFILEFORM() == kOrdinatesForm ? 1 : 2;
    const std::uint64_t needed = kinds * RecordsFor(Count(), m_geometry);
    if (records < needed) throw CError(uds_read_message::kInsufficientData);
    if (records == 0) throw CError(uds_read_message::kNoRecords);
    m_content.repairs.unusedRecords = records - needed;
}

void CReading::ReadData() {
    if (m_content.fields.GetFILEFORM() == kPairsForm) return ReadPairs();
    if (m_content.fields.GetFILEFORM() == kOrdinatesForm) return ReadOrdinates();
    throw CError(uds_read_message::kUnknownForm);
}

/// Walks all data records.
void CReading::ReadBlocks(std::span<const CBlockKind> kinds) {
    while (m_left > 0) {
        FillBuffer(static_cast<std::size_t>(std::min(m_left, kRecordsAtATime * m_geometry.recordSize)));
        for (std::size_t start = 0; start < m_buffer.size(); start += m_geometry.recordSize) {
            const auto record = m_buffer.subspan(start, m_geometry.recordSize);
            const auto tag = record.first(m_geometry.tagWidth);
            const CBlockKind* const kind = KindOf(tag, kinds);
            if (kind == nullptr) throw CError(uds_read_message::kUnknownBlock);
            if (kind->list->size() < Count() && BeginsWithBlanks(tag)) ++m_content.repairs.movedTexts;
            AppendValues(record.subspan(m_geometry.tagWidth), *kind->list);
        }
    }
}

CBlockKind CReading::MakeKind(std::string_view tag, std::vector<double>& list) const {
    std::string padded(tag);
    padded.resize(m_geometry.tagWidth, ' ');
    return {std::move(padded), tag, &list};
}

void CReading::AppendValues(std::span<const std::byte> values, std::vector<double>& list) {
    const std::uint64_t wanted = std::min<std::uint64_t>(Count() - list.size(), m_geometry.valuesPerRecord);
    if (wanted == 0) return;
    const auto block = values.first(static_cast<std::size_t>(wanted) * m_geometry.realWidth);
    if (!IsEmpty(values.subspan(block.size()))) ++m_content.repairs.clearedRecords;
    // By way of a list that stays in the processor's cache: the column's memory is not written twice.
    m_decoded.resize(static_cast<std::size_t>(wanted));
    m_content.repairs.notNumbers +=
        DecodeReals(block, m_content.formats.numberFormat, m_machine.numberFormat, m_decoded);
    MakeRoom(list, m_decoded.size());
    list.insert(list.end(), m_decoded.begin(), m_decoded.end());
}

/// Room for `more` values, and for those that will follow them.
void CReading::MakeRoom(std::vector<double>& list, std::size_t more) const {
    if (list.capacity() - list.size() >= more) return;
    const std::uint64_t likely = std::max(kFirstReserve, kGrowth * list.size());
    list.reserve(static_cast<std::size_t>(std::min(Count(), likely)));
}

void CReading::ReadPairs() {
    CPointColumns& columns = m_content.columns;
    ReadBlocks(std::array{MakeKind(kOrdinateTag, columns.y), MakeKind(kAbscissaTag, columns.x)});
    if (columns.x.size() < Count() || columns.y.size() < Count()) throw CError(uds_read_message::kInsufficientData);
}

void CReading::ReadOrdinates() {
    ReadBlocks(std::array{MakeKind(kOrdinateTag, m_content.columns.y)});
    GenerateAbscissas();
}

void CReading::GenerateAbscissas() {
    CPointColumns& columns = m_content.columns;
    const std::int64_t first = m_content.fields.GetNFP();
    const float step = m_content.fields.Getdelt();
    columns.x.reserve(columns.y.size());
    for (std::size_t i = 0; i < columns.y.size(); ++i) {
        const auto number = static_cast<float>(first + static_cast<std::int64_t>(i));
        columns.x.push_back(static_cast<double>(number * step));
    }
}

}  // namespace

void ReadUds(CByteSource& source, const CUDSGeometry& geometry, CUDSContent& content) {
    if (source.Size() % geometry.recordSize != 0) throw CError(uds_read_message::kSizeNotMultiple);
    content = CUDSContent{};
    CReading reading(source, geometry, content);
    reading.ReadFileHeader();
    reading.ReadSecondComponent();
    reading.ReadCurveHeader();
    reading.CheckIndicesAndSize();
    reading.ReadData();
    content.repairs.year = content.fields.GetYEAR1();
    RepairYear(content.fields);
}

}  // namespace ks
