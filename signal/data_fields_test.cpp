#include "signal/data_fields.h"

#include "files/uds_field_list.h"

#include <gmock/gmock.h>

#include <limits>

namespace ks {
namespace {

TEST(DataFields, KeepRealsInDoublePrecisionAndTheHeaderInSingle) {
    CDataFields fields;
    fields.Setdelt(0.0001);

    EXPECT_EQ(fields.Getdelt(), 0.0001);
    EXPECT_EQ(static_cast<const CUDSFields&>(fields).Getdelt(), 0.0001F);
}

TEST(DataFields, NarrowWhatIsTooLargeToInfinity) {
    CDataFields fields;
    fields.SetFSTP(1e300);

    EXPECT_EQ(fields.GetFSTP(), 1e300);
    EXPECT_EQ(static_cast<const CUDSFields&>(fields).GetFSTP(), std::numeric_limits<float>::infinity());
}

TEST(DataFields, TakeAHeaderOverWithEveryRealWidened) {
    CUDSFields header;
    header.SetTITLE("Frontal 56");
    header.SetNFP(-20);
    float value = 1.1F;
#define QUORVEL_NO_TEXT(record, NAME, width, fallback)
#define QUORVEL_NO_INTEGER(record, NAME, fallback)
#define QUORVEL_SET(record, NAME) header.Set##NAME(value += 0.7F);
    QUORVEL_UDS_FIELDS(QUORVEL_NO_TEXT, QUORVEL_NO_INTEGER, QUORVEL_SET)
#undef QUORVEL_SET
    CDataFields fields;
    fields.SetFields(header);

    EXPECT_EQ(fields.GetTITLE(), "Frontal 56");
    EXPECT_EQ(fields.GetNFP(), -20);
    int reals = 0;
#define QUORVEL_COMPARE(record, NAME)                                                           \
    EXPECT_EQ(fields.Get##NAME(), static_cast<double>(header.Get##NAME())) << #NAME;            \
    EXPECT_EQ(static_cast<const CUDSFields&>(fields).Get##NAME(), header.Get##NAME()) << #NAME; \
    ++reals;
    QUORVEL_UDS_FIELDS(QUORVEL_NO_TEXT, QUORVEL_NO_INTEGER, QUORVEL_COMPARE)
#undef QUORVEL_COMPARE
#undef QUORVEL_NO_TEXT
#undef QUORVEL_NO_INTEGER
    EXPECT_EQ(reals, 25);
}

}  // namespace
}  // namespace ks
