#pragma once

#include "files/error.h"
#include "signal/formats/signal_format.h"
#include "signal/messages.h"
#include "signal/nsignal.h"

#include <string>
#include <vector>

namespace ks {

// Shared by the formats whose files hold one signal.

/// Reads the signal of a file; throws when the file is not of the format.
using CReadOnly = CNSignal (*)(const std::string& path);

/// The row's `channels`.
template <CReadOnly read>
std::vector<std::string> ListOnlyChannel(const std::string& path) {
    read(path);
    return {std::string(kOnlyChannel)};
}

/// The row's `load`.
template <CReadOnly read>
CNSignal LoadOnlyChannel(const std::string& path, const std::string& channel) {
    CNSignal record = read(path);
    if (channel != kOnlyChannel) throw CError(signal_message::NoSuchChannel(channel));
    return record;
}

}  // namespace ks
