#include "files/points.h"

#include <boost/make_shared.hpp>

#include <cstddef>
#include <vector>

namespace ks {

CPointList MakePointList(const CPointColumns& columns) {
    const auto block = boost::make_shared<std::vector<CPoint<double>>>(columns.Count());
    CPointList points;
    points.reserve(columns.Count());
    for (std::size_t i = 0; i < columns.Count(); ++i) {
        (*block)[i] = {columns.x[i], columns.y[i], columns.z.empty() ? 0.0 : columns.z[i]};
        points.emplace_back(block, &(*block)[i]);
    }
    return points;
}

CPointColumns MakeColumns(const CPointList& points) {
    CPointColumns columns;
    columns.x.reserve(points.size());
    columns.y.reserve(points.size());
    columns.z.reserve(points.size());
    for (const auto& point : points) {
        columns.x.push_back(point->x);
        columns.y.push_back(point->y);
        columns.z.push_back(point->z);
    }
    return columns;
}

}  // namespace ks
