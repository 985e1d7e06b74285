#include "compare/ratings/value.h"

#include "compare/ratings/messages.h"

#include <cmath>

namespace ratings {

CValue::CValue() : CValue(CValueState::Unavailable, rating_message::kNotRated) {}

CValue CValue::Of(double number) {
    if (!std::isfinite(number)) return Unavailable(rating_message::kBeyondNumbers);
    CValue value(CValueState::Number, {});
    value.m_number = number;
    return value;
}

CValue CValue::Unavailable(std::string_view reason) {
    return {CValueState::Unavailable, reason};
}

CValue CValue::Error(std::string_view sentence) {
    return {CValueState::Error, sentence};
}

}  // namespace ratings
