// Linked with files/large_blocks.cpp, which replaces the allocation of this program.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <vector>

namespace {

constexpr std::size_t kLargePage = std::size_t{1} << 21U;

std::uintptr_t PlaceOf(const void* memory) {
    return reinterpret_cast<std::uintptr_t>(memory);
}

TEST(LargeBlocks, OfEverySizeHoldWhatIsWritten) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kLargePage, 2 * kLargePage - 1, 2 * kLargePage,
                                   2 * kLargePage + 1, 5 * kLargePage / 2, 9 * kLargePage - 7}) {
        std::vector<unsigned char> bytes(size, 7);
        std::vector<unsigned char> others(size, 9);
        EXPECT_EQ(bytes, std::vector<unsigned char>(size, 7)) << size;
    }
}

#if defined(__linux__)
TEST(LargeBlocks, BeginAtALargePage) {
    for (int i = 0; i < 5; ++i) {
        const std::vector<double> values(1000000, 1.0);
        EXPECT_EQ(PlaceOf(values.data()) % kLargePage, 0U);
        const auto array = std::make_unique_for_overwrite<double[]>(1000000);
        EXPECT_EQ(PlaceOf(array.get()) % kLargePage, 0U);
    }
}
#endif

TEST(LargeBlocks, BeyondAllMemoryAreRefused) {
    const volatile std::size_t tooLarge = std::numeric_limits<std::size_t>::max() - 100;
    EXPECT_THROW(::operator delete(::operator new(tooLarge)), std::bad_alloc);
    EXPECT_THROW(::operator delete(::operator new(tooLarge / 2)), std::bad_alloc);
    EXPECT_EQ(::operator new(tooLarge, std::nothrow), nullptr);
}

TEST(LargeBlocks, TryAgainAfterTheNewHandler) {
    static int calls = 0;
    std::set_new_handler([] {
        if (++calls == 3) std::set_new_handler(nullptr);
    });
    const volatile std::size_t tooLarge = std::numeric_limits<std::size_t>::max() - 100;
    EXPECT_THROW(::operator delete(::operator new(tooLarge)), std::bad_alloc);
    EXPECT_EQ(calls, 3);
}

}  // namespace
