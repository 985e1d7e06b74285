#include "bench/bare_loops.h"

#include <cstddef>
#include <span>

namespace bare {

void Integrate(const CAxis& axis, std::span<double> y) {
    double xBefore = axis.At(0);
    double yBefore = y.front();
    double sum = 0.0;
    y.front() = sum;
    for (std::size_t i = 1; i < y.size(); ++i) {
        const double x = axis.At(i);
        const double value = y[i];
        sum += 0.5 * (x - xBefore) * (yBefore + value);
        y[i] = sum;
        xBefore = x;
        yBefore = value;
    }
}

}  // namespace bare
