// Whatever the bytes: the reader refuses them with an error of ours, or what it read can be written and read again to
// the same fields and points, in the machine's format and in SUN's. When it reported no change, the same bytes are
// written.

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "files/error.h"
#include "files/uds_content.h"
#include "files/uds_field_table.h"
#include "files/uds_fields.h"
#include "files/uds_file.h"

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

void WriteAndReadAgain(ks::CUDSFile& file, bool isSun) {
    file.SetSunOutput(isSun);
    const std::vector<std::byte> image = file.MakeImage();
    ks::CUDS1992 back;
    back.ReadImage(image);
    RequireSameFields(file.Fields(), back.Fields());
    Require(HaveSameBits(file.Columns().x, back.Columns().x));
    Require(HaveSameBits(file.Columns().y, back.Columns().y));
    Require(file.HasSecondComponent() == back.HasSecondComponent());
    back.SetSunOutput(isSun);
    Require(back.MakeImage() == image);
}

bool IsTakenOverAsItStands(const ks::CUDSFile& file) {
    const ks::CUDSFields& fields = file.Fields();
    ks::CUDSRepairs none;
    none.userReals.fill(fields.GetRD1());
    none.year = fields.GetYEAR1();
    const ks::CUDSRepairs& repairs = file.Repairs();
    for (std::size_t i = 0; i < none.userReals.size(); ++i) {
        const bool isSame =
            std::bit_cast<std::uint32_t>(repairs.userReals[i]) == std::bit_cast<std::uint32_t>(none.userReals[i]);
        if (!isSame) return false;
    }
    return repairs.year == none.year && repairs.notNumbers == 0 && repairs.movedTexts == 0 &&
           repairs.clearedRecords == 0 && repairs.unusedRecords == 0;
}

/// Except for the number format and the order of the data records, which need not be reported.
void RequireSameBytes(ks::CUDSFile& file, std::span<const std::byte> bytes) {
    const std::string format = file.Fields().GetNUMFORM();
    if (file.Fields().GetFILEFORM() != "Y" || format == "VAX" || !IsTakenOverAsItStands(file)) return;
    file.SetSunOutput(format == "SUN");
    const std::vector<std::byte> image = file.MakeImage();
    Require(std::equal(image.begin(), image.end(), bytes.begin(), bytes.end()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ks::CUDS1992 file;
    try {
        file.ReadImage(std::as_bytes(std::span(data, size)));
    } catch (const ks::CError&) {
        Require(file.Columns().Count() == 0);
        return 0;
    }
    RequireSameBytes(file, std::as_bytes(std::span(data, size)));
    WriteAndReadAgain(file, false);
    WriteAndReadAgain(file, true);
    return 0;
}
