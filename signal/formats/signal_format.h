#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "signal/nsignal.h"

namespace ks {

/// One way in which files hold signals: a row of the table in signal/formats/formats.h. Paths are UTF-8.
struct CSignalFormat {
    std::string_view name;  ///< as a sentence would call it, for example "UDS-1992"

    /// Whether a run filters the signals of such files; false where they are compared as they stand.
    bool shouldFilter = true;

    /// Whether the file at `path` begins as files of this format do. One that does not is passed over without a
    /// sentence. Null where that is not asked: the format is tried on every file, and its sentence joins those that the
    /// user reads.
    bool (*recognizes)(const std::string& path) = nullptr;

    /// The names of the channels that the file at `path` holds, in its order. A format whose files hold one signal
    /// gives one name, the empty text.
    /// @throws CError with the user's sentence when the file is none of this format
    std::vector<std::string> (*channels)(const std::string& path) = nullptr;

    /// Reads one of those channels.
    /// @throws CError with the user's sentence when the file is none of this format, or has no such channel
    CNSignal (*load)(const std::string& path, const std::string& channel) = nullptr;
};

/// The name of the channel where there is but one.
inline constexpr std::string_view kOnlyChannel{};

}  // namespace ks
