#include "compare/ratings/parameters.h"

#include "compare/ratings/cora.h"
#include "compare/ratings/iso18571.h"
#include "compare/ratings/messages.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <optional>
#include <set>
#include <string_view>
#include <variant>

namespace ratings {
namespace {

template <class Options>
class RatingParameters : public testing::Test {};

using COptionTypes = testing::Types<CIso18571Options, CCoraOptions>;
TYPED_TEST_SUITE(RatingParameters, COptionTypes);

TYPED_TEST(RatingParameters, HaveNamesOfTheirOwn) {
    std::set<std::string_view> names;
    for (const auto& parameter : Parameters<TypeParam>()) {
        EXPECT_TRUE(names.insert(parameter.name).second) << parameter.name;
        EXPECT_EQ(FindParameter<TypeParam>(parameter.name), &parameter);
    }
}

TYPED_TEST(RatingParameters, SetOneMemberEach) {
    constexpr double kOther = 3.0;  // no default has this value
    const TypeParam defaults;
    for (const auto& changed : Parameters<TypeParam>()) {
        TypeParam options;
        SetValue(options, changed, kOther);
        EXPECT_NE(options, defaults) << changed.name;
        EXPECT_EQ(ValueOf(options, changed), kOther) << changed.name;
        for (const auto& parameter : Parameters<TypeParam>()) {
            if (&parameter == &changed) continue;
            EXPECT_EQ(ValueOf(options, parameter), ValueOf(defaults, parameter))
                << changed.name << " " << parameter.name;
        }
    }
}

/// What the options hold, by the sizes of the members that have names: a member without one would be left over.
template <class Options>
std::size_t NamedBytes() {
    std::size_t bytes = 0;
    for (const auto& parameter : Parameters<Options>()) {
        std::visit([&bytes](auto member) { bytes += sizeof(Options().*member); }, parameter.member);
    }
    return bytes;
}

TEST(RatingParameterTables, NameEveryMember) {
    EXPECT_EQ(NamedBytes<CCoraOptions>(), sizeof(CCoraOptions));
    // Each of the four int members stands between two doubles and so is padded to the size of one.
    EXPECT_EQ(NamedBytes<CIso18571Options>() + 4 * (sizeof(double) - sizeof(int)), sizeof(CIso18571Options));
}

TEST(RatingParameterNames, DoNotDependOnCase) {
    EXPECT_EQ(FindParameter<CCoraOptions>("a_thres"), FindParameter<CCoraOptions>("A_THRES"));
    EXPECT_NE(FindParameter<CCoraOptions>("a_thres"), nullptr);
    EXPECT_EQ(FindParameter<CIso18571Options>("Warping-Band")->name, "warping-band");
    EXPECT_EQ(FindParameter<CCoraOptions>("A-THRES"), nullptr);
    EXPECT_EQ(FindParameter<CCoraOptions>(""), nullptr);
    EXPECT_FALSE(IsSameName("K", "K_V"));
}

TEST(RatingParameterNames, AreTheTraditionalOnesOfCora) {
    CCoraOptions options;
    SetValue(options, *FindParameter<CCoraOptions>("G_V"), 0.25);
    SetValue(options, *FindParameter<CCoraOptions>("T_MAX"), 0.15);
    EXPECT_EQ(options.shapeWeight, 0.25);
    EXPECT_EQ(options.endS, std::optional(0.15));
    EXPECT_EQ(options.startS, std::nullopt);
}

// A whole number cannot hold 1.5; what it holds instead must be refused, and with the sentence that says so.
TEST(RatingParameterValues, ThatAreNotWholeAreRefusedWhereTheyMustBe) {
    for (const double value : {1.5, 0.0, -2.0, 1e300}) {
        CIso18571Options options;
        SetValue(options, *FindParameter<CIso18571Options>("slope-exponent"), value);
        EXPECT_EQ(FaultOf(options), rating_message::kIsoExponents) << value;
        options = {};
        SetValue(options, *FindParameter<CIso18571Options>("corridor-exponent"), value);
        EXPECT_EQ(FaultOf(options), rating_message::kCorridorExponent) << value;
    }
    CIso18571Options options;
    SetValue(options, *FindParameter<CIso18571Options>("corridor-exponent"), 4.0);
    EXPECT_EQ(options.corridorExponent, 4);
    EXPECT_EQ(FaultOf(options), std::nullopt);
}

}  // namespace
}  // namespace ratings
