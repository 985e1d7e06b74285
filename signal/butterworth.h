#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ks {

/// Second-order low-pass section: out[n] = a1 in[n-1] + a0 in[n] + a2 in[n-2] + b1 out[n-1] + b2 out[n-2].
struct CFilterSection {
    double a0 = 0.0, a1 = 0.0, a2 = 0.0;
    double b1 = 0.0, b2 = 0.0;
};

/// The section whose forward and backward run is the filter of SAE J211-1 (digital filter algorithm): a Butterworth
/// low-pass by the bilinear transform, its corner raised by 1.2465 to make up for the two runs.
/// @param timeStepS    seconds, > 0
/// @param frequencyHz  > 0 and below half the sampling rate
CFilterSection ButterworthSection(double timeStepS, double frequencyHz);

/// Number of samples by which the data are extended at each end: 10 ms or one period of the filter frequency,
/// whichever is longer, rounded half up, at least 1, saturated to 32 bits.
std::int32_t FilterTailLength(double timeStepS, double frequencyHz);

/// Whether the tails of a filter run were as long as required.
enum class CFilterTail {
    Full,   ///< as FilterTailLength says; also when the frequency is too high for anything to be done
    Short,  ///< the data were too few, the tails are as long as they allow
};

/// The four-pole, zero-phase low-pass of SAE J211-1, in place: the section runs forward, then backward. Before each
/// run the section settles on a tail, the data's point reflection about the end sample; no tail is stored.
///
/// The gain at frequency 0 is 1, at `frequencyHz` -3 dB where the sampling rate is high. Above 77.5 % of half the
/// sampling rate the data stay as they are, as do one and two samples. What is not finite spreads over the whole
/// result.
///
/// @param data         samples at equal steps
/// @param timeStepS    seconds, > 0
/// @param frequencyHz  > 0
/// @throws CError "Nonpositive number of Data Points", "Nonpositive time step", "Nonpositive Cutoff Frequency", in this
///         order, before the data change
CFilterTail FilterInPlace(std::span<double> data, double timeStepS, double frequencyHz);

/// The same from `input` to `output`, which are equally long and may be the same memory. Where the data stay as they
/// are, they are copied.
CFilterTail FilterInto(std::span<const double> input, std::span<double> output, double timeStepS, double frequencyHz);

/// The checks of FilterInPlace alone, for `count` samples.
void CheckFilterInput(std::size_t count, double timeStepS, double frequencyHz);

/// Whether FilterInPlace would change `count` samples: not one or two, and not at too high a frequency.
bool ChangesData(std::size_t count, double timeStepS, double frequencyHz);

/// What FilterInPlace returns for samples that it does not change.
CFilterTail TailOfUnchanged(double timeStepS, double frequencyHz);

}  // namespace ks
