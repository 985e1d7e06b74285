#pragma once

#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Signals for the tests and benchmarks of the pages.

/// A time signal in seconds and G'S: sample i has the number firstPoint + i and is at that many time steps.
ks::CNSignal TimeSignal(double timeStep, std::vector<double> y, std::int32_t firstPoint = 0);

/// The record as a computed signal read from `path`.
CSignal ComputedSignal(std::string path, ks::CNSignal record);

/// Normally distributed values around `mean`, the same for the same seed on every machine.
std::vector<double> Noise(std::size_t count, std::uint32_t seed, double mean = 0.0);

/// What a page shows.
struct CShownPage {
    bool isBuilt = false;
    CSeriesList series;
    std::vector<std::string> names;
    std::string xTitle;
    std::string yTitle;
};

/// Makes the page of an id and asks it for everything, as the document does.
CShownPage Show(std::int32_t pageId, std::vector<CSignal>& computed, const ks::CNSignal& reference);
