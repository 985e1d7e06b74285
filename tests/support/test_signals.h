#pragma once

#include "signal/nsignal.h"
#include "tests/support/temp_folder.h"

#include <cstdint>
#include <string>
#include <vector>

/// A time signal in G'S with the given values: sample i has the number `first` + i and is at that times
/// `timeStep`, in seconds.
ks::CNSignal MakeTimeSignal(std::vector<double> y, double timeStep, std::int32_t first = 0);

/// The same at abscissas of the caller's choice; `x` and `y` are equally long.
ks::CNSignal MakeTimeSignal(std::vector<double> x, std::vector<double> y, double timeStep);

/// Writes the record as a UDS-1992 file `name` into the folder and gives its path.
std::string WriteUds(const CTempFolder& folder, const std::string& name, const ks::CNSignal& record);
