#include "signal/messages.h"

#include "files/number_text.h"
#include "signal/saved_axis.h"

#include <boost/lexical_cast.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ks::signal_message {

std::string StopTimeNotAfterStart(double start, double stop) {
    return "Stop time (" + GeneralText(stop) + ") is before or equals Start Time (" + GeneralText(start) + ")";
}

std::string StartIndexNotBeforeStop(std::int32_t start, std::int32_t stop) {
    return "Start Index (" + boost::lexical_cast<std::string>(start) + ")is >= Stop Index (" +
           boost::lexical_cast<std::string>(stop) + ")";
}

std::string NoSuchChannel(std::string_view channel) {
    return "The file has no channel of this name: " + std::string(channel);
}

std::string NoMemoryToSave(const std::string& path) {
    return "There is not enough memory to write the file: " + path + ".";
}

std::string TimesLost(const std::string& path, const CLostAbscissa& lost) {
    return "The times of " + path + " are not those of its curve. The file holds the values alone, and point " +
           boost::lexical_cast<std::string>(lost.index + 1) + ", at " + GeneralText(lost.x) + ", will be read as at " +
           GeneralText(lost.xRead) + ".";
}

std::string PointNotFinite(std::size_t index, std::size_t count) {
    return "Point " + boost::lexical_cast<std::string>(index + 1) + " of " + boost::lexical_cast<std::string>(count) +
           " holds no finite number; an ASCII file cannot hold it.";
}

}  // namespace ks::signal_message
