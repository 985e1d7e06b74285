#include "compare/plots/series.h"

#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/column.h"
#include "signal/nsignal.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

ks::CColumn FirstOf(const ks::CColumn& values, std::size_t count) {
    return values.Part(0, std::min(count, values.size()));
}

}  // namespace

void AddSeries(CSeriesList& series, std::vector<std::string>& names, ks::CNSignal record, std::string name) {
    series.push_back(boost::make_shared<ks::CNSignal>(std::move(record)));
    names.push_back(std::move(name));
}

void AddComputed(CSeriesList& series, std::vector<std::string>& names, const std::vector<CSignal>& computed) {
    for (const CSignal& signal : computed) AddSeries(series, names, signal.Record(), LegendName(signal));
}

ks::CNSignal CopyWithoutArrays(const ks::CNSignal& record) {
    ks::CNSignal copy;
    static_cast<ks::CDataFields&>(copy) = record;  // NOLINT(*-slicing): the arrays are what is not wanted
    copy.SetDataStatus(record.GetDataStatus());
    copy.SetYQuantity(record.GetYQuantity());
    copy.SetCFCClass(record.GetCFCClass());
    copy.SetModified(record.IsModified());
    copy.SetSourcePath(record.GetSourcePath());
    copy.SetSourceFormat(record.GetSourceFormat());
    copy.SetFileType(record.GetFileType());
    for (std::size_t index = 0; index < 4; ++index) copy.SetFurtherReal(index, record.GetFurtherReal(index));
    copy.SetSecondComponent(record.HasSecondComponent());
    for (const std::string& warning : record.GetWarnings()) copy.AddWarning(warning);
    return copy;
}

void SetSamples(ks::CNSignal& record, const ks::CNSignal& source, std::vector<double> y) {
    if (y.empty()) return;
    const std::size_t count = y.size();
    record.SetColumns(FirstOf(source.GetX(), count), ks::CColumn(std::move(y)), FirstOf(source.GetZ(), count));
}

ks::CNSignal CopyWithY(const ks::CNSignal& record, std::vector<double> y) {
    ks::CNSignal copy = CopyWithoutArrays(record);
    SetSamples(copy, record, std::move(y));
    return copy;
}

const ks::CNSignal& InCommonRange(const ks::CNSignal& reference, ks::CNSignal& computed,
                                  std::optional<ks::CNSignal>& cut) {
    // NOLINTNEXTLINE(*-return-const-ref-from-parameter): the run owns the reference, and pages are made within it
    if (!HaveDifferentRanges(reference, computed)) return reference;
    cut.emplace(reference);
    CommonRange(*cut, computed);
    return *cut;
}
