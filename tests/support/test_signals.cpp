#include "tests/support/test_signals.h"

#include "signal/nsignal.h"
#include "tests/support/temp_folder.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

ks::CNSignal MakeTimeSignal(std::vector<double> y, double timeStep, std::int32_t first) {
    std::vector<double> x(y.size());
    for (std::size_t i = 0; i < x.size(); ++i) x[i] = timeStep * (first + static_cast<double>(i));
    ks::CNSignal record = MakeTimeSignal(std::move(x), std::move(y), timeStep);
    record.SetNLP(first + record.GetNLP());
    record.SetNFP(first);
    record.UpdateLimits();
    return record;
}

ks::CNSignal MakeTimeSignal(std::vector<double> x, std::vector<double> y, double timeStep) {
    ks::CNSignal record;
    record.SetXTYPE("TIME");
    record.SetXUNITS("SECONDS");
    record.SetYUNITS("G'S");
    record.Setdelt(timeStep);
    record.SetNFP(0);
    record.SetNLP(static_cast<std::int32_t>(y.size()) - 1);
    record.SetData(std::move(x), std::move(y));
    return record;
}

std::string WriteUds(const CTempFolder& folder, const std::string& name, const ks::CNSignal& record) {
    const std::string path = folder.Path(name);
    record.SaveUDS(path);
    return path;
}
