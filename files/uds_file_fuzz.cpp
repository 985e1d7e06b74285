// Whatever the bytes: the reader refuses them with an error of ours, or what it read can be written and read again to
// the same fields and points, in the machine's format and in SUN's. When it reported no change, the same bytes are
// written.

#include "files/uds_file.h"

#include "files/error.h"
#include "files/uds_content.h"
#include "files/uds_field_table.h"
#include "files/uds_fields.h"
#include "files/uds_layout.h"
#include "files/uds_reader.h"
#include "tests/support/memory_source.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace {

void Require(bool isMet) {
    if (!isMet) std::abort();
}

bool HaveSameBits(const std::vector<double>& a, const std::vector<double>& b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::bit_cast<std::uint64_t>(a[i]) != std::bit_cast<std::uint64_t>(b[i])) return false;
    }
    return true;
}

void RequireSameFields(const ks::CUDSFields& a, const ks::CUDSFields& b) {
    for (const ks::CUDSField& field : ks::UdsFieldTable()) {
        Require(std::visit([&](const auto& access) { return (a.*access.get)() == (b.*access.get)(); }, field.access));
    }
}

ks::CUDSContent Read(std::span<const std::byte> image) {
    CMemorySource source(image);
    ks::CUDSContent content;
    ks::ReadUds(source, ks::CUDSGeometry{}, content);
    return content;
}

ks::CUDS1992 FileOf(const ks::CUDSContent& content, bool sun) {
    ks::CUDS1992 file;
    file.Fields() = content.fields;
    file.SetColumns(content.columns);
    file.SetSecondComponent(content.hasSecondComponent);
    file.SetSunOutput(sun);
    return file;
}

void WriteAndReadAgain(const ks::CUDSContent& content, bool sun) {
    ks::CUDS1992 file = FileOf(content, sun);
    const std::vector<std::byte> image = file.MakeImage();
    const ks::CUDSContent back = Read(image);
    RequireSameFields(file.Fields(), back.fields);
    Require(HaveSameBits(content.columns.x, back.columns.x));
    Require(HaveSameBits(content.columns.y, back.columns.y));
    Require(content.hasSecondComponent == back.hasSecondComponent);
    Require(FileOf(back, sun).MakeImage() == image);
}

bool IsReadUnchanged(const ks::CUDSContent& content) {
    ks::CUDSRepairs none;
    none.userReals.fill(content.fields.GetRD1());
    none.year = content.fields.GetYEAR1();
    const ks::CUDSRepairs& repairs = content.repairs;
    for (std::size_t i = 0; i < none.userReals.size(); ++i) {
        const bool isSame =
            std::bit_cast<std::uint32_t>(repairs.userReals[i]) == std::bit_cast<std::uint32_t>(none.userReals[i]);
        if (!isSame) return false;
    }
    return repairs.year == none.year && repairs.notNumbers == 0 && repairs.movedTexts == 0 &&
           repairs.clearedRecords == 0 && repairs.unusedRecords == 0;
}

/// Except for the number format and the order of the data records, which need not be reported.
void RequireSameBytes(const ks::CUDSContent& content, std::span<const std::byte> bytes) {
    const std::string format = content.fields.GetNUMFORM();
    if (content.fields.GetFILEFORM() != "Y" || format == "VAX" || !IsReadUnchanged(content)) return;
    const std::vector<std::byte> image = FileOf(content, format == "SUN").MakeImage();
    Require(std::equal(image.begin(), image.end(), bytes.begin(), bytes.end()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::byte> bytes = std::as_bytes(std::span(data, size));
    ks::CUDSContent content;
    try {
        content = Read(bytes);
    } catch (const ks::CError&) {
        return 0;
    }
    RequireSameBytes(content, bytes);
    WriteAndReadAgain(content, false);
    WriteAndReadAgain(content, true);
    return 0;
}
