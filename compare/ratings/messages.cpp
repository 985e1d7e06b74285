#include "compare/ratings/messages.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace ratings::rating_message {

std::string ResampledForIso(std::size_t pointCount) {
    return "Interpolated at a step of 0.0001 s, which gives " + std::to_string(pointCount) + " points.";
}

std::string EvaluationInterval(std::string_view interval) {
    return "Interval of evaluation: " + std::string(interval) + " s.";
}

std::string ParametersUsed(std::string_view parameters) {
    return "Parameters: " + std::string(parameters) + ".";
}

}  // namespace ratings::rating_message
