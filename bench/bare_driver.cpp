// The bare loops side of the speed table; the same arguments and commands as quorvel_bench_driver.cpp. The item "run"
// is the whole comparison: it does its work once and ends, without commands.
//
//   quorvel_bench_bare run START STOP REFERENCE COMPUTED...

#include "bench/bare_loops.h"
#include "bench/work_item.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <iostream>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace {

/// 100 Hz is what channel class 60 filters at.
constexpr double kFilterFrequency = 60.0 * 1.66666666667;
constexpr double kCorridor = 4.0;

class CReadUds : public CWorkItem {
public:
    explicit CReadUds(const std::vector<std::string>& paths) : m_path(paths.at(0)) {}
    void Prepare() override { m_curve = {}; }
    void Run() override { m_curve = bare::DecodeUds(m_path); }
    std::vector<double> Digest() override {
        std::vector<double> digest = DigestOf(Abscissas());
        for (const double value : DigestOf(m_curve.y.Values())) digest.push_back(value);
        return digest;
    }

private:
    std::vector<double> Abscissas() const {
        const std::span<const double> stored = m_curve.x.Values();
        if (!stored.empty()) return {stored.begin(), stored.end()};
        std::vector<double> x;
        for (std::size_t i = 0; i < m_curve.y.Values().size(); ++i) x.push_back(m_curve.axis.At(i));
        return x;
    }

protected:
    std::string m_path;
    bare::CCurve m_curve;
};

class CReadAscii : public CReadUds {
public:
    using CReadUds::CReadUds;
    void Run() override { m_curve = bare::ParseLines(m_path); }
};

/// Works on a copy of the file's values.
class COperation : public CWorkItem {
public:
    explicit COperation(const std::vector<std::string>& paths) : m_original(bare::DecodeUds(paths.at(0))) {}
    void Prepare() override {
        m_result = CBareColumn(m_original.y.Values().size());
        std::ranges::copy(m_original.y.Values(), m_result.Values().begin());
    }
    std::vector<double> Digest() override { return DigestOf(m_result.Values()); }

protected:
    double TimeStep() const { return static_cast<double>(m_original.axis.timeStep); }

    bare::CCurve m_original;
    CBareColumn m_result;
};

class CFilter : public COperation {
public:
    using COperation::COperation;
    void Run() override { bare::Filter(m_result.Values(), TimeStep(), kFilterFrequency); }
};

class CResample : public COperation {
public:
    using COperation::COperation;
    void Prepare() override { m_result = {}; }
    void Run() override { m_result = bare::Interpolate(m_original.axis, m_original.y.Values(), 0.7 * TimeStep()); }
};

class CIntegrate : public COperation {
public:
    using COperation::COperation;
    void Run() override { bare::Integrate(m_original.axis, m_result.Values()); }
};

/// Without extrema where both are equally long, since the writer of the values knows them; with them after a cut.
class CMeasures : public COperation {
public:
    explicit CMeasures(const std::vector<std::string>& paths)
        : COperation(paths), m_reference(bare::DecodeUds(paths.at(1))) {}

    void Run() override {
        const std::size_t computed = m_original.y.Values().size();
        const std::size_t reference = m_reference.y.Values().size();
        // A cut to the shorter one's range loses its last sample.
        m_count = computed == reference ? computed : std::min(computed, reference) - 1;
        m_sums = bare::Measure(m_original.y.Values().first(m_count), m_reference.y.Values().first(m_count), TimeStep(),
                               kCorridor, computed == reference ? bare::CExtrema::Known : bare::CExtrema::Needed);
    }
    std::vector<double> Digest() override {
        const double n = static_cast<double>(m_count);
        const auto& [first, reference] = m_sums.squares;
        const double magnitude = std::sqrt(reference) / std::sqrt(first) - 1.0;
        const double phase =
            1.0 - std::sqrt(std::abs(m_sums.cross)) / std::sqrt(std::sqrt(reference) * std::sqrt(first));
        const auto difference = [](const std::array<double, 2>& moments) {
            return std::abs((moments[0] - moments[1]) / moments[0]);
        };
        const auto y = m_original.y.Values().first(m_count);
        const auto z = m_reference.y.Values().first(m_count);
        return {n,
                m_sums.peaks[0],
                m_sums.peaks[1],
                *std::ranges::max_element(y),
                *std::ranges::min_element(z),
                m_sums.residual,
                m_sums.residualSquares,
                static_cast<double>(m_sums.outside) * 100.0 / n,
                difference(m_sums.moments.front()),
                difference(m_sums.moments.back()),
                m_sums.weightedCross / (std::sqrt(m_sums.weightedSquares[0]) * std::sqrt(m_sums.weightedSquares[1])),
                std::sqrt(magnitude * magnitude + phase * phase)};
    }

private:
    bare::CCurve m_reference;
    std::size_t m_count = 0;
    bare::CSums m_sums;
};

/// The samples of an ascending axis with start <= x < stop.
std::span<double> Window(const bare::CCurve& curve, double start, double stop) {
    const std::span<double> y = curve.y.Values();
    std::size_t begin = 0;
    while (begin < y.size() && curve.axis.At(begin) < start) ++begin;
    std::size_t end = begin;
    while (end < y.size() && curve.axis.At(end) < stop) ++end;
    return y.subspan(begin, end - begin);
}

std::span<double> Prepared(const std::string& path, bare::CCurve& curve, double start, double stop) {
    bare::DecodeUds(path, curve);
    bare::Filter(curve.y.Values(), static_cast<double>(curve.axis.timeStep), kFilterFrequency);
    return Window(curve, start, stop);
}

/// Whole comparison: one line for each computed file.
int RunComparison(const std::vector<std::string>& arguments) {
    const double start = std::stod(arguments.at(0));
    const double stop = std::stod(arguments.at(1));
    bare::CCurve reference;
    bare::CCurve computed;
    const std::span<double> kept = Prepared(arguments.at(2), reference, start, stop);
    for (std::size_t i = 3; i < arguments.size(); ++i) {
        const std::span<double> values = Prepared(arguments[i], computed, start, stop);
        const bare::CSums sums = bare::Measure(values, kept, static_cast<double>(reference.axis.timeStep), kCorridor,
                                               bare::CExtrema::Needed);
        std::printf("%.9f %.9f\n", sums.residual, sums.residualSquares);
    }
    return 0;
}

template <class Item>
CWorkItemMaker Make() {
    return [](const std::vector<std::string>& paths) { return std::make_unique<Item>(paths); };
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    try {
        if (!arguments.empty() && arguments.front() == "run") {
            return RunComparison({arguments.begin() + 1, arguments.end()});
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return ServeWorkItems({{"read-uds", Make<CReadUds>()},
                           {"read-ascii", Make<CReadAscii>()},
                           {"filter", Make<CFilter>()},
                           {"resample", Make<CResample>()},
                           {"integrate", Make<CIntegrate>()},
                           {"measures", Make<CMeasures>()}},
                          arguments);
}
