#pragma once

#include "files/replacing_file.h"

#include <string_view>

/// Exit status of quorvel-pdf-report. Above the shells' own and below their 126 and more.
enum class CPdfExitCode : int {
    Written = 0,
    NotOpened = 40,  ///< these three as ks::CWriteResult
    NotCompleted = 41,
    Damaged = 42,
    NotRead = 43,  ///< the signal file changed or is gone since quorvel-cli read it
    NoMemory = 44,
    Failed = 45,  ///< anything else
    WrongUsage = 46
};

constexpr CPdfExitCode ExitCodeOf(ks::CWriteResult result) {
    switch (result) {
        case ks::CWriteResult::Written:
            return CPdfExitCode::Written;
        case ks::CWriteResult::NotOpened:
            return CPdfExitCode::NotOpened;
        case ks::CWriteResult::NotCompleted:
            return CPdfExitCode::NotCompleted;
        case ks::CWriteResult::Damaged:
            return CPdfExitCode::Damaged;
    }
    return CPdfExitCode::Failed;
}

/// The last argument of quorvel-pdf-report.
inline constexpr std::string_view kFullReport = "full";
inline constexpr std::string_view kShortReport = "short";
