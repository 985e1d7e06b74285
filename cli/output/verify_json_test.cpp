#include "cli/output/verify_json.h"

#include "compare/ratings/value.h"
#include "compare/ratings/verification/reference_case.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace {

using Json = nlohmann::json;
using ratings::CCaseSource;
using ratings::CReferenceCase;
using ratings::CValue;

TEST(VerifyJson, HasEveryDigitOfEveryCheck) {
    CReferenceCase pair{"pair", "m = 1, c = 2", CCaseSource::ClosedForm};
    pair.Expect("EP", 0.1, 0.30000000000000004, ratings::kSevenDigits);
    pair.Expect("ES", 1.0, CValue::Unavailable("There is none."), ratings::kSevenDigits);
    pair.Expect("lag", 3.0, 3.0, ratings::kWholeNumber);
    const Json json = Json::parse(VerifyJson({{pair}}));
    EXPECT_EQ(json["format"], "quorvel-verify");
    EXPECT_EQ(json["version"], 1);
    EXPECT_EQ(json["checkCount"], 3);
    EXPECT_EQ(json["failedCount"], 2);
    EXPECT_TRUE(json["annex"].is_null());
    const Json& shown = json["cases"].at(0);
    EXPECT_EQ(shown["name"], "pair");
    EXPECT_EQ(shown["signals"], "m = 1, c = 2");
    EXPECT_TRUE(json["sources"].contains(shown["source"].get<std::string>()));
    const Json& failed = shown["checks"].at(0);
    EXPECT_EQ(failed["metric"], "EP");
    EXPECT_EQ(failed["expected"], 0.1);
    EXPECT_EQ(failed["got"], 0.30000000000000004);
    EXPECT_EQ(failed["deviation"], 0.30000000000000004 - 0.1);
    EXPECT_EQ(failed["tolerance"], 0.5e-7);
    EXPECT_TRUE(failed["reason"].is_null());
    EXPECT_EQ(failed["verdict"], "fail");
    const Json& unavailable = shown["checks"].at(1);
    EXPECT_TRUE(unavailable["got"].is_null());
    EXPECT_TRUE(unavailable["deviation"].is_null());
    EXPECT_EQ(unavailable["reason"], "There is none.");
    EXPECT_EQ(unavailable["verdict"], "fail");
    EXPECT_EQ(shown["checks"].at(2)["verdict"], "pass");
}

TEST(VerifyJson, ListsWhatCouldNotBeReadOfTheAnnex) {
    const Json json = Json::parse(VerifyJson({{}, "folder", {{"folder/a.csv", "It is empty."}}}));
    EXPECT_EQ(json["annex"]["folder"], "folder");
    EXPECT_EQ(json["annex"]["errors"], Json::parse(R"([{"path":"folder/a.csv","message":"It is empty."}])"));
}

}  // namespace
