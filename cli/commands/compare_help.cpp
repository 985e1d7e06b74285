#include "cli/commands/compare_help.h"

#include "cli/join.h"
#include "compare/critical_values.h"
#include "files/number_text.h"
#include "signal/channel_class.h"

namespace {

CHelpSection Signals() {
    return {"Signals",
            {{"FILE...",
              "Computed signals, compared in the order given. Each is a UDS-1992 file or an ASCII point file. "
              "A FILE whose name begins with - goes after --."},
             {"--hit-list PATH",
              "Append the paths that a hit list names, one per line, after the FILEs. May be repeated. Relative paths "
              "are relative to the current folder."},
             {"--reference PATH",
              "Compare against this file. Without it the reference is made from the computed signals: brought to their "
              "largest time step and their common time range, the first one is the reference."}}};
}

CHelpSection Preparation() {
    return {
        "Preparation",
        {{"--cfc " + ks::ChannelClassList("|", "|"),
          "Filter at this channel frequency class of SAE J211: the computed signals, and the reference too. Computed "
          "signals from ASCII point files are never filtered. Without it nothing is filtered."},
         {"--no-filter-reference", "Leave the reference file unfiltered."},
         {"--window MIN MAX",
          "Cut every signal to this time window, in units of X. Without it nothing is cut to a window."}}};
}

CHelpSection Judgement() {
    return {
        "Judgement",
        {{"--corridor SIZE", "Corridor size in units of Y, greater than 0. Default: 4.0."},
         {"--critical NAME=VALUE",
          "Set a critical value; a result is good while it is below it. May be repeated. The NAMEs are listed below."},
         {"--fail-on-bad[=NAME,...]",
          "End with status 1 when a verdict is bad; with names, when a verdict of one of these names is. In a run "
          "without --reference the first file is compared with itself, so its T statistic is not a number and "
          "counts as bad: name the others, or give a reference."}}};
}

CHelpSection CriticalValueNames() {
    const CCriticalValues defaults;
    CHelpSection section{"Critical values", {}};
    for (const CCriterion& criterion : Criteria()) {
        const std::string value = ks::ShortestText(defaults.*criterion.limit);
        section.entries.push_back({std::string(criterion.name), Join({criterion.meaning, ". Default: ", value, "."})});
    }
    return section;
}

CHelpSection Outputs() {
    return {"Outputs",
            {{"",
              "Standard output is the table: every column of each signal, with verdicts. A PATH of - is "
              "standard output in place of the table; only one output can go there."},
             {"--html PATH", "Write the HTML report of the table."},
             {"--json PATH", "Write the results as JSON."},
             {"--csv PATH", "Write the table as CSV (RFC 4180)."},
             {"--pages", "Add the series of every chart page to the JSON."},
             {"--ascii DIR", "Write the ASCII table of every page to DIR/page-ID.txt. DIR is made when it is missing."},
             {"--uds DIR",
              "Write every series of every page as a UDS-1992 file DIR/page-ID-N.uds, N from 1. DIR is made "
              "when it is missing; files of such names that an earlier run left are removed."},
             {"--quiet", "Print no table and no progress; only complaints and what the other options ask for."},
             {"--verbose",
              "Also tell on standard error what was compared, with the warnings of every signal and notes on how it "
              "was prepared."},
             {"--help", "Print this help and end."},
             {"--version", "Print the version and end."}}};
}

CHelpSection Stopping() {
    return {
        "Runs that stop",
        {{"",
          "A file or a hit list that cannot be read, or a signal that cannot be prepared, stops the run after the "
          "step that failed; every message goes to standard error. A stopped run still writes its JSON, with the "
          "messages and no signals, but no table, report, CSV, ASCII or UDS file. A chart page that cannot be built "
          "leaves the exit status as it is; its message is in the JSON and on standard error. No output takes "
          "the place of a file that was read."}}};
}

CHelpSection Examples() {
    return {"Examples",
            {{"quorvel-cli compare --reference test.uds --cfc 60 run1.uds run2.uds",
              "Show how far two simulations are from a test."},
             {"quorvel-cli compare --reference test.uds --window 0 0.15 --hit-list runs.hit",
              "Compare the first 150 ms of the signals that a hit list names."},
             {"quorvel-cli compare --reference test.uds --html report.html run1.uds",
              "Show the table and write the report."},
             {"quorvel-cli compare --reference test.uds --json - --pages run1.uds",
              "Give results and curves to another program."},
             {"quorvel-cli compare --fail-on-bad=correlation --reference test.uds run1.uds",
              "Judge in a script, by the exit status."}}};
}

}  // namespace

CHelpPage CompareHelp() {
    return {"quorvel-cli compare",
            "Compare signals with a reference",
            {"quorvel-cli compare [OPTION]... FILE..."},
            {Signals(), Preparation(), Judgement(), CriticalValueNames(), Outputs(), Stopping(), Examples()}};
}
