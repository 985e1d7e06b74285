#include "files/real_decoder.h"

#include "files/number_format.h"

#include <gmock/gmock.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <span>
#include <vector>

namespace ks {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr std::array<CNumberFormat, 4> kFormats = {CNumberFormat::Ieee, CNumberFormat::Sun, CNumberFormat::Vax,
                                                   CNumberFormat::Unknown};

void Put(std::vector<std::byte>& block, std::uint32_t bits) {
    for (const std::byte byte : std::bit_cast<CFourBytes>(bits)) block.push_back(byte);
}

/// Every sign and exponent in every byte order, with the fractions where something changes; and random bits.
std::vector<std::byte> ManyReals() {
    std::vector<std::byte> block;
    for (std::uint32_t upper = 0; upper <= 0xFFFFU; ++upper) {
        for (const std::uint32_t lower : {0U, 1U, 0xFFFFU}) {
            Put(block, upper << 16U | lower);
            Put(block, lower << 16U | upper);
        }
    }
    std::mt19937 random(5);
    for (int i = 0; i < 100000; ++i) Put(block, static_cast<std::uint32_t>(random()));
    return block;
}

std::vector<std::uint64_t> BitsOf(const std::vector<double>& values) {
    std::vector<std::uint64_t> bits;
    for (const double value : values) bits.push_back(std::bit_cast<std::uint64_t>(value));
    return bits;
}

TEST(DecodeReals, GivesWhatConversionOneByOneGives) {
    const std::vector<std::byte> block = ManyReals();
    for (const CNumberFormat from : kFormats) {
        for (const CNumberFormat machine : kFormats) {
            std::vector<double> quick(block.size() / 4, -1.0);
            std::vector<double> plain(block.size() / 4, -2.0);
            EXPECT_EQ(DecodeReals(block, from, machine, quick), DecodeRealsPlainly(block, from, machine, plain));
            EXPECT_EQ(BitsOf(quick), BitsOf(plain)) << static_cast<int>(from) << static_cast<int>(machine);
        }
    }
}

TEST(DecodeReals, FillsExactlyTheValues) {
    const std::vector<std::byte> all = ManyReals();
    for (std::size_t count = 0; count < 40; ++count) {
        std::vector<double> values(count + 1, -1.0);
        std::vector<double> plain(count, 0.0);
        // From an odd place, as in a file.
        const auto block = std::span(all).subspan(4001, 4 * count);
        DecodeReals(block, CNumberFormat::Sun, CNumberFormat::Ieee, std::span(values).first(count));
        DecodeRealsPlainly(block, CNumberFormat::Sun, CNumberFormat::Ieee, plain);
        EXPECT_EQ(values.back(), -1.0);
        values.pop_back();
        EXPECT_EQ(BitsOf(values), BitsOf(plain)) << count;
    }
}

TEST(DecodeReals, CountsWhatIsNotANumberAndMakesItZero) {
    const CNumberFormat machine = ProbeMachineFormats().numberFormat;
    const float infinity = std::numeric_limits<float>::infinity();
    std::vector<std::byte> block;
    for (const std::uint32_t bits : {0x7F800001U, 0xFFC00000U, 0x7FFFFFFFU, 0xFF800001U}) Put(block, bits);
    for (const float value : {infinity, -infinity, -0.0F, 1.5F}) Put(block, std::bit_cast<std::uint32_t>(value));
    std::vector<double> values(8);
    EXPECT_EQ(DecodeReals(block, machine, machine, values), 4U);
    EXPECT_THAT(std::span(values).first(4), Each(0.0));
    EXPECT_FALSE(std::signbit(values[1]));
    EXPECT_THAT(std::span(values).last(4),
                ElementsAre(static_cast<double>(infinity), -static_cast<double>(infinity), 0.0, 1.5));
    EXPECT_TRUE(std::signbit(values[6]));
}

}  // namespace
}  // namespace ks
