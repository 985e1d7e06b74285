#include "compare/ratings/verification/annex.h"

#include "compare/ratings/iso18571.h"
#include "compare/ratings/verification/messages.h"
#include "compare/ratings/verification/reference_case.h"
#include "compare/ratings/verification/signals.h"
#include "files/number_text.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace ratings {
namespace {

/// The pair in the three columns that are read, at 0.1 ms.
std::string FileOf(const CPairOfSignals& pair) {
    std::string text = "Time,Test,CAE\n[s],[m/s2],[m/s2]\n";
    for (std::size_t i = 0; i < pair.reference.size(); ++i) {
        text += ks::FixedText(static_cast<double>(i) * 1e-4, 4) + "," + ks::ShortestText(pair.reference[i]) + "," +
                ks::ShortestText(pair.computed[i]) + "\n";
    }
    return text;
}

std::string NameOfFile(const CAnnexCase& annexCase) {
    return "case_" + std::string(annexCase.test) + "_cae" + std::to_string(annexCase.model) + ".csv";
}

TEST(Annex, HasThreeModelsOfEveryTestAndWeightedSumsThatAgree) {
    EXPECT_EQ(AnnexCases().size(), 42U);
    for (const CAnnexCase& row : AnnexCases()) {
        // Rounding of four scores, and of the sum.
        EXPECT_NEAR(0.4 * row.z + 0.2 * (row.ep + row.em + row.es), row.r, 0.5 * 0.4 + 0.5 * 0.6 + 0.5 + 1e-9)
            << row.test << row.model;
    }
}

TEST(Annex, AFileIsFoundByTheWordsOfItsName) {
    const auto found = [](std::string_view name) {
        const CAnnexCase* const annexCase = FindAnnexCase(name);
        return annexCase == nullptr ? std::string() : std::string(annexCase->test) + std::to_string(annexCase->model);
    };
    EXPECT_EQ(found("annex_c_1_1__ac1__cae1.csv"), "AC11");
    EXPECT_EQ(found("annex_c_5_3__mo3__cae2.CSV"), "MO32");
    EXPECT_EQ(found("C.4.3 FO3 (CAE3).txt"), "FO33");
    EXPECT_EQ(found("annex_c_1_1__ac1__cae4.csv"), "");
    EXPECT_EQ(found("annex_c_1_1__ac11__cae1.csv"), "");
    EXPECT_EQ(found("annex_c_1_1__ac1__cae1.xlsx"), "");
    EXPECT_EQ(found("annex_c_1_1__ac1__cae1.csv.bak"), "");
    EXPECT_EQ(found("cae1.csv"), "");
    EXPECT_EQ(found(""), "");
}

TEST(Annex, AllFilesAreScoredAsTheyAre) {
    const CTempFolder folder;
    const CPairOfSignals pair{Pulse(100, 0.3), Pulse(100, 0.3, 4)};
    for (const CAnnexCase& annexCase : AnnexCases()) folder.Write(NameOfFile(annexCase), FileOf(pair));
    folder.Write("readme.txt", "no case");
    const CAnnexRun run = RunAnnex(folder.Path(""));
    EXPECT_TRUE(run.errors.empty()) << run.errors.front().sentence;
    ASSERT_EQ(run.cases.size(), 42U);
    EXPECT_EQ(run.cases.front().name, "AC1 CAE1");
    EXPECT_EQ(run.cases.back().name, "MO3 CAE3");
    const double r = ScoreIso18571(pair.View()).r;
    for (const CReferenceCase& referenceCase : run.cases) {
        ASSERT_EQ(referenceCase.checks.size(), 5U);
        EXPECT_EQ(referenceCase.checks[0].got.Number(), r);
        EXPECT_NEAR(referenceCase.checks[2].got.Number(), 1.0 - 4.0 / 20.0, 1e-12);
        EXPECT_NEAR(referenceCase.checks[3].got.Number(), 1.0, 1e-12);
    }
    EXPECT_EQ(run.cases.front().checks[0].expected, 0.9169);
    EXPECT_FALSE(run.cases.front().checks[2].Passes()) << "EP is 0.9518 in the annex, 0.8 here";
    // DS1 CAE2 has Z = 1.0000, MO3 CAE3 has EP = 1.0000.
    EXPECT_EQ(run.cases[19].checks[1].expected, 1.0);
    EXPECT_EQ(run.cases[41].checks[2].expected, 1.0);
}

TEST(Annex, AScoreWithinAThousandthPasses) {
    // EP must be 0.4979 of MO2 CAE1 and 0.9596 of FO3 CAE3. A delay of 50 of 100 samples gives 0.5, one of 2 of 49
    // gives 0.9592.
    const CTempFolder folder;
    folder.Write("mo2_cae1.csv", FileOf({Pulse(500, 0.3), Pulse(500, 0.3, 50)}));
    folder.Write("fo3_cae3.csv", FileOf({Pulse(245, 0.3), Pulse(245, 0.3, 2)}));
    const CAnnexRun run = RunAnnex(folder.Path(""));
    ASSERT_EQ(run.cases.size(), 2U);
    EXPECT_EQ(run.cases[0].name, "FO3 CAE3");
    EXPECT_TRUE(run.cases[0].checks[2].Passes());
    EXPECT_EQ(run.cases[1].name, "MO2 CAE1");
    EXPECT_FALSE(run.cases[1].checks[2].Passes());
}

TEST(Annex, WhatIsMissingOrOddIsNamedAndTheRestIsScored) {
    const CTempFolder folder;
    for (const CAnnexCase& annexCase : AnnexCases()) {
        if (annexCase.test != "AC2") folder.Write(NameOfFile(annexCase), FileOf({Pulse(50, 0.3), Pulse(50, 0.3, 4)}));
    }
    folder.Write("case_AC1_cae1.csv", "");
    folder.Write("case_AC1_cae2.csv", FileOf({Pulse(8, 0.3), Pulse(8, 0.3)}));
    const std::string second = folder.Write("other_ac3_cae1.txt", "");
    const CAnnexRun run = RunAnnex(folder.Path(""));
    EXPECT_EQ(run.cases.size(), 37U);
    ASSERT_EQ(run.errors.size(), 4U);
    EXPECT_EQ(run.errors[0].path, second);
    EXPECT_EQ(run.errors[0].sentence, annex_message::AlreadyRead(folder.Path("case_AC3_cae1.csv")));
    EXPECT_EQ(run.errors[1].path, folder.Path("case_AC1_cae1.csv"));
    EXPECT_EQ(run.errors[1].sentence, annex_message::kNoColumns);
    EXPECT_EQ(run.errors[2].sentence, "ISO/TS 18571 needs at least 9 samples.");
    EXPECT_EQ(run.errors[3].sentence, "Files of the annex are missing: AC2 CAE1, AC2 CAE2, AC2 CAE3.");
}

TEST(Annex, AFolderWithoutItsFilesSaysWhatIsLookedFor) {
    const CTempFolder folder;
    folder.Write("other.csv", "Time,Test,CAE\n");
    CAnnexRun run = RunAnnex(folder.Path(""));
    ASSERT_EQ(run.errors.size(), 1U);
    EXPECT_EQ(run.errors.front().sentence, annex_message::kNoFiles);
    for (const char* const name : {"missing", "other.csv"}) {
        run = RunAnnex(folder.Path(name));
        ASSERT_EQ(run.errors.size(), 1U);
        EXPECT_EQ(run.errors.front().sentence, annex_message::kFolderNotRead);
        EXPECT_EQ(run.errors.front().path, folder.Path(name));
        EXPECT_TRUE(run.cases.empty());
    }
}

}  // namespace
}  // namespace ratings
