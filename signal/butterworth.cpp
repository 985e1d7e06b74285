#include "signal/butterworth.h"

#include "files/error.h"
#include "signal/messages.h"
#include "signal/whole_number.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <span>

namespace ks {
namespace {

/// Fewer samples leave no room for a tail.
constexpr std::size_t kFewestSamples = 3;

/// Above 77.5 % of half the sampling rate.
bool IsTooHigh(double timeStepS, double frequencyHz) {
    return frequencyHz > 0.775 * (0.5 / timeStepS);
}

/// The running section. The order of the five terms is settled: results agree to the last digit only in this one.
class CSectionState {
public:
    CFilterSection section;
    double in1, in2;    ///< the last input and the one before
    double out1, out2;  ///< the last output and the one before

    double Next(double in0) {
        const double out =
            section.a1 * in1 + section.a0 * in0 + section.a2 * in2 + section.b1 * out1 + section.b2 * out2;
        in2 = in1;
        in1 = in0;
        out2 = out1;
        out1 = out;
        return out;
    }
};

/// The mean of the `tail` / 2 + 1-th to the `tail`-th sample away from an end; `at(k)` is the k-th sample away.
template <class At>
double FarHalfMean(std::size_t tail, At at) {
    const std::size_t count = tail - tail / 2;
    double sum = 0.0;
    for (std::size_t k = tail / 2 + 1; k <= tail; ++k) sum += at(k);
    return sum / static_cast<double>(count);
}

void RunForwards(const CFilterSection& section, std::span<const double> input, std::span<double> output,
                 std::size_t tail) {
    const double twiceEnd = 2.0 * input[0];
    const double settled = twiceEnd - FarHalfMean(tail, [&](std::size_t k) { return input[k]; });
    CSectionState state{section, twiceEnd - input[tail - 1], twiceEnd - input[tail], settled, settled};
    for (std::size_t k = tail; k > 2; --k) state.Next(twiceEnd - input[k - 2]);
    for (std::size_t i = 0; i < input.size(); ++i) output[i] = state.Next(input[i]);
}

void RunBackwards(const CFilterSection& section, std::span<double> data, std::size_t tail) {
    const std::size_t end = data.size() - 1;
    const double twiceEnd = 2.0 * data[end];
    const double settled = twiceEnd - FarHalfMean(tail, [&](std::size_t k) { return data[end - k]; });
    // Not the mirror of the forward tail: it begins with the samples `tail` and `tail` + 1 away and continues with the
    // one `tail` - 4 away. Kept, since existing results carry it in their last digits.
    CSectionState state{section, twiceEnd - data[end - 1 - tail], twiceEnd - data[end - tail], settled, settled};
    for (std::size_t k = tail; k > 4; --k) state.Next(twiceEnd - data[end - (k - 4)]);
    for (std::size_t i = data.size(); i-- > 0;) data[i] = state.Next(data[i]);
}

}  // namespace

CFilterSection ButterworthSection(double timeStepS, double frequencyHz) {
    const double wd = 6.2831853 * 1.2465 * frequencyHz;
    const double angle = wd * timeStepS / 2.0;
    const double wa = std::sin(angle) / std::cos(angle);
    const double root2 = std::numbers::sqrt2;
    const double denominator = 1.0 + root2 * wa + wa * wa;
    CFilterSection section;
    section.a0 = wa * wa / denominator;
    section.a1 = 2.0 * section.a0;
    section.a2 = section.a0;
    section.b1 = -2.0 * (wa * wa - 1.0) / denominator;
    section.b2 = (-1.0 + root2 * wa - wa * wa) / denominator;
    return section;
}

std::int32_t FilterTailLength(double timeStepS, double frequencyHz) {
    const double longer = 0.01 / (timeStepS * std::min(1.0, 0.01 * frequencyHz)) + 0.5;
    const double tenMilliseconds = 0.01 / timeStepS + 0.5;
    return std::max({SaturatedWholeNumber(longer), SaturatedWholeNumber(tenMilliseconds), 1});
}

void CheckFilterInput(std::size_t count, double timeStepS, double frequencyHz) {
    if (count == 0) throw CError(signal_message::kNoDataToFilter);
    if (timeStepS <= 0.0) throw CError(signal_message::kFilterTimeStepNotPositive);
    if (frequencyHz <= 0.0) throw CError(signal_message::kCutoffNotPositive);
}

bool ChangesData(std::size_t count, double timeStepS, double frequencyHz) {
    return !IsTooHigh(timeStepS, frequencyHz) && count >= kFewestSamples;
}

CFilterTail TailOfUnchanged(double timeStepS, double frequencyHz) {
    return IsTooHigh(timeStepS, frequencyHz) ? CFilterTail::Full : CFilterTail::Short;
}

CFilterTail FilterInPlace(std::span<double> data, double timeStepS, double frequencyHz) {
    return FilterInto(data, data, timeStepS, frequencyHz);
}

CFilterTail FilterInto(std::span<const double> input, std::span<double> output, double timeStepS, double frequencyHz) {
    CheckFilterInput(input.size(), timeStepS, frequencyHz);
    if (!ChangesData(input.size(), timeStepS, frequencyHz)) {
        if (input.data() != output.data()) std::ranges::copy(input, output.begin());
        return TailOfUnchanged(timeStepS, frequencyHz);
    }
    const auto wanted = static_cast<std::size_t>(FilterTailLength(timeStepS, frequencyHz));
    const std::size_t tail = std::min(wanted, input.size() - 2);
    const CFilterSection section = ButterworthSection(timeStepS, frequencyHz);
    RunForwards(section, input, output, tail);
    RunBackwards(section, output, tail);
    return tail < wanted ? CFilterTail::Short : CFilterTail::Full;
}

}  // namespace ks
