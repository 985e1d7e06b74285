#pragma once

#include "signal/nsignal.h"

#include <string>
#include <string_view>
#include <vector>

namespace ks {

/// One way in which files hold signals: a row of the table in signal/formats/formats.h. Paths are UTF-8.
struct CSignalFormat {
    std::string_view name;  ///< as a sentence would call it, for example "UDS-1992"

    /// Whether a run filters the signals of such files; false where they are compared as they are.
    bool shouldFilter = true;

    /// Whether the file at `path` begins as files of this format do. The format is skipped, without a sentence, for a
    /// file that does not. Null if the format does not check: it is then tried on every file, and its sentence joins
    /// those that the user reads.
    bool (*recognizes)(const std::string& path) = nullptr;

    /// The names of the channels that the file at `path` holds, in its order. A format whose files hold one signal
    /// gives one name, the empty text.
    /// @throws CError with the user's sentence when the file is not of this format
    std::vector<std::string> (*channels)(const std::string& path) = nullptr;

    /// Reads one of those channels.
    /// @throws CError with the user's sentence when the file is not of this format, or has no such channel
    CNSignal (*load)(const std::string& path, const std::string& channel) = nullptr;

    /// What a sentence calls a file of the format, with its article, for example "a UDS-1992 file".
    std::string_view file = {};
};

/// The name of a file's only channel.
inline constexpr std::string_view kOnlyChannel{};

}  // namespace ks
