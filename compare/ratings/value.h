#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ratings {

/// What a rated value is: a number, not defined for these signals, or failed before it could be computed.
enum class CValueState { Number, Unavailable, Error };

/// One value of a rating. It holds a finite number or says in words why there is none; a reason never appears
/// as 0, infinity or not-a-number. The functions of this folder give numbers and reasons; `Error` is for callers that
/// failed before rating.
class CValue {
public:
    /// Not available, as kNotRated says.
    CValue();
    /// The number; not available when it is infinite or not a number.
    static CValue Of(double number);
    /// @param reason  a whole sentence
    static CValue Unavailable(std::string_view reason);
    /// @param sentence  what failed, as the user reads it
    static CValue Error(std::string_view sentence);

    [[nodiscard]] CValueState State() const { return m_state; }
    [[nodiscard]] bool IsNumber() const { return m_state == CValueState::Number; }
    /// @throws std::bad_optional_access unless IsNumber()
    [[nodiscard]] double Number() const { return m_number.value(); }
    /// Empty when IsNumber().
    [[nodiscard]] const std::string& Reason() const { return m_reason; }

private:
    CValue(CValueState state, std::string_view reason) : m_state(state), m_reason(reason) {}

    CValueState m_state;
    std::optional<double> m_number;
    std::string m_reason;
};

}  // namespace ratings
