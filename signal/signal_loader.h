#pragma once

#include "signal/formats/formats.h"
#include "signal/formats/signal_format.h"
#include "signal/nsignal.h"

#include <span>
#include <string>
#include <vector>

namespace ks {

/// The formats that a loader tries, in order.
using CFormatList = std::span<const CSignalFormat* const>;

/// What loading a signal gave.
struct CLoadedSignal {
    CNSignal record;
    const CSignalFormat* format = nullptr;  ///< that of the file; null when no format could read it, the record is
                                            ///< then empty
    std::vector<std::string> complaints;    ///< one sentence for each attempt that failed, in order

    [[nodiscard]] bool IsLoaded() const { return format != nullptr; }
};

/// What listing the channels of a file gave.
struct CChannelList {
    std::vector<std::string> channels;
    const CSignalFormat* format = nullptr;  ///< null when no format could read the file
    std::vector<std::string> complaints;    ///< one sentence for each attempt that failed, in order
};

// All try the formats in order, except those that skip the file, until one does not throw. What a format throws is its
// complaint. When there is not enough memory for a file, the complaint says so and no other format is tried: it would
// fail on the same file after just as long. They throw only std::bad_alloc, when there is no memory for a sentence.

/// Reads one channel of the file at `path` (UTF-8); the empty name is that of a file's only channel.
CLoadedSignal LoadSignal(const std::string& path, const std::string& channel = std::string(kOnlyChannel),
                         CFormatList formats = kSignalFormats);

/// Reads the only channel of the file at `path` (UTF-8) with one format alone.
CLoadedSignal LoadSignalAs(const CSignalFormat& format, const std::string& path);

/// The channels of the file at `path` (UTF-8), in its order. Today's formats have one each, and know this only after
/// reading the file.
CChannelList ListChannels(const std::string& path, CFormatList formats = kSignalFormats);

}  // namespace ks
