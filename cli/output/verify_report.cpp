#include "cli/output/verify_report.h"

#include "cli/help_text.h"
#include "cli/join.h"
#include "cli/output/display_text.h"
#include "compare/ratings/verification/reference_case.h"
#include "files/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ratings::CCheck;
using ratings::CReferenceCase;

constexpr std::size_t kColumnCount = 8;
using CLine = std::array<std::string, kColumnCount>;

constexpr std::array<std::string_view, kColumnCount> kHeaders = {"Case",      "Metric",    "Expected", "Got",
                                                                 "Deviation", "Tolerance", "Source",   "Verdict"};
constexpr std::array<bool, kColumnCount> kIsNumber = {false, false, true, true, true, true, false, false};
constexpr std::string_view kGap = "  ";
/// Columns of the texts below the table, about as wide as the table.
constexpr std::size_t kTextWidth = 100;
constexpr std::string_view kNoNumber = "-";

/// Deviations below it are rounding, which differs between processors.
constexpr double kRounding = 1e-12;

// A zero that rounding made negative has no sign.
std::string Rounded(double value, int decimals) {
    std::string text = ks::FixedText(value, decimals);
    if (text.find_first_not_of("-0.") == std::string::npos && text.front() == '-') text.erase(0, 1);
    return text;
}

// One significant digit.
std::string Magnitude(double value) {
    std::array<char, 32> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific, 0);
    return {buffer.data(), end};
}

std::string DeviationText(const CCheck& check) {
    const std::optional<double> deviation = check.Deviation();
    if (!deviation) return std::string(kNoNumber);
    if (check.precision.decimals == 0) return Rounded(*deviation, 0);
    return *deviation < kRounding ? "< 1e-12" : Magnitude(*deviation);
}

std::string ToleranceText(const CCheck& check) {
    return check.precision.tolerance == 0.0 ? "0" : Magnitude(check.precision.tolerance);
}

CLine LineOf(const CReferenceCase& referenceCase, const CCheck& check) {
    const int decimals = check.precision.decimals;
    return {referenceCase.name,
            check.metric,
            Rounded(check.expected, decimals),
            check.got.IsNumber() ? Rounded(check.got.Number(), decimals) : std::string(kNoNumber),
            DeviationText(check),
            ToleranceText(check),
            std::string(NameOf(referenceCase.source)),
            check.Passes() ? "pass" : "FAIL"};
}

std::vector<CLine> LinesOf(std::span<const CReferenceCase> cases) {
    CLine headers;
    std::copy(kHeaders.begin(), kHeaders.end(), headers.begin());
    std::vector<CLine> lines{headers};
    for (const CReferenceCase& referenceCase : cases) {
        for (const CCheck& check : referenceCase.checks) lines.push_back(LineOf(referenceCase, check));
    }
    return lines;
}

using CWidths = std::array<std::size_t, kColumnCount>;

CWidths WidthsOf(const std::vector<CLine>& lines) {
    CWidths widths{};
    for (const CLine& line : lines) {
        for (std::size_t i = 0; i < kColumnCount; ++i) widths[i] = std::max(widths[i], line[i].size());
    }
    return widths;
}

void AppendLine(std::string& text, const CLine& line, const CWidths& widths) {
    std::string row;
    for (std::size_t i = 0; i < kColumnCount; ++i) {
        const std::string pad(widths[i] - line[i].size(), ' ');
        row += Join({i == 0 ? std::string_view() : kGap, kIsNumber[i] ? pad : line[i], kIsNumber[i] ? line[i] : pad});
    }
    row.erase(row.find_last_not_of(' ') + 1);
    text += Join({row, "\n"});
}

std::string Table(std::span<const CReferenceCase> cases) {
    const std::vector<CLine> lines = LinesOf(cases);
    const CWidths widths = WidthsOf(lines);
    CLine rules;
    for (std::size_t i = 0; i < kColumnCount; ++i) rules[i] = std::string(widths[i], '-');
    std::string text;
    AppendLine(text, lines.front(), widths);
    AppendLine(text, rules, widths);
    for (std::size_t i = 1; i < lines.size(); ++i) AppendLine(text, lines[i], widths);
    return text;
}

std::string Reasons(std::span<const CReferenceCase> cases) {
    std::string text;
    for (const CReferenceCase& referenceCase : cases) {
        for (const CCheck& check : referenceCase.checks) {
            if (check.got.IsNumber()) continue;
            text += Join({"  ", referenceCase.name, ", ", check.metric, ": ", check.got.Reason(), "\n"});
        }
    }
    return text.empty() ? text : Join({"\nNot available:\n", text});
}

std::string Signals(std::span<const CReferenceCase> cases) {
    CHelpSection section{"Signals (m is the reference, c the computed signal, N samples, i = 0 ... N - 1)", {}};
    for (const CReferenceCase& referenceCase : cases) {
        section.entries.push_back({referenceCase.name, DisplayText(referenceCase.signals)});
    }
    return PlainSection(section, kTextWidth);
}

std::string Sources(std::span<const CReferenceCase> cases) {
    CHelpSection section{"Sources", {}};
    for (const ratings::CCaseSourceText& source : ratings::CaseSources()) {
        const bool isUsed = std::any_of(cases.begin(), cases.end(), [&source](const CReferenceCase& referenceCase) {
            return referenceCase.source == source.source;
        });
        if (isUsed) section.entries.push_back({std::string(source.name), std::string(source.text)});
    }
    return PlainSection(section, kTextWidth);
}

std::string Summary(std::span<const CReferenceCase> cases) {
    const ratings::CCheckCount count = ratings::CountChecks(cases);
    const std::string all = Join({std::to_string(count.all), " checks of ", std::to_string(cases.size()), " cases"});
    if (count.failed == 0) return Join({"\nAll ", all, " pass.\n"});
    return Join({"\n", std::to_string(count.failed), " of ", all, " FAIL.\n"});
}

}  // namespace

std::string VerifyReport(std::span<const CReferenceCase> cases) {
    return Join({Table(cases), Reasons(cases), Signals(cases), Sources(cases), Summary(cases)});
}
