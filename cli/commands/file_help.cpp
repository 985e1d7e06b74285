#include "cli/commands/file_help.h"

namespace {

constexpr const char* kOneFile = "A UDS-1992 file. A FILE whose name begins with - stands behind --.";

constexpr const char* kOutPath =
    "Write to this file; - is standard output. An old file is replaced when the new one is complete, and never when it "
    "is FILE itself.";

std::vector<CHelpEntry> WithCommonOptions(std::vector<CHelpEntry> entries) {
    entries.push_back({"--help", "Print this help and end."});
    entries.push_back({"--version", "Print the version and end."});
    return entries;
}

}  // namespace

CHelpPage ShowHelp() {
    return {"quorvel-cli show",
            "Show the header of signal files",
            {"quorvel-cli show [--json] FILE..."},
            {{"Options", WithCommonOptions({{"FILE...",
                                             "UDS-1992 files. What can be read is shown, in the order given. A FILE "
                                             "whose name begins with - stands behind --."},
                                            {"--json",
                                             "Print JSON in place of the table: the header fields as they are in the "
                                             "file, and the labelled values."}})},
             {"What is shown",
              {{"",
                "Every field of the header, in groups, under the labels of the file viewer and its report: first the "
                "labelled ones, then the others under their field names, then the extrema of the points. Reals have "
                "six decimals; the JSON has every digit. Time Step and Time Range are in milliseconds. A file without "
                "a second component has none of its fields. A two-digit year of component 1 is shown with its century, "
                "and RD2 to RD5 have the value of RD1: so every reader of this program takes them."}}},
             {"Examples",
              {{"quorvel-cli show test.uds", "Look into a file."},
               {"quorvel-cli show --json *.uds", "Give the headers of many files to another program."}}}}};
}

CHelpPage ExportHelp() {
    return {"quorvel-cli export",
            "Write the points of a signal file as text",
            {"quorvel-cli export FILE --xy|--x --out PATH"},
            {{"Options",
              WithCommonOptions({{"FILE", kOneFile},
                                 {"--xy", "Write one line \"x y\" per point."},
                                 {"--x", "Write one line per point with its Y value alone; read back, every x is 0."},
                                 {"--out PATH", kOutPath}})},
             {"The text",
              {{"",
                "Lines end with carriage return and line feed. Each number is the shortest text that reads back to the "
                "same double, with a point whatever the locale, so that the ASCII point file holds every bit. Points "
                "that hold no finite number are refused, with status 3 and without a file."}}},
             {"Examples",
              {{"quorvel-cli export test.uds --xy --out test.txt", "Take a curve into a spreadsheet."},
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
                "Header fields and points keep their values. What cannot stay as it stands in FILE is told on standard "
                "error: RD2 to RD5 become RD1, a two-digit year of component 1 gets its century, reals that are not a "
                "number become 0, texts lose the blanks before them, bytes without a meaning behind the last field or "
                "point of a record become 0, and data records beyond the last point are left out. Of a curve of pairs "
                "all Y DATA records come first."}}},
             {"Examples", {{"quorvel-cli convert old.uds --to ieee --out new.uds", "Bring an old file up to date."}}}}};
}

CHelpPage ReportHelp() {
    return {"quorvel-cli report",
            "Write the report of a signal file as PDF",
            {"quorvel-cli report FILE --pdf PATH [--full]"},
            {{"Options",
              WithCommonOptions({{"FILE", kOneFile},
                                 {"--pdf PATH",
                                  "Write to this file. An old file is replaced when the new one is complete, and never "
                                  "when it is FILE itself."},
                                 {"--full",
                                  "Write the full report: also the fields without a label, the extrema and a plot of "
                                  "the curve."}})},
             {"Where it works",
              {{"",
                "No screen is needed. A build without the desktop program has no report: this command then ends with "
                "status 2 and says so."}}},
             {"Examples", {{"quorvel-cli report test.uds --pdf test.pdf --full", "Put a test into the binder."}}}}};
}
