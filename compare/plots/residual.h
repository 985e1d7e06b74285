#pragma once

#include <span>
#include <vector>

/// Differences computed[i] - reference[i], as many as the shorter of both has values.
std::vector<double> Residuals(std::span<const double> computed, std::span<const double> reference);
