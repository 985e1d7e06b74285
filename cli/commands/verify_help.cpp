#include "cli/commands/verify_help.h"

#include "cli/help_text.h"

CHelpPage VerifyHelp() {
    return {
        "quorvel-cli verify",
        "Check the ratings of this program against reference cases",
        {"quorvel-cli verify [--json] [--annex DIR]"},
        {{"Options",
          {{"--json", "Print JSON instead of the table, with every digit."},
           {"--annex DIR",
            "Also score the 42 pairs of the annex of ISO/TS 18571:2024, whose files are not part of this program. "
            "DIR is the folder with the files, whose names contain the case and the model, for example "
            "annex_c_1_1__ac1__cae1.csv."},
           {"--help", "Print this help and exit."},
           {"--version", "Print the version and exit."}}},
         {"What is checked",
          {{"",
            "Signals given by formulas are rated by the same code that rates signals in comparisons, and each value is "
            "compared with the number it must have: scores printed by a public scorer, closed forms, and published "
            "values. The table shows the case, the metric, the expected number, the number that this program computed, "
            "the deviation between them, the tolerance, the source of the expected number, and the verdict, \"pass\" "
            "or \"FAIL\". A deviation below 1e-12, where rounding differs between processors, is shown as \"< 1e-12\". "
            "Below the table are the signals of each case and the sources. Status 1 says that a check failed."}}},
         {"Files of the annex",
          {{"",
            "Text with a line of column names, a line of units, and a line per sample, separated by commas, semicolons "
            "or tabs; .csv or .txt. Of the 14 columns, only Time, Test (the reference) and CAE (the computed signal) "
            "are used, and lines where one of them is empty are skipped. The samples are scored as they are. Status 3 "
            "says that a file is missing or could not be read; the others are scored."}}},
         {"Examples",
          {{"quorvel-cli verify", "Check this installation."},
           {"quorvel-cli verify --json > verification.json", "Keep the result with a report."},
           {"quorvel-cli verify --annex annex", "Add the official pairs."}}}}};
}
