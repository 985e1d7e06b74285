#include "signal/messages.h"

#include <gmock/gmock.h>

#include <limits>

namespace ks::signal_message {
namespace {

TEST(StopTimeNotAfterStart, WritesSixSignificantDigits) {
    EXPECT_EQ(StopTimeNotAfterStart(0.5, 0.25), "Stop time (0.25) is before or equals Start Time (0.5)");
    EXPECT_EQ(StopTimeNotAfterStart(1234567.0, -0.0000123456789),
              "Stop time (-1.23457e-05) is before or equals Start Time (1.23457e+06)");
    EXPECT_EQ(StopTimeNotAfterStart(std::numeric_limits<double>::infinity(), 3.0),
              "Stop time (3) is before or equals Start Time (inf)");
}

TEST(StartIndexNotBeforeStop, WritesPlainWholeNumbers) {
    EXPECT_EQ(StartIndexNotBeforeStop(10, 10), "Start Index (10)is >= Stop Index (10)");
    EXPECT_EQ(StartIndexNotBeforeStop(1234567, -1234567), "Start Index (1234567)is >= Stop Index (-1234567)");
}

TEST(PointNotFinite, CountsPointsFromOne) {
    EXPECT_EQ(PointNotFinite(0, 12345678), "Point 1 of 12345678 holds no finite number; an ASCII file cannot hold it.");
}

}  // namespace
}  // namespace ks::signal_message
