#include "signal/saved_axis.h"

#include "signal/data.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <vector>

namespace ks {
namespace {

constexpr double kStep = 0.25;

/// Eight points from time 0 on.
CData Record(const char* form) {
    CData record;
    record.SetFILEFORM(form);
    record.Setdelt(kStep);
    record.SetNLP(7);
    record.SetData(std::vector<double>(8, 1.0));
    return record;
}

TEST(FirstLostAbscissa, IsNoneInAFileOfPairs) {
    CData record = Record("X-Y");
    record.TruncateByTime(-1.0, 2.0);
    EXPECT_FALSE(FirstLostAbscissa(record).has_value());
}

TEST(FirstLostAbscissa, IsNoneWhereThePointNumbersTellTheTimes) {
    CData record = Record("Y");
    EXPECT_FALSE(FirstLostAbscissa(record).has_value());
    record.TruncateByTime(0.5, 2.0);
    EXPECT_FALSE(FirstLostAbscissa(record).has_value());
    EXPECT_FALSE(FirstLostAbscissa(CData()).has_value());
}

TEST(FirstLostAbscissa, IsNoneWithoutATimeStepWhichMakesAFileOfPairs) {
    CData record = Record("Y");
    record.TruncateByTime(-1.0, 2.0);
    record.Setdelt(0.0);
    EXPECT_FALSE(FirstLostAbscissa(record).has_value());
}

// The file is what its readers say: the test of the test.
TEST(FirstLostAbscissa, IsWhatAReaderGetsAfterACutFromBeforeTheFirstSample) {
    CData record = Record("Y");
    record.TruncateByTime(-1.0, 2.0);

    const auto lost = FirstLostAbscissa(record);
    ASSERT_TRUE(lost.has_value());
    EXPECT_EQ(lost->index, 0U);
    EXPECT_EQ(lost->x, 0.0);
    EXPECT_EQ(lost->xRead, -1.0);
    const CTempFolder folder;
    record.SaveUDS(folder.Path("cut.uds"));
    CData read;
    read.LoadUDS(folder.Path("cut.uds"));
    EXPECT_EQ(read.GetX().front(), lost->xRead);
}

TEST(FirstLostAbscissa, BeginsBeyondHalfAStep) {
    CData record = Record("Y");
    record.SetPoint(3, 3.5 * kStep, 1.0);
    EXPECT_FALSE(FirstLostAbscissa(record).has_value());
    record.SetPoint(3, 3.5625 * kStep, 1.0);
    const auto lost = FirstLostAbscissa(record);
    ASSERT_TRUE(lost.has_value());
    EXPECT_EQ(lost->index, 3U);
}

}  // namespace
}  // namespace ks
