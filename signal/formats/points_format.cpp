#include "files/ascii_points.h"
#include "signal/formats/formats.h"
#include "signal/formats/only_channel.h"
#include "signal/formats/signal_format.h"
#include "signal/nsignal.h"

#include <cstdint>
#include <string>

namespace ks {
namespace {

/// A time signal in seconds, numbered from 0 on.
CNSignal ReadRecord(const std::string& path) {
    CPoints points;
    points.ReadFile(path);
    CNSignal record;
    record.SetPoints(points.TakeColumns());
    record.SetXTYPE("TIME");
    record.SetXUNITS("SECONDS");
    record.SetNFP(0);
    record.SetNLP(static_cast<std::int32_t>(record.GetPointCount()) - 1);
    record.SetFileType("ASCII File");
    return record;
}

}  // namespace

const CSignalFormat kPointsFormat{
    "ASCII points", false, nullptr, ListOnlyChannel<ReadRecord>, LoadOnlyChannel<ReadRecord>, "an ASCII point file"};

}  // namespace ks
