#pragma once

#include "compare/ratings/cora.h"
#include "compare/ratings/iso18571.h"

#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace ratings {

/// A parameter of a rating as users name it. Names are in options and results; frozen.
template <class Options>
struct CRatingParameter {
    std::string_view name;
    std::string_view meaning;  ///< without a period
    std::variant<double Options::*, int Options::*, std::optional<double> Options::*> member;
};

/// All parameters of these options, in the order in which they are shown.
template <class Options>
std::span<const CRatingParameter<Options>> Parameters();
template <>
std::span<const CRatingParameter<CIso18571Options>> Parameters();
template <>
std::span<const CRatingParameter<CCoraOptions>> Parameters();

/// Whether both names are the same; the case of ASCII letters does not matter.
bool IsSameName(std::string_view a, std::string_view b);

/// The parameter of that name, or null.
template <class Options>
const CRatingParameter<Options>* FindParameter(std::string_view name) {
    for (const CRatingParameter<Options>& parameter : Parameters<Options>()) {
        if (IsSameName(parameter.name, name)) return &parameter;
    }
    return nullptr;
}

/// No value where the parameter is optional and not set.
template <class Options>
std::optional<double> ValueOf(const Options& options, const CRatingParameter<Options>& parameter) {
    return std::visit([&options](auto member) { return std::optional<double>(options.*member); }, parameter.member);
}

namespace parameters_detail {

inline void Store(double& member, double value) {
    member = value;
}
inline void Store(std::optional<double>& member, double value) {
    member = value;
}
/// 0 in place of what is not a whole number from 1 to 1000: FaultOf() refuses 0 with the sentence that fits.
void Store(int& member, double value);

}  // namespace parameters_detail

/// Sets a parameter. What it accepts is for FaultOf() to say, once all are set.
/// @param value  finite
template <class Options>
void SetValue(Options& options, const CRatingParameter<Options>& parameter, double value) {
    std::visit([&](auto member) { parameters_detail::Store(options.*member, value); }, parameter.member);
}

}  // namespace ratings
