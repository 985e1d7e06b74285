#include "compare/messages.h"

#include "compare/sampling.h"
#include "files/number_text.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace compare_message {
namespace {

/// A resampling rounds to multiples of the step. What reaches further than this many steps was not measured.
constexpr double kRoundingSteps = 1.5;

std::string RangeText(const CSampling& sampling) {
    return "from " + ks::GeneralText(sampling.first) + " to " + ks::GeneralText(sampling.last);
}

std::string PointsText(const CSampling& sampling) {
    const std::string_view unit = sampling.points == 1 ? " point " : " points ";
    return std::to_string(sampling.points) + std::string(unit) + RangeText(sampling);
}

std::string StepText(const CSampling& sampling) {
    if (!(sampling.step > 0.0)) return " without a time step";
    return " at a step of " + ks::GeneralText(sampling.step);
}

bool ReachesBeyond(const CSampling& before, const CSampling& after) {
    const double tolerance = kRoundingSteps * after.step;
    return before.first - after.first > tolerance || after.last - before.last > tolerance;
}

std::string ResamplingText(const CSampling& before, const CSampling& after) {
    std::string text = PointsText(before) + StepText(before) + " became " + PointsText(after) + StepText(after) + ".";
    if (ReachesBeyond(before, after)) text += " Beyond its own points, the curve continues as a straight line.";
    return text;
}

std::string CutText(const CSampling& before, const CSampling& after) {
    return PointsText(before) + " became " + PointsText(after) + ".";
}

}  // namespace

std::string AverageName(std::size_t count) {
    return "Average of " + std::to_string(count) + " files";
}

std::string SignalFailure(std::string_view path, std::string_view text) {
    return std::string(path) + ": " + std::string(text);
}

std::string AsciiTableNotWritten(std::string_view path) {
    return "The ASCII data could not be written to " + std::string(path) + ".";
}

std::string AsciiTableDamaged(std::string_view path) {
    return AsciiTableNotWritten(path) + " The existing file is damaged.";
}

std::string NotFilteredNote(std::string_view format) {
    return "Not filtered: computed signals from " + std::string(format) + " never are.";
}

std::string ReferenceResampledNote(const CSampling& before, const CSampling& after) {
    return "The reference has no time step and was resampled: " + ResamplingText(before, after);
}

std::string ResampledNote(const CSampling& before, const CSampling& after) {
    return "Resampled for the comparison: " + ResamplingText(before, after);
}

std::string CutToCommonRangeNote(const CSampling& before, const CSampling& after) {
    return "Cut to the common time range: " + CutText(before, after);
}

std::string CutByPageNote(std::string_view pageName, const CSampling& before, const CSampling& after) {
    return "Cut by the page " + std::string(pageName) + ": " + CutText(before, after);
}

std::string UnitsDifferNote(std::string_view units, std::string_view path, std::string_view referenceUnits) {
    return "Rated as numbers: Y is in " + std::string(units) + ", but in " + std::string(referenceUnits) + " in " +
           std::string(path) + ". Ratings of different quantities mean nothing.";
}

std::string NoCommonTimeNote(const CSampling& signal, std::string_view path, const CSampling& reference) {
    return "No time in common with " + std::string(path) + ", which runs " + RangeText(reference) +
           "; this signal runs " + RangeText(signal) + ". A comparison of the two means nothing.";
}

std::string AverageIsFirstNote(std::string_view path) {
    return "The reference is the first signal, " + std::string(path) + ", not the mean of all signals.";
}

}  // namespace compare_message
