#pragma once

#include "cli/arguments.h"
#include "cli/join.h"
#include "signal/channel_class.h"

#include <array>
#include <string>
#include <string_view>

inline const std::string kClassNames = ks::ChannelClassList(", ", " or ");
inline const std::string kClassArgument = "a channel class: " + kClassNames;

inline constexpr std::string_view kCriticalExample = "moment=0.3";
inline constexpr std::string_view kIsoParameterExample = "corridor-outer=0.4";
inline constexpr std::string_view kCoraParameterExample = "K_V=1";
inline const std::string kCriticalArgument = Join({"NAME=VALUE, for example ", kCriticalExample});
inline const std::string kIsoParameterArgument = Join({"NAME=VALUE, for example ", kIsoParameterExample});
inline const std::string kCoraParameterArgument = Join({"NAME=VALUE, for example ", kCoraParameterExample});

/// The options of `quorvel-cli compare`.
inline const std::array<COptionDeclaration, 20> kCompareOptions = {{
    {"--hit-list", COptionKind::Repeatable, "the PATH of a hit list"},
    {"--reference", COptionKind::Single, "the PATH of a signal file"},
    {"--cfc", COptionKind::Single, kClassArgument},
    {"--no-filter-reference", COptionKind::Flag, ""},
    {"--window", COptionKind::Pair, "two numbers, MIN and MAX"},
    {"--jobs", COptionKind::Single, "a number N"},
    {"--corridor", COptionKind::Single, "a SIZE greater than 0"},
    {"--critical", COptionKind::Repeatable, kCriticalArgument},
    {"--ratings", COptionKind::Single, "a SET, for example standard"},
    {"--iso-parameter", COptionKind::Repeatable, kIsoParameterArgument},
    {"--cora-parameter", COptionKind::Repeatable, kCoraParameterArgument},
    {"--html", COptionKind::Single, "a PATH to write to"},
    {"--json", COptionKind::Single, "a PATH to write to, or - for standard output"},
    {"--csv", COptionKind::Single, "a PATH to write to, or - for standard output"},
    {"--pages", COptionKind::Flag, ""},
    {"--ascii", COptionKind::Single, "a DIR to write to"},
    {"--uds", COptionKind::Single, "a DIR to write to"},
    {"--fail-on-bad", COptionKind::Names, "names after =, or no ="},
    {"--quiet", COptionKind::Flag, ""},
    {"--verbose", COptionKind::Flag, ""},
}};
