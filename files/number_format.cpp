#include "files/number_format.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace ks {
namespace {

constexpr CFourBytes Bytes(unsigned b0, unsigned b1, unsigned b2, unsigned b3) {
    return {static_cast<std::byte>(b0), static_cast<std::byte>(b1), static_cast<std::byte>(b2),
            static_cast<std::byte>(b3)};
}

constexpr std::byte Plus(std::byte exponent, int difference) {
    return static_cast<std::byte>(std::to_integer<int>(exponent) + difference);
}

constexpr bool IsZeroExponent(std::byte exponent) {
    return exponent == std::byte{0} || exponent == std::byte{128};
}

constexpr CFourBytes Same(CFourBytes b) {
    return b;
}
constexpr CFourBytes Zero(CFourBytes /*b*/) {
    return {};
}
constexpr CFourBytes Reverse(CFourBytes b) {
    return {b[3], b[2], b[1], b[0]};
}

// The exponent byte grows by one: that is 2 in the exponent, the difference of the two formats' biases and hidden
// bits. A byte that cannot grow gives the largest magnitude with the exponent byte in place of the sign's; kept.
constexpr CFourBytes Largest(std::byte exponent) {
    return {std::byte{255}, exponent, std::byte{255}, std::byte{255}};
}

constexpr CFourBytes IeeeToVax(CFourBytes b) {
    const std::byte exponent = b[3];
    if (IsZeroExponent(exponent)) return {};
    if (exponent == std::byte{127} || exponent == std::byte{255}) return Largest(exponent);
    return {b[2], Plus(exponent, 1), b[0], b[1]};
}

// 129 where the conversion from IEEE has 127: kept, files were written this way.
constexpr CFourBytes SunToVax(CFourBytes b) {
    const std::byte exponent = b[0];
    if (IsZeroExponent(exponent)) return {};
    if (exponent == std::byte{129} || exponent == std::byte{255}) return Largest(exponent);
    return {b[1], Plus(exponent, 1), b[3], b[2]};
}

constexpr CFourBytes VaxToIeee(CFourBytes b) {
    if (IsZeroExponent(b[1])) return {};
    return {b[2], b[3], b[0], Plus(b[1], -1)};
}

constexpr CFourBytes VaxToSun(CFourBytes b) {
    if (IsZeroExponent(b[1])) return {};
    return {Plus(b[1], -1), b[0], b[3], b[2]};
}

template <CFourBytes (*convert)(CFourBytes)>
void ConvertBlock(std::span<std::byte> block) {
    for (std::size_t i = 0; i + 4 <= block.size(); i += 4) {
        const CFourBytes value = convert({block[i], block[i + 1], block[i + 2], block[i + 3]});
        for (std::size_t j = 0; j < 4; ++j) block[i + j] = value[j];
    }
}

class CConversion {
public:
    CFourBytes (*one)(CFourBytes);
    void (*block)(std::span<std::byte>);
};

template <CFourBytes (*convert)(CFourBytes)>
constexpr CConversion kConversion{convert, ConvertBlock<convert>};

/// Rows: from IEEE, SUN, VAX; columns: to IEEE, SUN, VAX. In the order of the format codes.
constexpr std::array<std::array<CConversion, 3>, 3> kConversions{{
    {kConversion<Same>, kConversion<Reverse>, kConversion<IeeeToVax>},
    {kConversion<Reverse>, kConversion<Same>, kConversion<SunToVax>},
    {kConversion<VaxToIeee>, kConversion<VaxToSun>, kConversion<Same>},
}};

const CConversion& ConversionOf(CNumberFormat from, CNumberFormat to) {
    if (from == to) return kConversion<Same>;
    const auto row = static_cast<std::size_t>(from) - 1;
    const auto column = static_cast<std::size_t>(to) - 1;
    if (row >= kConversions.size() || column >= kConversions.size()) return kConversion<Zero>;
    return kConversions[row][column];
}

struct CFormatName {
    std::string_view name;
    CNumberFormats formats;
};

constexpr std::array<CFormatName, 3> kFormatNames{{
    {"IEEE", {CByteOrder::LittleEndian, CNumberFormat::Ieee}},
    {"SUN", {CByteOrder::BigEndian, CNumberFormat::Sun}},
    {"VAX", {CByteOrder::LittleEndian, CNumberFormat::Vax}},
}};

}  // namespace

CFourBytes ConvertReal(CFourBytes value, CNumberFormat from, CNumberFormat to) {
    return ConversionOf(from, to).one(value);
}

void ConvertReals(std::span<std::byte> block, CNumberFormat from, CNumberFormat to) {
    if (from != to) ConversionOf(from, to).block(block);
}

CFourBytes ConvertInteger(CFourBytes value, CByteOrder from, CByteOrder to) {
    if (from == to) return value;
    if (from == CByteOrder::BigEndian && to == CByteOrder::LittleEndian) return Reverse(value);
    if (from == CByteOrder::LittleEndian && to == CByteOrder::BigEndian) return Reverse(value);
    return {};
}

CNumberFormats FormatsOf(std::string_view numform) {
    const auto* const found = std::ranges::find(kFormatNames, numform, &CFormatName::name);
    return found == kFormatNames.end() ? CNumberFormats{} : found->formats;
}

std::string_view NumberFormatName(CNumberFormat format) {
    for (const CFormatName& row : kFormatNames) {
        if (row.formats.numberFormat == format) return row.name;
    }
    return "UKNOWN";
}

CNumberFormats FormatsFromProbe(CFourBytes integerBytes, CFourBytes realBytes) {
    CNumberFormats formats;
    if (integerBytes == Bytes(134, 99, 0, 0)) formats.byteOrder = CByteOrder::LittleEndian;
    if (integerBytes == Bytes(0, 0, 99, 134)) formats.byteOrder = CByteOrder::BigEndian;

    if (realBytes == Bytes(199, 192, 154, 53)) {
        formats.numberFormat = CNumberFormat::Ieee;
    } else if (realBytes == Bytes(53, 154, 192, 199)) {
        formats.numberFormat = CNumberFormat::Sun;
    } else if (realBytes == Bytes(154, 54, 199, 192)) {
        formats.numberFormat = CNumberFormat::Vax;
    } else {
        formats.byteOrder = CByteOrder::Unknown;
    }
    return formats;
}

CNumberFormats ProbeMachineFormats() {
    return FormatsFromProbe(std::bit_cast<CFourBytes>(std::int32_t{25478}), std::bit_cast<CFourBytes>(1.153e-6F));
}

}  // namespace ks
