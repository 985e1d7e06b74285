#include "cli/commands/compare_help.h"

#include "cli/commands/rating_help.h"
#include "cli/help_text.h"
#include "cli/join.h"
#include "compare/critical_values.h"
#include "files/number_text.h"
#include "signal/channel_class.h"
#include "signal/formats/formats.h"
#include "signal/formats/signal_format.h"

#include <string>
#include <utility>
#include <vector>

namespace {

/// "a UDS-1992 file or an ASCII point file"
std::string AnySignalFile() {
    std::string text;
    for (const ks::CSignalFormat* const format : ks::kSignalFormats) {
        if (format != ks::kSignalFormats.front()) text += format == ks::kSignalFormats.back() ? " or " : ", ";
        text += format->file;
    }
    return text;
}

/// "ASCII point files", or whatever files hold signals that are never filtered
std::string UnfilteredFiles() {
    std::string text;
    for (const ks::CSignalFormat* const format : ks::kSignalFormats) {
        if (format->shouldFilter) continue;
        if (!text.empty()) text += " and ";
        text += Join({format->file.substr(format->file.find(' ') + 1), "s"});
    }
    return text;
}

CHelpSection Signals() {
    return {
        "Signals",
        {{"FILE...", Join({"Computed signals, compared in the order given. Each is ", AnySignalFile(),
                           ". Put a FILE whose name begins with - after --."})},
         {"--hit-list PATH",
          "Add the paths in a hit list, one per line, after the FILEs. May be repeated. Relative paths start at the "
          "current folder."},
         {"--reference PATH",
          "Compare with this file. Without it, the reference is made from the computed signals: all are brought to "
          "their largest time step and common time range, and the first one becomes the reference."}}};
}

CHelpSection Preparation() {
    return {"Preparation",
            {{"--cfc " + ks::ChannelClassList("|", "|"),
              Join({"Filter the computed signals and the reference at this SAE J211 channel frequency class. Computed "
                    "signals from ",
                    UnfilteredFiles(), " are never filtered. Without this option, nothing is filtered."})},
             {"--no-filter-reference", "Leave the reference file unfiltered."},
             {"--window MIN MAX",
              "Cut every signal to this time window, in units of X. Without this option, there is no window."},
             {"--jobs N",
              "Work on up to N signals at a time. The results do not depend on it. Default: as many as the machine has "
              "processors."}}};
}

CHelpSection Judgment() {
    return {"Judgment",
            {{"--corridor SIZE", "Corridor size in units of Y, greater than 0. Default: 4.0."},
             {"--critical NAME=VALUE",
              "Set a critical value; a result below it is good, a rating as its entry says. May be repeated. The NAMEs "
              "are listed under \"Critical values\"."},
             {"--fail-on-bad[=NAME,...]",
              "End with status 1 if any verdict is bad; with NAMEs, only if a verdict of one of them is bad. In a run "
              "without --reference the first file is compared with itself, so its T statistic is not a number and "
              "counts as bad: name the other criteria, or give a reference. The "
              "NAMEs are those of the critical values and, with --ratings, also those of its ratings and roadside, the "
              "roadside verdict. A rating that is not available is not bad; standard error names it."}}};
}

CHelpSection CriticalValueNames() {
    const CCriticalValues defaults;
    CHelpSection section{"Critical values", {}};
    for (const CCriterion& criterion : Criteria()) {
        const std::string value = ks::ShortestText(defaults.*criterion.limit);
        section.entries.push_back({std::string(criterion.name), Join({criterion.meaning, ". Default: ", value, "."})});
    }
    for (const CHelpEntry& entry : RatingCriteriaHelp()) section.entries.push_back(entry);
    return section;
}

CHelpSection Outputs() {
    return {
        "Outputs",
        {{"",
          "The table goes to standard output: every column of each signal, with verdicts. A PATH of - sends "
          "that output there instead of the table; only one output can go there."},
         {"--html PATH", "Write the HTML report of the table."},
         {"--json PATH", "Write the results as JSON."},
         {"--csv PATH", "Write the table as CSV (RFC 4180)."},
         {"--pages", "Add the series of every chart page to the JSON."},
         {"--ascii DIR", "Write the ASCII table of every page to DIR/page-ID.txt. DIR is created if it is missing."},
         {"--uds DIR",
          "Write every series of every page as a UDS-1992 file DIR/page-ID-N.uds, N from 1. DIR is "
          "created if it is missing; files with such names left by an earlier run are removed."},
         {"--quiet", "Print no table and no progress, only messages and what the other options request."},
         {"--verbose",
          "Also print on standard error what was compared, with the warnings about each signal and notes on how "
          "it was prepared."},
         {"--help", "Print this help and exit."},
         {"--version", "Print the version and exit."}}};
}

CHelpSection Stopping() {
    return {
        "Runs that stop",
        {{"",
          "A file or a hit list that cannot be read, or a signal that cannot be prepared, stops the run after the "
          "step that failed; every message goes to standard error. A stopped run still writes its JSON, with the "
          "messages and no signals, but no table, report, CSV, ASCII or UDS file. A chart page that cannot be built "
          "does not change the exit status; its message is in the JSON and on standard error. No output "
          "replaces a file that was read."}}};
}

CHelpSection Examples() {
    return {"Examples",
            {{"quorvel-cli compare --reference test.uds --cfc 60 run1.uds run2.uds",
              "Compare two simulations with a test."},
             {"quorvel-cli compare --reference test.uds --window 0 0.15 --hit-list runs.hit",
              "Compare the first 150 ms of the signals in a hit list."},
             {"quorvel-cli compare --reference test.uds --cfc 180 --ratings standard run1.uds",
              "Rate a simulation with ISO/TS 18571, Sprague-Geers and ANOVA."},
             {"quorvel-cli compare --reference test.uds --html report.html run1.uds",
              "Show the table and write the report."},
             {"quorvel-cli compare --reference test.uds --json - --pages run1.uds",
              "Pass results and curves to another program."},
             {"quorvel-cli compare --fail-on-bad=correlation --reference test.uds run1.uds",
              "Check the correlation in a script by the exit status."}}};
}

}  // namespace

CHelpPage CompareHelp() {
    std::vector<CHelpSection> sections{Signals(), Preparation(), Judgment(), CriticalValueNames()};
    for (const CHelpSection& section : RatingHelp()) sections.push_back(section);
    for (const CHelpSection& section : {Outputs(), Stopping(), Examples()}) sections.push_back(section);
    return {"quorvel-cli compare",
            "Compare signals with a reference",
            {"quorvel-cli compare [OPTION]... FILE..."},
            std::move(sections)};
}
