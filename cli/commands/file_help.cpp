#include "cli/commands/file_help.h"

#include "cli/help_text.h"

#include <vector>

namespace {

constexpr const char* kOneFile = "A UDS-1992 file. Put a FILE whose name begins with - after --.";

constexpr const char* kOutPath =
    "Write to this file; - is standard output. An existing file is replaced only when the new one is complete. FILE "
    "itself is never replaced.";

std::vector<CHelpEntry> WithCommonOptions(std::vector<CHelpEntry> entries) {
    entries.push_back({"--help", "Print this help and exit."});
    entries.push_back({"--version", "Print the version and exit."});
    return entries;
}

}  // namespace

CHelpPage ShowHelp() {
    return {
        "quorvel-cli show",
        "Show the header of signal files",
        {"quorvel-cli show [--json] FILE..."},
        {{"Options", WithCommonOptions({{"FILE...",
                                         "UDS-1992 files. Those that can be read are shown in the order given. Put "
                                         "a FILE whose name begins with - after --."},
                                        {"--json",
                                         "Print JSON instead of text: the header fields as they are in the file, "
                                         "and the labeled values."}})},
         {"What is shown",
          {{"",
            "Every field of the header, in groups: first the labeled fields, with the labels of the file viewer and "
            "its report, then the other fields under their names, then the extrema of the points. Reals have six "
            "decimals; the JSON has every digit. Time Step and Time Range are in milliseconds. The fields of a "
            "second component appear only if the file has one. A two-digit year of component 1 is shown with its "
            "century, and RD2 to RD5 have the value of RD1, because every reader in this program takes them that "
            "way."}}},
         {"Examples",
          {{"quorvel-cli show test.uds", "Inspect a file."},
           {"quorvel-cli show --json *.uds", "Pass the headers of many files to another program."}}}}};
}

CHelpPage ExportHelp() {
    return {
        "quorvel-cli export",
        "Write the points of a signal file as text",
        {"quorvel-cli export FILE --xy|--x --out PATH"},
        {{"Options", WithCommonOptions(
                         {{"FILE", kOneFile},
                          {"--xy", "Write one line \"x y\" per point."},
                          {"--x", "Write only the Y value of each point, one per line; when read back, every x is 0."},
                          {"--out PATH", kOutPath}})},
         {"The text",
          {{"",
            "Lines end with carriage return and line feed. Each number is the shortest text that reads back to the "
            "same double, with a decimal point in every locale, so the ASCII point file keeps every bit. Points "
            "with a value that is not finite are refused, with status 3 and without a file."}}},
         {"Examples",
          {{"quorvel-cli export test.uds --xy --out test.txt", "Use a curve in a spreadsheet."},
           {"quorvel-cli export test.uds --x --out - | sort -g | tail -n 1", "Find the largest value."}}}}};
}

CHelpPage ConvertHelp() {
    return {"quorvel-cli convert",
            "Write a signal file in another number format",
            {"quorvel-cli convert FILE --to ieee|sun --out PATH"},
            {{"Options",
              WithCommonOptions({{"FILE", kOneFile},
                                 {"--to ieee|sun",
                                  "Number format to write: ieee, which is little-endian, or sun, which is big-endian. "
                                  "FILE may also be in the VAX format."},
                                 {"--out PATH", kOutPath}})},
             {"What changes",
              {{"",
                "Header fields and points keep their values. Standard error lists what could not be kept: RD2 to RD5 "
                "become RD1, a two-digit year of component 1 gets its century, reals that are not a number become 0, "
                "texts lose their leading blanks, unused bytes after the last field or point of a record become 0, "
                "and data records after the last point are dropped. In the X-Y form, all Y DATA records come first."}}},
             {"Examples", {{"quorvel-cli convert old.uds --to ieee --out new.uds", "Convert an old file."}}}}};
}

CHelpPage ReportHelp() {
    return {
        "quorvel-cli report",
        "Write the report of a signal file as PDF",
        {"quorvel-cli report FILE --pdf PATH [--full]"},
        {{"Options",
          WithCommonOptions({{"FILE", kOneFile},
                             {"--pdf PATH",
                              "Write to this file. An existing file is replaced only when the new one is complete. "
                              "FILE itself is never replaced."},
                             {"--full",
                              "Write the full report, which adds the fields without a label, the extrema and a "
                              "plot of the curve."}})},
         {"Where it works",
          {{"",
            "No screen is needed. A build without the desktop program cannot write reports: the command says so and "
            "ends with status 2."}}},
         {"Examples", {{"quorvel-cli report test.uds --pdf test.pdf --full", "Write the full report of a test."}}}}};
}
