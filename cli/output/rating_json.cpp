#include "cli/output/rating_json.h"

#include "cli/output/json_text.h"
#include "compare/ratings/families.h"
#include "compare/ratings/signal_ratings.h"
#include "compare/ratings/value.h"
#include "compare/signal.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <variant>

namespace {

using ratings::CFamilyState;
using ratings::CRatedMember;
using ratings::CRatingFamily;
using ratings::CSignalRatings;
using ratings::CValue;
using ratings::CValueState;

std::string_view NameOf(CValueState state) {
    switch (state) {
        case CValueState::Number:
            return "ok";
        case CValueState::Unavailable:
            return "unavailable";
        case CValueState::Error:
            break;
    }
    return "error";
}

/// Adds each kind of content as a JSON value.
class CContentWriter {
public:
    CContentWriter(CJsonText& text, int decimals) : m_text(text), m_decimals(decimals) {}

    void operator()(const CValue& value) const {
        if (!value.IsNumber()) {
            m_text.Null();
        } else if (m_decimals == ratings::kWhole) {
            m_text.Integer(static_cast<std::int64_t>(value.Number()));
        } else {
            m_text.Real(value.Number());
        }
    }
    void operator()(const ratings::CRatedWord& word) const {
        word.word.empty() ? m_text.Null() : m_text.String(word.word);
    }
    void operator()(bool isSo) const { m_text.Bool(isSo); }
    void operator()(std::size_t count) const { m_text.Integer(count); }
    void operator()(const ratings::CRatedInterval& interval) const {
        if (interval.start.IsNumber() && interval.end.IsNumber()) {
            m_text.Reals(std::array{interval.start.Number(), interval.end.Number()});
        } else {
            m_text.Null();
        }
    }
    void operator()(const ratings::CParameterValues& values) const {
        m_text.Open('{');
        for (const auto& [name, value] : values) {
            m_text.Key(name);
            value ? m_text.Real(*value) : m_text.Null();
        }
        m_text.Close('}');
    }

private:
    CJsonText& m_text;
    int m_decimals;
};

void AddPair(CJsonText& text, const CSignalRatings& rated) {
    text.Key("pointCount");
    text.Integer(rated.pointCount);
    text.Key("step");
    text.Real(rated.step);
    text.Key("window");
    rated.pointCount > 0 ? text.Reals(std::array{rated.start, rated.end}) : text.Null();
    text.Key("filterClass");
    rated.filterClass ? text.Integer(*rated.filterClass) : text.Null();
}

void AddFamily(CJsonText& text, const CRatingFamily& family, const CSignalRatings& rated) {
    const CFamilyState state = StateOf(family, rated);
    text.Key(family.member);
    text.Open('{');
    text.Key("state");
    text.String(NameOf(state.state));
    text.Key("reason");
    state.state == CValueState::Number ? text.Null() : text.String(state.reason);
    for (const CRatedMember& member : family.members) {
        text.Key(member.name);
        std::visit(CContentWriter(text, member.decimals), member.content(rated));
    }
    text.Close('}');
}

}  // namespace

void AddRatings(CJsonText& text, const CSignal& signal) {
    const CSignalRatings* const rated = signal.Ratings();
    if (rated == nullptr) return;
    text.Key("ratings");
    text.Open('{');
    AddPair(text, *rated);
    for (const CRatingFamily& family : ratings::RatingFamilies()) {
        if (IsChosen(rated->choice, family)) AddFamily(text, family, *rated);
    }
    text.Close('}');
}
