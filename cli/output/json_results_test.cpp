#include "cli/output/json_results.h"

#include "cli/commands/compare_options.h"
#include "compare/chart_block.h"
#include "compare/note.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "compare/summary_columns.h"
#include "tests/support/summary_samples.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using nlohmann::json;

/// The whole text; `results` is finished.
std::string Text(CJsonResults results, bool shouldShowPages) {
    std::string text;
    for (const std::string& piece : results.Finish(shouldShowPages)) text += piece;
    return text;
}

json Read(const CCompareOptions& options, const CResults& results, const CSignal& reference,
          const std::vector<CSignal>& signalList) {
    return json::parse(Text(CJsonResults(options, results, reference, signalList), false));
}

CSignal SignalOf(const std::string& path, std::vector<double> y) {
    CSignal signal(path);
    std::vector<double> x(y.size());
    for (std::size_t i = 0; i < x.size(); ++i) x[i] = 0.001 * static_cast<double>(i);
    signal.Record().SetNLP(static_cast<std::int32_t>(y.size()) - 1);
    signal.Record().Setdelt(0.001);
    signal.Record().SetData(std::move(x), std::move(y));
    return signal;
}

TEST(JsonResults, AreInOrderOneMemberPerLine) {
    EXPECT_EQ(
        Text(CJsonResults({}, {{"e"}, {"r"}, {1, 7}}, CSignal("ref"), {}), false),
        "{\n"
        "\"format\": \"quorvel-compare\",\n"
        "\"version\": 1,\n"
        "\"settings\": {\"cfc\":null,\"filterReference\":false,\"window\":null,\"corridor\":4.0,\"critical\":"
        "{\"residual\":5.0,\"stddev\":20.0,\"corridor\":0.1,\"correlation\":0.05,\"t\":2.58,\"moment\":0.2}},\n"
        "\"errors\": [\"e\"],\n"
        "\"referenceErrors\": [\"r\"],\n"
        "\"reference\": {\"path\":\"ref\",\"pointCount\":0,\"timeStep\":0.0,\"xUnits\":\"SECONDS\",\"yUnits\":\"\","
        "\"warnings\":[]},\n"
        "\"pageList\": [1,7],\n"
        "\"signals\": []\n"
        "}\n");
}

TEST(JsonResults, NameTheSettings) {
    CCompareOptions options;
    options.cfc = 1000;
    options.window = CWindow{-0.5, 0.1};
    const json settings = Read(options, {}, {}, {}).at("settings");
    EXPECT_EQ(settings.at("cfc"), 1000);
    EXPECT_EQ(settings.at("filterReference"), true);
    EXPECT_EQ(settings.at("window"), json::array({-0.5, 0.1}));
}

TEST(JsonResults, KeepEveryBitOfANumberAndShowNullForNone) {
    const double third = 1.0 / 3.0;
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<double> values = {third, -0.0, 5e-324, 1.7976931348623157e308, 9.999999747378752e-05, infinity};
    CChartBlock block;
    block.pointCount = 6;
    block.seriesCount = 1;
    const CSeriesList series = {boost::make_shared<ks::CNSignal>(SignalOf("s", values).Record())};
    const std::vector<std::string> names = {"name"};
    CJsonResults results({}, {}, {}, {});
    results.AddPage({7, std::nullopt, block, series, names});
    const json one = json::parse(Text(results, true)).at("pages").at(0).at("series").at(0);
    EXPECT_EQ(one.at("name"), "name");
    for (std::size_t i = 0; i < 5; ++i) {
        const double read = one.at("y").at(i).get<double>();
        EXPECT_EQ(std::memcmp(&read, &values[i], sizeof read), 0) << values[i];
    }
    EXPECT_TRUE(one.at("y").at(5).is_null());
}

TEST(JsonResults, ShowBytesThatAreNotUtf8AsTheReplacementCharacter) {
    const json read = Read({},
                           {{"b\xFF"
                             "c"},
                            {},
                            {}},
                           CSignal("a\xE4"), {});
    EXPECT_EQ(read.at("reference").at("path"), "a\xEF\xBF\xBD");
    EXPECT_EQ(read.at("errors").at(0),
              "b\xEF\xBF\xBD"
              "c");
}

TEST(JsonResults, ShowASignalWithTextsAndVerdicts) {
    const CSignal reference = SignalOf("ref", {0.0, 2.0, 4.0, 2.0, 0.0});
    CSignal signal = SignalOf("path", {0.0, 2.0, 4.0, 2.0, 0.0});
    signal.Compare(reference);
    const json read = Read({}, {}, reference, {signal}).at("signals").at(0);
    EXPECT_EQ(read.at("path"), "path");
    EXPECT_EQ(read.at("referenceName"), "ref");
    EXPECT_EQ(read.at("pointCount"), 5);
    EXPECT_EQ(read.at("measures").at("residualSum"), 0.0);
    EXPECT_EQ(read.at("measures").at("computedPeak"), 4.0);
    EXPECT_EQ(read.at("measures").at("momentDifferences"), json::array({0.0, 0.0, 0.0, 0.0, 0.0, 0.0}));
    EXPECT_TRUE(read.at("measures").at("tStatistic").is_null());
    EXPECT_EQ(read.at("columns").at(0), "path");
    EXPECT_EQ(read.at("columns").at(6), "nan");
    EXPECT_EQ(read.at("verdicts"), json::array({"none", "none", "good", "good", "good", "good", "bad", "good", "good",
                                                "good", "good", "good", "good", "none", "none", "none"}));
}

TEST(JsonResults, LeaveOutColumnsThatAreNotFixed) {
    const std::vector<CSummaryColumn> columns = ColumnsWithExtra(), fixed = FixedColumns();
    const CSignal signal = SignalOf("path", {0.0, 2.0, 4.0, 2.0, 0.0});
    const std::string text = Text(CJsonResults({}, {}, signal, {signal}, columns), false);
    EXPECT_EQ(text, Text(CJsonResults({}, {}, signal, {signal}, fixed), false));
    EXPECT_EQ(json::parse(text).at("signals").at(0).at("columns").size(), 16U);
    EXPECT_EQ(json::parse(text).at("signals").at(0).at("verdicts").size(), 16U);
}

TEST(JsonResults, ShowTheSummaryPageWithoutCurvesWhateverTheChartBlockHolds) {
    CChartBlock block;
    block.pointCount = 9;
    block.seriesCount = 2;
    CJsonResults results({}, {}, {}, {});
    results.AddPage({1, std::nullopt, block, {boost::make_shared<ks::CNSignal>()}, {}});
    const json page = json::parse(Text(results, true)).at("pages").at(0);
    EXPECT_EQ(page.at("name"), "Summary");
    EXPECT_EQ(page.at("pointCount"), 0);
    EXPECT_EQ(page.at("seriesCount"), 0);
    EXPECT_EQ(page.at("series"), json::array());
    EXPECT_EQ(page.at("built"), true);
    EXPECT_TRUE(page.at("error").is_null());
}

TEST(JsonResults, ShowAPageThatCouldNotBeBuilt) {
    CJsonResults results({}, {}, {}, {});
    results.AddPage({11, "Why", {}, {}, {}});
    const json page = json::parse(Text(results, true)).at("pages").at(0);
    EXPECT_EQ(page.at("built"), false);
    EXPECT_EQ(page.at("error"), "Why");
}

TEST(JsonResults, ShowAChartPageWithoutSeriesAsNotBuilt) {
    CJsonResults results({}, {}, {}, {});
    results.AddPage({6, std::nullopt, {}, {}, {}});
    const json page = json::parse(Text(results, true)).at("pages").at(0);
    EXPECT_EQ(page.at("built"), false);
    EXPECT_TRUE(page.at("error").is_null());
}

TEST(JsonResults, ShowNotesNextToTheWarnings) {
    CSignal reference("ref");
    reference.Notes().push_back({CNoteKind::ReferenceResampled, "R."});
    CSignal signal("a");
    signal.Notes().push_back({CNoteKind::NotFiltered, "S."});
    signal.Notes().push_back({CNoteKind::Resampled, "T."});
    CJsonResults results({}, {{}, {}, {}, {{CNoteKind::AverageIsFirst, "U."}}}, reference, {signal});
    const CChartBlock block;
    const CSeriesList series;
    const std::vector<std::string> names;
    CPageView page{6, std::nullopt, block, series, names};
    page.notes.push_back({3, {CNoteKind::CutByPage, "V."}});
    results.AddPage(page);
    const std::string text = Text(results, true);

    EXPECT_THAT(text,
                testing::HasSubstr("\"referenceErrors\": [],\n\"notes\": [{\"kind\":\"average-is-first\",\"text\":"
                                   "\"U.\"}],\n\"reference\""));
    EXPECT_THAT(text,
                testing::HasSubstr("\"warnings\":[],\"notes\":[{\"kind\":\"reference-resampled\",\"text\":\"R.\"}]}"));
    EXPECT_THAT(text, testing::HasSubstr("\"warnings\":[],\"notes\":[{\"kind\":\"not-filtered\",\"text\":\"S.\"},"
                                         "{\"kind\":\"resampled\",\"text\":\"T.\"}],\"measures\""));
    EXPECT_THAT(text, testing::HasSubstr("\"seriesCount\":0,\"notes\":[{\"signal\":3,\"kind\":\"cut-by-page\",\"text\":"
                                         "\"V.\"}],\"series\":[]"));
}

/// A page with one curve of that many points.
void AddLongPage(CJsonResults& results, std::size_t count) {
    const CChartBlock block;
    const CSeriesList series = {
        boost::make_shared<ks::CNSignal>(SignalOf("s", std::vector<double>(count, 0.5)).Record())};
    const std::vector<std::string> names = {"name"};
    results.AddPage({7, std::nullopt, block, series, names});
}

TEST(JsonResults, StreamTheirPagesWithTheSameBytes) {
    CJsonResults held({}, {{"e"}, {}, {}}, {}, {}), streamed({}, {{"e"}, {}, {}}, {}, {});
    std::string text;
    streamed.StreamPagesTo([&text](std::string_view piece) { text += piece; });
    EXPECT_EQ(text, "");
    std::size_t before = 0;
    for (int page = 0; page < 3; ++page) {
        AddLongPage(held, 50000);
        AddLongPage(streamed, 50000);
        EXPECT_GT(text.size(), before + 400000) << "the page is gone from memory";
        before = text.size();
    }
    for (const std::string& piece : streamed.Finish(true)) text += piece;
    EXPECT_TRUE(text == Text(std::move(held), true));
}

TEST(JsonResults, AreLostWhenTheirSinkLacksMemory) {
    CJsonResults results({}, {}, {}, {});
    int pieces = 0;
    results.StreamPagesTo([&pieces](std::string_view) {
        ++pieces;
        throw std::bad_alloc();
    });
    AddLongPage(results, 50000);
    AddLongPage(results, 50000);
    EXPECT_EQ(pieces, 1);
    EXPECT_THROW(results.Finish(true), std::bad_alloc);
}

TEST(JsonResults, HavePagesOnlyWhenAsked) {
    EXPECT_FALSE(json::parse(Text(CJsonResults({}, {}, {}, {}), false)).contains("pages"));
    EXPECT_EQ(json::parse(Text(CJsonResults({}, {}, {}, {}), true)).at("pages"), json::array());
}

}  // namespace
