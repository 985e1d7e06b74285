#pragma once

#include "compare/ratings/verification/annex.h"
#include "compare/ratings/verification/reference_case.h"

#include <optional>
#include <string>
#include <vector>

/// What `verify` found.
struct CVerification {
    std::vector<ratings::CReferenceCase> cases;
    std::optional<std::string> annexFolder{};  ///< as given
    std::vector<ratings::CAnnexError> annexErrors{};
};

/// The JSON of `verify`; docs/formats/verify.md describes it.
std::string VerifyJson(const CVerification& verification);
