#include "compare/ratings/value.h"

#include <cmath>

#include "compare/ratings/messages.h"

namespace ratings {

CValue::CValue() : CValue(ValueState::Unavailable, rating_message::kNotRated) {}

CValue CValue::Of(double number) {
    if (!std::isfinite(number)) return Unavailable(rating_message::kBeyondNumbers);
    CValue value(ValueState::Number, {});
    value.m_number = number;
    return value;
}

CValue CValue::Unavailable(std::string_view reason) {
    return {ValueState::Unavailable, reason};
}

CValue CValue::Error(std::string_view sentence) {
    return {ValueState::Error, sentence};
}

}  // namespace ratings
