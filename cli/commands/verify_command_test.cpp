#include "cli/commands/verify_command.h"

#include "cli/exit_status.h"
#include "compare/ratings/value.h"
#include "compare/ratings/verification/iso_formula_cases.h"
#include "compare/ratings/verification/reference_case.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using ratings::CReferenceCase;
using ratings::CValue;

CReferenceCase CaseOf(double expected, const CValue& got) {
    CReferenceCase referenceCase{"case", "signals"};
    referenceCase.Expect("metric", expected, got, ratings::kSevenDigits);
    return referenceCase;
}

TEST(VerifyStatus, IsGoodWhenAllChecksPass) {
    EXPECT_EQ(StatusOf(std::vector{CaseOf(0.5, CValue::Of(0.5)), CaseOf(1.0, CValue::Of(1.0))}), CExitStatus::Good);
}

TEST(VerifyStatus, IsBadWhenOneCheckFails) {
    EXPECT_EQ(StatusOf(std::vector{CaseOf(0.5, CValue::Of(0.5)), CaseOf(1.0, CValue::Of(1.0 - 1e-7))}),
              CExitStatus::BadVerdict);
}

TEST(VerifyStatus, IsBadWhenAValueIsNotAvailable) {
    EXPECT_EQ(StatusOf(std::vector{CaseOf(0.0, CValue::Unavailable("The reference is zero throughout."))}),
              CExitStatus::BadVerdict);
}

TEST(VerifyStatus, IsBadForAnAlgorithmWithAnotherParameter) {
    EXPECT_EQ(StatusOf(ratings::IsoFormulaCases()), CExitStatus::Good);
    EXPECT_EQ(StatusOf(ratings::IsoFormulaCases({.warpingShare = 0.2})), CExitStatus::BadVerdict);
}

}  // namespace
