#include "files/real_decoder.h"

#include "files/number_format.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace ks {
namespace {

// The bits of a real of this machine, from the same bytes read as an integer. The last two only where both integers
// and reals begin with the low byte.

std::uint32_t SameBits(std::uint32_t bits) {
    return bits;
}

std::uint32_t BitsFromSun(std::uint32_t bits) {
    return bits << 24U | (bits & 0xFF00U) << 8U | (bits >> 8U & 0xFF00U) | bits >> 24U;
}

/// The halves change places and the exponent's byte becomes smaller by one, unless it is 0 or 128.
std::uint32_t BitsFromVax(std::uint32_t bits) {
    const std::uint32_t turned = (bits << 16U | bits >> 16U) - 0x01000000U;
    return (bits & 0x7F00U) == 0 ? 0U : turned;
}

/// Without branches, so that the compiler can use vector instructions. The number of values in one call fits into 32
/// bits with ease: a wider count would cost more instructions than the conversion.
template <std::uint32_t (*bitsFrom)(std::uint32_t)>
std::uint64_t Decode(const std::byte* block, double* values, std::size_t count) {
    std::uint32_t notNumbers = 0;
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, block + 4 * i, sizeof(bits));
        bits = bitsFrom(bits);
        const bool isNumber = static_cast<std::int32_t>(bits & 0x7FFFFFFFU) <= 0x7F800000;
        notNumbers += isNumber ? 0U : 1U;
        values[i] = static_cast<double>(std::bit_cast<float>(isNumber ? bits : 0U));
    }
    return notNumbers;
}

}  // namespace

std::uint64_t DecodeReals(std::span<const std::byte> block, CNumberFormat from, CNumberFormat machine,
                          std::span<double> values) {
    if (machine != CNumberFormat::Ieee || std::endian::native != std::endian::little) {
        return DecodeRealsPlainly(block, from, machine, values);
    }
    switch (from) {
        case CNumberFormat::Ieee:
            return Decode<SameBits>(block.data(), values.data(), values.size());
        case CNumberFormat::Sun:
            return Decode<BitsFromSun>(block.data(), values.data(), values.size());
        case CNumberFormat::Vax:
            return Decode<BitsFromVax>(block.data(), values.data(), values.size());
        case CNumberFormat::Unknown:
            break;
    }
    return DecodeRealsPlainly(block, from, machine, values);
}

std::uint64_t DecodeRealsPlainly(std::span<const std::byte> block, CNumberFormat from, CNumberFormat machine,
                                 std::span<double> values) {
    std::uint64_t notNumbers = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto bytes = block.subspan(4 * i, 4);
        const CFourBytes converted = ConvertReal({bytes[0], bytes[1], bytes[2], bytes[3]}, from, machine);
        const auto value = std::bit_cast<float>(converted);
        values[i] = std::isnan(value) ? 0.0 : static_cast<double>(value);
        notNumbers += std::isnan(value) ? 1U : 0U;
    }
    return notNumbers;
}

}  // namespace ks
