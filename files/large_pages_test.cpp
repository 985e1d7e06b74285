#include "files/large_pages.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace ks {
namespace {

TEST(ReserveInLargePages, ReservesAndKeepsTheValues) {
    for (const std::size_t count : {0U, 1U, 1000U, 300000U, 3000000U}) {
        std::vector<double> values{1.0, 2.0};
        ReserveInLargePages(values, count);
        EXPECT_GE(values.capacity(), count);
        EXPECT_EQ(values, (std::vector<double>{1.0, 2.0}));
        const double* const place = values.data();
        values.resize(values.capacity(), 3.0);
        EXPECT_EQ(values.data(), place);
    }
}

TEST(ReserveInLargePages, TakesNoRoomAway) {
    std::vector<double> values;
    values.reserve(1000);
    ReserveInLargePages(values, 10);
    EXPECT_GE(values.capacity(), 1000U);
}

}  // namespace
}  // namespace ks
