#include "signal/signal_loader.h"

#include "files/messages.h"
#include "signal/formats/signal_format.h"

#include <array>
#include <exception>
#include <new>
#include <string>
#include <vector>

namespace ks {
namespace {

/// The first format that does not skip the file and for which `attempt` does not throw; null when there is none.
template <class Attempt>
const CSignalFormat* FirstThatReads(CFormatList formats, const std::string& path, std::vector<std::string>& complaints,
                                    Attempt attempt) {
    for (const CSignalFormat* const format : formats) {
        try {
            if (format->recognizes != nullptr && !format->recognizes(path)) continue;
            attempt(*format);
            return format;
        } catch (const std::bad_alloc&) {
            complaints.push_back(read_message::NoMemoryToRead(path));
            return nullptr;
        } catch (const std::exception& error) {
            complaints.emplace_back(error.what());
        }
    }
    return nullptr;
}

}  // namespace

CLoadedSignal LoadSignal(const std::string& path, const std::string& channel, CFormatList formats) {
    CLoadedSignal loaded;
    loaded.format = FirstThatReads(formats, path, loaded.complaints,
                                   [&](const CSignalFormat& format) { loaded.record = format.load(path, channel); });
    return loaded;
}

CLoadedSignal LoadSignalAs(const CSignalFormat& format, const std::string& path) {
    return LoadSignal(path, std::string(kOnlyChannel), std::array{&format});
}

CChannelList ListChannels(const std::string& path, CFormatList formats) {
    CChannelList list;
    list.format = FirstThatReads(formats, path, list.complaints,
                                 [&](const CSignalFormat& format) { list.channels = format.channels(path); });
    return list;
}

}  // namespace ks
