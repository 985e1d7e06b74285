#pragma once

#include "compare/plots/plot.h"
#include "compare/signal.h"
#include "signal/nsignal.h"

#include <optional>
#include <string>
#include <vector>

// What the pages share when they make their curves.

/// Appends a curve and its legend name.
void AddSeries(CSeriesList& series, std::vector<std::string>& names, ks::CNSignal record, std::string name);

/// Appends a copy of every computed record with its legend name.
void AddComputed(CSeriesList& series, std::vector<std::string>& names, const std::vector<CSignal>& computed);

/// Header fields, descriptors and warnings of `record`, with empty arrays.
ks::CNSignal CopyWithoutArrays(const ks::CNSignal& record);

/// Gives `record` the Y values `y` and the first y.size() X and Z values of `source`; limits current. Without any `y`
/// the arrays stay as they are.
/// @throws ks::CError from SetData when `y` is longer than the source
void SetSamples(ks::CNSignal& record, const ks::CNSignal& source, std::vector<double> y);

/// A copy of `record` with other Y values, as many as it has.
ks::CNSignal CopyWithY(const ks::CNSignal& record, std::vector<double> y);

/// The reference as a page compares it with `computed`. Where their ranges differ, CommonRange cuts both, `computed`
/// permanently; `cut` then holds the reference's cut copy and the result refers to it. Otherwise the result is
/// `reference` itself and nothing is copied.
/// @throws ks::CError from TruncateByTime
const ks::CNSignal& InCommonRange(const ks::CNSignal& reference, ks::CNSignal& computed,
                                  std::optional<ks::CNSignal>& cut);
