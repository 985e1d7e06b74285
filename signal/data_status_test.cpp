#include "signal/data_status.h"

#include <gmock/gmock.h>

#include <string>

namespace ks {
namespace {

struct Row {
    std::string name, text, stored;
};

class DataStatus : public testing::TestWithParam<Row> {};

TEST_P(DataStatus, IsStoredInItsLongForm) {
    EXPECT_EQ(CanonicalDataStatus(GetParam().text), GetParam().stored);
}

TEST_P(DataStatus, IsStableUnderStoringAgain) {
    EXPECT_EQ(CanonicalDataStatus(GetParam().stored), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(
    Vocabulary, DataStatus,
    testing::Values(Row{"AM", "AM", "AS MEASURED"},                   //
                    Row{"AsMeasured", "As Measured", "AS MEASURED"},  //
                    Row{"AmLower", "am", "AS MEASURED"},              //
                    Row{"CM", "CM", "COMPUTED"},                      //
                    Row{"Computed", "Computed", "COMPUTED"},          //
                    Row{"DFT", "dft", "DFT"},                         //
                    Row{"CF", "CF", "CHANNEL FAILED"},                //
                    Row{"ChannelFailed", "CHANNEL FAILED", "CHANNEL FAILED"}, Row{"SF", "SF", "SYSTEM FAILED"},
                    Row{"SystemFailed", "System Failed", "SYSTEM FAILED"}, Row{"Filtered", "filtered", "FILTERED"},
                    Row{"Aligend", "Aligend", "ALIGEND"}, Row{"Modified", "modified", "MODIFIED"},
                    Row{"MN", "mn", "MEANINGLESS"}, Row{"Meaningless", "MEANINGLESS", "MEANINGLESS"},
                    Row{"NO", "no", "NO DATA"}, Row{"NoData", "No Data", "NO DATA"},
                    Row{"QD", "QD", "QUESTIONABLE DATA"},
                    Row{"QuestionableData", "QUESTIONABLE DATA", "QUESTIONABLE DATA"},
                    Row{"Subsampled", "subsampled", "SUBSAMPLED"}, Row{"SC", "sc", "SCALING FACTOR"},
                    Row{"Scaled", "scaled", "SCALING FACTOR"}, Row{"ScalingFactor", "Scaling Factor", "SCALING FACTOR"},
                    Row{"Truncated", "Truncated", "TRUNCATED"}, Row{"UN", "un", "NOT KNOW"},
                    Row{"NotKnow", "not know", "NOT KNOW"}, Row{"Distorted", "distorted", "DISTORTED"},
                    Row{"OtherWord", "foo", "FOO"}, Row{"BlanksAroundACode", " am ", " AM "},
                    Row{"BeyondAscii", "ge\xC3\xA4ndert", "GE\xC3\xA4NDERT"}, Row{"Empty", "", ""}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ks
