#pragma once

#include "cli/arguments.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

inline constexpr COptionDeclaration kAnnex{"--annex", COptionKind::Single, "a DIR with the files of the annex"};

inline constexpr std::array<COptionDeclaration, 2> kVerifyOptions = {{{"--json", COptionKind::Flag, ""}, kAnnex}};

/// `quorvel-cli verify [--json] [--annex DIR]`
struct CVerifyOptions {
    bool isJson = false;
    std::optional<std::string> annex{};  ///< folder, UTF-8
};

/// @throws CUsageError with a sentence that says what would be accepted
CVerifyOptions ParseVerifyOptions(const std::vector<std::string>& arguments);
