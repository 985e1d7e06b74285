#include "cli/output/header_json.h"

#include "files/uds_field_table.h"
#include "signal/data.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace {

using nlohmann::json;

json ReadOne(const ks::CData& record) {
    CHeaderJson text;
    text.AddFile("path", record);
    return json::parse(text.Finish()).at("files").at(0);
}

json Group(const json& file, const std::string& title) {
    for (const json& group : file.at("groups")) {
        if (group.at("title") == title) return group;
    }
    return {};
}

TEST(HeaderJson, OfNothingHasItsMembersInTheirOrder) {
    EXPECT_EQ(CHeaderJson().Finish(),
              "{\n"
              "\"format\": \"quorvel-show\",\n"
              "\"version\": 1,\n"
              "\"files\": [],\n"
              "\"errors\": []\n"
              "}\n");
}

TEST(HeaderJson, HasOneLinePerFileAndPerError) {
    CHeaderJson text;
    text.AddFile("one", ks::CData());
    text.AddError("a", "Why a");
    text.AddFile("two", ks::CData());
    text.AddError("b", "Why \"b\"");
    std::istringstream read(text.Finish());
    std::vector<std::string> lines;
    for (std::string line; std::getline(read, line);) lines.push_back(line);
    // Each file is one whole object on one line, which begins with its path.
    const auto file = [](const std::string& path, const std::string& end) {
        return testing::AllOf(testing::StartsWith("  {\"path\":\"" + path + "\",\"secondComponent\":false,"),
                              testing::EndsWith("}" + end), testing::Truly([&](const std::string& line) {
                                  return json::accept(line.substr(0, line.size() - end.size()));
                              }));
    };
    EXPECT_THAT(lines, testing::ElementsAre("{", "\"format\": \"quorvel-show\",", "\"version\": 1,", "\"files\": [",
                                            file("one", ","), file("two", "],"), "\"errors\": [",
                                            "  {\"path\":\"a\",\"message\":\"Why a\"},",
                                            "  {\"path\":\"b\",\"message\":\"Why \\\"b\\\"\"}]", "}"));
}

TEST(HeaderJson, HasTheFieldsAsTheyAreInTheFile) {
    ks::CData record;
    record.SetTSTNO(-5);
    record.SetTITLE("M\xC3\xBCnchen");
    record.SetCD1(std::string("USER\0\0", 6));
    record.SetFCUT(0.1);
    record.SetFCOR(std::numeric_limits<double>::infinity());
    const json fields = ReadOne(record).at("fields");
    EXPECT_EQ(fields.at("TSTNO"), -5);
    EXPECT_EQ(fields.at("TITLE"), "M\xC3\xBCnchen");
    EXPECT_EQ(fields.at("CD1"), "USER");
    EXPECT_EQ(fields.at("FCUT").get<double>(), static_cast<double>(0.1F));
    EXPECT_TRUE(fields.at("FCOR").is_null());
}

TEST(HeaderJson, HasTheFieldsOfASecondComponentOnlyWhereThereIsOne) {
    ks::CData record;
    const json one = ReadOne(record);
    EXPECT_EQ(one.at("secondComponent"), false);
    EXPECT_FALSE(one.at("fields").contains("MAKE2"));
    EXPECT_TRUE(Group(one, "Vehicle Two").is_null());
    EXPECT_EQ(one.at("fields").size(), ks::UdsFieldTable().size() - 17);

    record.SetSecondComponent(true);
    record.SetMAKE2("MAKE");
    const json two = ReadOne(record);
    EXPECT_EQ(two.at("secondComponent"), true);
    EXPECT_EQ(two.at("fields").at("MAKE2"), "MAKE");
    EXPECT_EQ(two.at("fields").size(), ks::UdsFieldTable().size());
    EXPECT_EQ(Group(two, "Vehicle Two").at("entries").at(0),
              json({{"label", "Make:"}, {"value", "MAKE"}, {"unit", ""}}));
}

TEST(HeaderJson, HasTheLabeledValuesInGroupsOfDifferentTitles) {
    ks::CData record;
    record.Setdelt(0.001);
    record.SetNLP(2);
    record.SetData({1.0, 2.0, 3.0});
    const json file = ReadOne(record);
    EXPECT_EQ(file.at("path"), "path");
    EXPECT_EQ(file.at("pointCount"), 3);
    EXPECT_EQ(Group(file, "Curve").at("entries").at(4),
              json({{"label", "Time Range:"}, {"value", "0.000000 to 2.000000"}, {"unit", "(msec)"}}));
    EXPECT_EQ(Group(file, "Curve data and sensor").at("entries").size(), 10U);
    std::vector<std::string> titles;
    for (const json& group : file.at("groups")) titles.push_back(group.at("title"));
    EXPECT_THAT(titles,
                testing::ElementsAre("File", "Test", "Vehicle One", "Occupant One", "Occupant InJury", "Curve",
                                     "Curve data and sensor", "Curve User Data", "Other File Fields",
                                     "Other Test Fields", "Other Vehicle One Fields", "Other Occupant InJury Fields",
                                     "Other Curve Fields", "Other Sensor Fields", "Extrema"));
}

TEST(HeaderJson, ShowsBytesThatAreNotUtf8AsTheReplacementCharacter) {
    CHeaderJson text;
    text.AddFile("a\xE4", ks::CData());
    text.AddError("b\xFF", "c\xFF");
    const json read = json::parse(text.Finish());
    EXPECT_EQ(read.at("files").at(0).at("path"), "a\xEF\xBF\xBD");
    EXPECT_EQ(read.at("errors").at(0).at("path"), "b\xEF\xBF\xBD");
    EXPECT_EQ(read.at("errors").at(0).at("message"), "c\xEF\xBF\xBD");
}

}  // namespace
