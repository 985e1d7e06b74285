#include "signal/saved_axis.h"

#include "files/uds_layout.h"
#include "signal/column.h"
#include "signal/data.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace ks {

std::optional<CLostAbscissa> FirstLostAbscissa(const CData& record) {
    // Without a time step a record is saved as pairs.
    if (record.GetFILEFORM() != kOrdinatesForm || record.Getdelt() == 0.0) return std::nullopt;
    const CColumn& x = record.GetX();
    const double tolerance = 0.5 * std::abs(record.Getdelt());
    const auto step = static_cast<float>(record.Getdelt());
    for (std::size_t i = 0; i < x.size(); ++i) {
        const auto number = static_cast<float>(std::int64_t{record.GetNFP()} + static_cast<std::int64_t>(i));
        const auto read = static_cast<double>(number * step);
        if (!(std::abs(x[i] - read) <= tolerance)) return CLostAbscissa{i, x[i], read};
    }
    return std::nullopt;
}

}  // namespace ks
