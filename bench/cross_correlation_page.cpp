// Times the Cross Correlation page; cross_correlation.py runs it against SciPy.
//
//   quorvel_cross_correlation_page REFERENCE COMPUTED STEP REPEATS CURVES
//
// REFERENCE and COMPUTED are files of raw doubles, STEP is their time step in seconds. One line per repeat on standard
// output: the milliseconds that the page took to build its series. The curves of the last repeat go to CURVES as raw
// doubles, one curve after the other.

#include "compare/plots/page_ids.h"
#include "compare/plots/page_table.h"
#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "tests/support/page_samples.h"

#include <chrono>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <memory>
#include <ratio>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

std::vector<double> ReadDoubles(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file) throw std::runtime_error("Cannot read " + path);
    std::vector<double> values(static_cast<std::size_t>(file.tellg()) / sizeof(double));
    file.seekg(0);
    file.read(reinterpret_cast<char*>(values.data()), static_cast<std::streamsize>(values.size() * sizeof(double)));
    return values;
}

void WriteCurves(const std::string& path, const CSeriesList& series) {
    std::ofstream file(path, std::ios::binary);
    for (const auto& curve : series) {
        const std::span<const double> y = curve->GetY();
        file.write(reinterpret_cast<const char*>(y.data()), static_cast<std::streamsize>(y.size_bytes()));
    }
    if (!file.flush()) throw std::runtime_error("Cannot write " + path);
}

void Run(const std::vector<std::string>& arguments) {
    const double step = std::stod(arguments.at(2));
    const ks::CNSignal reference = TimeSignal(step, ReadDoubles(arguments.at(0)));
    std::vector<CSignal> computed;
    computed.push_back(ComputedSignal(arguments.at(1), TimeSignal(step, ReadDoubles(arguments.at(1)))));

    CSeriesList series;
    std::vector<std::string> names;
    for (int repeat = std::stoi(arguments.at(3)); repeat > 0; --repeat) {
        series.clear();
        const std::unique_ptr<CPlot> plot = MakePage(page::kCrossCorrelation);
        const auto start = std::chrono::steady_clock::now();
        plot->BuildSeries(computed, reference, series, names);
        const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
        std::cout << elapsed.count() << '\n';
    }
    WriteCurves(arguments.at(4), series);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
