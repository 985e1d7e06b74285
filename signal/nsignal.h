#pragma once

#include "signal/butterworth.h"
#include "signal/data.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ks {

/// A signal record that can be filtered. What makes a result doubtful but not wrong goes to its list of warnings.
class CNSignal : public CData {
public:
    [[nodiscard]] const std::vector<std::string>& GetWarnings() const { return m_warnings; }
    void AddWarning(std::string_view text) { m_warnings.emplace_back(text); }

    /// Filters at one of kChannelClasses, that is at the class number times 1.66666666667 Hz. Does nothing when the
    /// data already have that class or a lower one.
    /// @throws CError "BWfilt: Frequency Channel Class is not specified in SAE J211"; as Filter
    bool FilterCFC(std::int32_t cfc);

    /// Filters Y at `frequencyHz` (> 0) and updates the descriptors that follow from it, also when the frequency is too
    /// high for the data to change: FCUT, FSTP, the channel class where the frequency is that of one, the data status,
    /// the limits; the injury values except the fifth become 0. An X that is not a time in seconds, and a cutoff too
    /// near an earlier filter, are warnings.
    /// @throws CError as BWFILT; the record is then unchanged, warnings included
    bool Filter(double frequencyHz);

    /// The four-pole, zero-phase Butterworth low-pass of SAE J211, in place; `timeStepS` in seconds (> 0). Above 77.5 %
    /// of the Nyquist frequency the data stay as they are. A tail shorter than 10 ms is a warning; one or two samples
    /// stay as they are with that warning. Returns true.
    /// @throws CError "Nonpositive number of Data Points", "Nonpositive time step", "Nonpositive Cutoff Frequency"
    bool BWFILT(std::span<double> data, double timeStepS, double frequencyHz);

private:
    void NoteTail(CFilterTail tail);
    void ForgetInjuryValues();
    void WarnOfOverlap();

    std::vector<std::string> m_warnings;
};

}  // namespace ks
