#include "compare/ratings/value.h"

#include "compare/ratings/messages.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

namespace ratings {
namespace {

TEST(RatedValue, ANumberIsANumber) {
    const CValue value = CValue::Of(0.25);
    EXPECT_EQ(value.State(), CValueState::Number);
    EXPECT_EQ(value.Number(), 0.25);
    EXPECT_EQ(value.Reason(), "");
}

TEST(RatedValue, AReasonIsNeverReadAsANumber) {
    const CValue value = CValue::Unavailable("The reference is zero.");
    EXPECT_EQ(value.State(), CValueState::Unavailable);
    EXPECT_EQ(value.Reason(), "The reference is zero.");
    EXPECT_THROW(static_cast<void>(value.Number()), std::bad_optional_access);
    EXPECT_THROW(static_cast<void>(CValue::Error("No file.").Number()), std::bad_optional_access);
    EXPECT_EQ(CValue::Error("No file.").State(), CValueState::Error);
}

TEST(RatedValue, WhatIsNotFiniteIsNotAvailable) {
    for (const double number : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(CValue::Of(number).Reason(), rating_message::kBeyondNumbers);
    }
}

TEST(RatedValue, WithoutAResultItSaysSo) {
    EXPECT_EQ(CValue().State(), CValueState::Unavailable);
    EXPECT_EQ(CValue().Reason(), rating_message::kNotRated);
}

}  // namespace
}  // namespace ratings
