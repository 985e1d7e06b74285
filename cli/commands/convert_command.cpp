#include "cli/commands/convert_command.h"

#include "cli/commands/file_input.h"
#include "cli/commands/file_options.h"
#include "cli/exit_status.h"
#include "cli/messages.h"
#include "cli/output/console.h"
#include "cli/output/outputs.h"
#include "files/number_text.h"
#include "files/uds_file.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

bool HaveSameBits(float a, float b) {
    return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

void TellOfUserReals(const ks::CUDSFile& file, CConsole& console) {
    constexpr std::array<std::string_view, 4> kNames = {"RD2", "RD3", "RD4", "RD5"};
    const float first = file.Fields().GetRD1();
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        const float old = file.Repairs().userReals[i];
        if (HaveSameBits(old, first)) continue;
        const std::string was = std::isnan(old) ? "not a number" : ks::ShortestSingleText(old);
        console.PrintLine(cli_message::UserRealChanged(kNames[i], was, ks::ShortestSingleText(first)));
    }
}

void TellOfYear(const ks::CUDSFile& file, CConsole& console) {
    const std::int32_t year = file.Fields().GetYEAR1();
    if (file.Repairs().year == year) return;
    console.PrintLine(cli_message::YearChanged(file.Repairs().year, year));
}

void TellOfCounts(const ks::CUDSRepairs& repairs, CConsole& console) {
    if (repairs.notNumbers > 0) {
        console.PrintLine(cli_message::NumbersCleared(repairs.notNumbers));
    }
    if (repairs.movedTexts > 0) {
        console.PrintLine(cli_message::TextsMoved(repairs.movedTexts));
    }
    if (repairs.clearedRecords > 0) {
        console.PrintLine(cli_message::RecordsCleared(repairs.clearedRecords));
    }
    if (repairs.unusedRecords > 0) {
        console.PrintLine(cli_message::RecordsDropped(repairs.unusedRecords));
    }
}

void TellOfChanges(const ks::CUDSFile& file, CConsole& console) {
    TellOfUserReals(file, console);
    TellOfYear(file, console);
    TellOfCounts(file.Repairs(), console);
}

std::string_view Characters(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

CExitStatus RunConvert(const std::vector<std::string>& arguments, CConsole& console) {
    const CConvertOptions options = ParseConvertOptions(arguments);
    RefuseOverwriting(options.out, options.file);
    // The file object itself, not a record made from it, because it keeps every field and knows what reading repaired.
    ks::CUDS1992 file;
    if (!ReadOrComplain(options.file, console, [&] { file.Read(options.file); })) return CExitStatus::Input;
    file.SetSunOutput(options.to == CTargetFormat::Sun);
    COutputs outputs(console);
    constexpr std::string_view kWhat = cli_message::kUdsFile;
    outputs.Attempt(kWhat, options.out, [&] { outputs.Write(kWhat, options.out, Characters(file.MakeImage())); });
    outputs.Finish();
    if (outputs.HasFailed()) {
        return CExitStatus::Output;
    }
    TellOfChanges(file, console);
    return CExitStatus::Good;
}
