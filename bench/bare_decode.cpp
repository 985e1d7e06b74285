#include "bench/bare_column.h"
#include "bench/bare_loops.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace bare {
namespace {

constexpr std::size_t kRecordSize = 512;
constexpr std::size_t kTagSize = 12;
constexpr std::size_t kValuesPerRecord = 125;
constexpr std::size_t kRecordsAtATime = 256;
constexpr std::size_t kHeaderSize = 2 * kRecordSize;

enum class CNumbers { Ieee, Sun, Vax };

std::uint32_t Swapped(std::uint32_t bits) {
    return bits << 24U | (bits & 0xFF00U) << 8U | (bits >> 8U & 0xFF00U) | bits >> 24U;
}

/// The bits of a single-precision number of this (little-endian) machine.
template <CNumbers numbers>
std::uint32_t Bits(std::uint32_t bits) {
    if constexpr (numbers == CNumbers::Sun) return Swapped(bits);
    if constexpr (numbers == CNumbers::Vax) {
        const std::uint32_t exponent = bits >> 8U & 0xFFU;
        const std::uint32_t turned = (bits << 16U | bits >> 16U) - 0x01000000U;
        return (exponent & 0x7FU) == 0 ? 0U : turned;
    }
    return bits;
}

template <CNumbers numbers>
void Decode(const std::byte* from, std::size_t count, double* to) {
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, from + 4 * i, 4);
        const auto value = std::bit_cast<float>(Bits<numbers>(bits));
        to[i] = value == value ? static_cast<double>(value) : 0.0;
    }
}

class CFile {
public:
    explicit CFile(const std::string& path) : m_handle(open(path.c_str(), O_RDONLY)) {
        if (m_handle < 0) throw std::runtime_error("Cannot read " + path);
    }
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    ~CFile() { close(m_handle); }

    std::size_t Read(std::span<std::byte> target) const {
        const ssize_t count = read(m_handle, target.data(), target.size());
        return count < 0 ? 0 : static_cast<std::size_t>(count);
    }

private:
    int m_handle;
};

void GiveRoom(CBareColumn& column, std::size_t count) {
    if (column.Values().size() != count) column = CBareColumn(count);
}

}  // namespace

void DecodeUds(const std::string& path, CCurve& curve) {
    const CFile file(path);
    std::array<std::byte, kHeaderSize> header{};
    if (file.Read(header) != header.size()) throw std::runtime_error("Cannot read " + path);
    const std::string_view form(reinterpret_cast<const char*>(header.data()) + 26, 4);
    const bool isSun = form == "SUN ";
    const auto decode = isSun ? Decode<CNumbers::Sun> : form == "VAX " ? Decode<CNumbers::Vax> : Decode<CNumbers::Ieee>;
    const auto integerAt = [&](std::size_t offset) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, header.data() + kRecordSize + offset, 4);
        return std::bit_cast<std::int32_t>(isSun ? Swapped(bits) : bits);
    };
    double timeStep = 0.0;
    decode(header.data() + kRecordSize + 286, 1, &timeStep);
    curve.axis = {integerAt(278), static_cast<float>(timeStep)};
    const auto count = static_cast<std::size_t>(integerAt(282) - curve.axis.first + 1);
    GiveRoom(curve.y, count);
    if (header[16] == std::byte{'X'}) GiveRoom(curve.x, count);

    double* y = curve.y.Values().data();
    double* x = curve.x.Values().data();
    std::size_t yLeft = curve.y.Values().size();
    std::size_t xLeft = curve.x.Values().size();
    std::vector<std::byte> buffer(kRecordsAtATime * kRecordSize);
    while (const std::size_t size = file.Read(buffer)) {
        for (std::size_t start = 0; start < size; start += kRecordSize) {
            const bool isY = buffer[start] == std::byte{'Y'};
            double*& to = isY ? y : x;
            std::size_t& left = isY ? yLeft : xLeft;
            const std::size_t values = std::min(kValuesPerRecord, left);
            decode(buffer.data() + start + kTagSize, values, to);
            to += values;
            left -= values;
        }
    }
}

CCurve DecodeUds(const std::string& path) {
    CCurve curve;
    DecodeUds(path, curve);
    return curve;
}

}  // namespace bare
