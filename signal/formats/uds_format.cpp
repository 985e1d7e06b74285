#include "signal/formats/formats.h"
#include "signal/formats/only_channel.h"
#include "signal/formats/signal_format.h"
#include "signal/nsignal.h"

#include <string>

namespace ks {
namespace {

CNSignal ReadRecord(const std::string& path) {
    CNSignal record;
    record.LoadUDS(path);
    return record;
}

}  // namespace

const CSignalFormat kUdsFormat{
    "UDS-1992", true, nullptr, ListOnlyChannel<ReadRecord>, LoadOnlyChannel<ReadRecord>, "a UDS-1992 file"};

}  // namespace ks
