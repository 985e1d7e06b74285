#include "compare/plots/residual.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

std::vector<double> Residuals(std::span<const double> computed, std::span<const double> reference) {
    std::vector<double> residuals(std::min(computed.size(), reference.size()));
    for (std::size_t i = 0; i < residuals.size(); ++i) residuals[i] = computed[i] - reference[i];
    return residuals;
}
