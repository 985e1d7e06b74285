#include "tests/support/uds_bytes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t kRecord = 512;
constexpr std::size_t kTag = 12;
constexpr std::size_t kValues = 125;

using CByteValues = std::array<unsigned, 4>;  // in file order

CByteValues HighFirst(std::uint32_t word) {
    return {(word >> 24U) & 255U, (word >> 16U) & 255U, (word >> 8U) & 255U, word & 255U};
}

CByteValues LowFirst(std::uint32_t word) {
    const CByteValues high = HighFirst(word);
    return {high[3], high[2], high[1], high[0]};
}

// sign * 0.1fraction * 2^exponent as VAX has it, sign * 1.fraction * 2^(exponent - 1) as IEEE has it; normal values
// and 0 only. `bias` is added to `exponent`.
std::uint32_t Word(double value, int bias) {
    if (value == 0.0) return 0;
    int exponent = 0;
    const double mantissa = std::frexp(std::abs(value), &exponent);
    const auto fraction = static_cast<std::uint32_t>(std::lround((mantissa * 2.0 - 1.0) * 8388608.0));
    const std::uint32_t sign = std::signbit(value) ? 0x80000000U : 0U;
    return sign | (static_cast<std::uint32_t>(exponent + bias) << 23U) | (fraction & 0x7FFFFFU);
}

CByteValues RealBytes(double value, CUdsNumbers numbers) {
    if (numbers == CUdsNumbers::Sun) return HighFirst(Word(value, 126));
    if (numbers == CUdsNumbers::Ieee) return LowFirst(Word(value, 126));
    // Two 16-bit words, the high one first, each with its low byte first.
    const CByteValues high = HighFirst(Word(value, 128));
    return {high[1], high[0], high[3], high[2]};
}

std::string NumberFormatText(CUdsNumbers numbers) {
    if (numbers == CUdsNumbers::Sun) return "SUN";
    return numbers == CUdsNumbers::Vax ? "VAX" : "IEEE";
}

void PutFour(std::string& bytes, std::size_t offset, const CByteValues& values) {
    for (std::size_t i = 0; i < 4; ++i) bytes.at(offset + i) = static_cast<char>(values[i]);
}

}  // namespace

CUDSBytes& CUDSBytes::AddRecord() {
    return Resize(m_bytes.size() + kRecord);
}

CUDSBytes& CUDSBytes::AddBlock(std::string_view tag, const std::vector<double>& values) {
    const std::size_t start = m_bytes.size();
    AddRecord().PutText(start, kTag, tag);
    for (std::size_t i = 0; i < values.size(); ++i) PutReal(start + kTag + 4 * i, values[i]);
    return *this;
}

CUDSBytes& CUDSBytes::AddBlocks(std::string_view tag, const std::vector<double>& values) {
    for (std::size_t i = 0; i < values.size(); i += kValues) {
        const std::size_t end = std::min(i + kValues, values.size());
        AddBlock(tag,
                 {values.begin() + static_cast<std::ptrdiff_t>(i), values.begin() + static_cast<std::ptrdiff_t>(end)});
    }
    return *this;
}

CUDSBytes& CUDSBytes::PutText(std::size_t offset, std::size_t width, std::string_view text) {
    std::string padded(text);
    padded.resize(width, ' ');
    return PutBytes(offset, padded);
}

CUDSBytes& CUDSBytes::PutInteger(std::size_t offset, std::int32_t value) {
    const auto word = static_cast<std::uint32_t>(value);
    PutFour(m_bytes, offset, m_numbers == CUdsNumbers::Sun ? HighFirst(word) : LowFirst(word));
    return *this;
}

CUDSBytes& CUDSBytes::PutReal(std::size_t offset, double value) {
    PutFour(m_bytes, offset, RealBytes(value, m_numbers));
    return *this;
}

CUDSBytes& CUDSBytes::PutBytes(std::size_t offset, std::string_view bytes) {
    m_bytes.replace(offset, bytes.size(), bytes);
    return *this;
}

CUDSBytes& CUDSBytes::Resize(std::size_t size) {
    m_bytes.resize(size, '\0');
    return *this;
}

std::size_t CurveHeaderOffset(const CUDSRecipe& recipe) {
    return recipe.hasSecondComponent ? 1024 : 512;
}

CUDSBytes UdsHeaders(const CUDSRecipe& recipe) {
    CUDSBytes file(recipe.numbers);
    file.AddRecord().PutText(0, 12, "UDS-1992").PutInteger(12, 1).PutText(16, 10, recipe.fileForm);
    file.PutText(26, 5, NumberFormatText(recipe.numbers)).PutText(31, 3, "MET");
    if (recipe.hasSecondComponent) file.AddRecord().PutText(512, 12, "CMP-2 HDR");

    const std::size_t curve = CurveHeaderOffset(recipe);
    file.AddRecord().PutText(curve, 12, "CURVE HDR").PutInteger(curve + 12, 1).PutText(curve + 16, 10, "X-Y");
    file.PutText(curve + 88, 20, "ACCELERATION").PutText(curve + 108, 20, "G'S");
    file.PutText(curve + 128, 20, "TIME").PutText(curve + 148, 20, "SECONDS").PutText(curve + 168, 20, "AS MEASURED");
    file.PutInteger(curve + 278, recipe.firstPoint).PutInteger(curve + 282, recipe.lastPoint);
    return file.PutReal(curve + 286, recipe.timeStep);
}

CUDSBytes UdsFile(const CUDSRecipe& recipe) {
    CUDSBytes file = UdsHeaders(recipe);
    file.AddBlocks("Y DATA", recipe.y);
    if (recipe.fileForm == "X-Y") file.AddBlocks("X DATA", recipe.x);
    return file;
}
