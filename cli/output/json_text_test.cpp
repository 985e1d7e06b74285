#include "cli/output/json_text.h"

#include "signal/column.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::string All(CJsonText& text) {
    std::string all;
    for (const std::string& piece : text.Take()) all += piece;
    return all;
}

TEST(JsonText, PutsCommasBetweenMembersAndItems) {
    CJsonText text;
    text.Open('{');
    text.Key("a");
    text.Open('[');
    text.Integer(-1);
    text.Bool(true);
    text.Null();
    text.Open('{');
    text.Close('}');
    text.Close(']');
    text.Key("b");
    text.Strings(std::vector<std::string>{"x", "[,"});
    text.Key("c");
    text.Reals({});
    text.Close('}');
    EXPECT_EQ(All(text), R"({"a":[-1,true,null,{}],"b":["x","[,"],"c":[]})");
}

TEST(JsonText, PutsTheCommaBeforeTheNewLine) {
    CJsonText text;
    text.Open('[');
    for (int i = 0; i < 2; ++i) {
        text.NewLine("  ");
        text.Integer(i);
    }
    text.Close(']');
    EXPECT_EQ(All(text), "[\n  0,\n  1]");
}

// Arrays of the library's own values need more memory than their text, and allocate while they are destroyed.
TEST(JsonText, GivesNumbersAndTextsTheBytesOfTheLibrary) {
    std::vector<double> values = {0.0,
                                  -0.0,
                                  1.0,
                                  -1.0,
                                  0.1,
                                  1e15,
                                  1e16,
                                  123456789012345680.0,
                                  1e-4,
                                  1e-5,
                                  5e-324,
                                  -2.2250738585072014e-308,
                                  1.7976931348623157e308};
    values.push_back(std::numeric_limits<double>::infinity());
    values.push_back(-std::numeric_limits<double>::infinity());
    values.push_back(std::numeric_limits<double>::quiet_NaN());
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) values.push_back(std::bit_cast<double>(random()));
    for (int i = 0; i < 20000; ++i) values.push_back(static_cast<double>(static_cast<std::int64_t>(random())) / 1e15);
    CJsonText text;
    text.Reals(values);
    EXPECT_TRUE(All(text) == nlohmann::json(values).dump());

    const std::string odd = "\"\\\n\x01\x7F\xC3\xA9";
    text.String(odd);
    EXPECT_EQ(All(text), nlohmann::json(odd).dump());
    text.String("a\xE4");
    EXPECT_EQ(All(text), "\"a\xEF\xBF\xBD\"");
}

TEST(JsonText, ComesInPiecesOfLimitedSize) {
    constexpr std::size_t kCount = 100000;
    CJsonText text;
    text.Reals(std::vector<double>(kCount, 1.5));
    const std::vector<std::string> pieces = text.Take();
    std::size_t size = 0;
    for (const std::string& piece : pieces) {
        EXPECT_LE(piece.capacity(), 65536U);
        size += piece.size();
    }
    EXPECT_EQ(size, 4 * kCount + 1);  // "1.5", a comma or the bracket, and the bracket at the start
    EXPECT_GT(pieces.size(), 4U);
    EXPECT_THAT(text.Take(), testing::IsEmpty());
}

TEST(JsonText, PassesItsPiecesOn) {
    const std::vector<double> values(100000, 1.5);
    CJsonText held, passed;
    held.Reals(values);
    held.Reals(values);
    passed.Reals(values);
    std::string text;
    std::size_t count = 0;
    passed.PassTo([&](std::string_view piece) {
        text += piece;
        ++count;
    });
    EXPECT_GT(count, 4U) << "what was held before";
    passed.Reals(values);
    EXPECT_GT(count, 9U);
    const std::vector<std::string> rest = passed.Take();
    ASSERT_EQ(rest.size(), 1U);
    EXPECT_LE(rest.front().capacity(), 65536U);
    EXPECT_TRUE(text + rest.front() == All(held));
}

TEST(JsonText, PassesATextLongerThanAPieceOn) {
    CJsonText text;
    std::string passed;
    text.PassTo([&passed](std::string_view piece) { passed += piece; });
    text.String("a");
    text.String(std::string(200000, 'x'));
    text.String("b");
    EXPECT_TRUE(passed + All(text) == "\"a\",\"" + std::string(200000, 'x') + "\",\"b\"");
}

TEST(JsonText, ShowsAColumnByItsRuleAsItsValues) {
    for (const ks::CRulePrecision precision : {ks::CRulePrecision::Double, ks::CRulePrecision::Single}) {
        const ks::CColumn column = ks::CColumn::Regular({0.0001, -3, precision}, 1000);
        CJsonText values, byRule;
        values.Reals(column.ToVector());
        byRule.Column(column);
        EXPECT_EQ(All(byRule), All(values));
    }
    CJsonText text;
    text.Column({});
    text.Column(ks::CColumn({1.0, std::numeric_limits<double>::infinity()}));
    EXPECT_EQ(All(text), "[],[1.0,null]");
}

}  // namespace
