#pragma once

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <vector>

namespace ks {

/// One point of a point list.
template <class Real>
struct CPoint {
    Real x{};
    Real y{};
    Real z{};
};

/// Points in order, each held by a shared pointer.
using CPointList = std::vector<boost::shared_ptr<CPoint<double>>>;

/// Points in order as three columns; the form in which readers keep them and records take them over.
/// `x` and `y` are equally long; `z` is as long or empty, and empty means all zeros.
class CPointColumns {
public:
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;

    [[nodiscard]] std::size_t Count() const { return y.size(); }
};

/// The columns as a list of shared points: one block holds all points, the pointers share its ownership.
CPointList MakePointList(const CPointColumns& columns);

/// The list as columns; `z` is filled. Every pointer must hold a point.
CPointColumns MakeColumns(const CPointList& points);

}  // namespace ks
