#include "bench/bare_loops.h"

#include <cmath>
#include <cstddef>
#include <span>

namespace bare {
namespace {

struct CSection {
    double a0, a1, a2, b1, b2;
};

CSection SectionOf(double timeStep, double frequency) {
    const double angle = 6.2831853 * 1.2465 * frequency * timeStep / 2.0;
    const double wa = std::sin(angle) / std::cos(angle);
    const double square = wa * wa;
    const double root = std::sqrt(2.0) * wa;
    const double divisor = 1.0 + root + square;
    const double a0 = square / divisor;
    return {a0, 2.0 * a0, a0, -2.0 * (square - 1.0) / divisor, (root - 1.0 - square) / divisor};
}

template <class At>
void Pass(const CSection& section, std::size_t count, At at) {
    double in1 = at(0);
    double in2 = in1;
    double out1 = in1;
    double out2 = in1;
    for (std::size_t i = 0; i < count; ++i) {
        const double in = at(i);
        const double out =
            section.a1 * in1 + section.a0 * in + section.a2 * in2 + section.b1 * out1 + section.b2 * out2;
        at(i) = out;
        in2 = in1;
        in1 = in;
        out2 = out1;
        out1 = out;
    }
}

}  // namespace

void Filter(std::span<double> data, double timeStep, double frequency) {
    const CSection section = SectionOf(timeStep, frequency);
    Pass(section, data.size(), [data](std::size_t i) -> double& { return data[i]; });
    Pass(section, data.size(), [data](std::size_t i) -> double& { return data[data.size() - 1 - i]; });
}

}  // namespace bare
