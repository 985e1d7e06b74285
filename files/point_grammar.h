#pragma once

#include "files/number_text.h"
#include "files/points.h"

// Under sanitizers g++ 12 takes the character that a failed match does not have for one that is used.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <boost/spirit/include/classic_assign_actor.hpp>
#include <boost/spirit/include/classic_core.hpp>
#include <boost/spirit/include/classic_functor_parser.hpp>
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

#include <cstddef>
#include <string_view>

/// The grammar of ASCII point files; docs/formats/ascii-points.md has it in words.
///
/// A run of points is tried greedily, each point as a whole: a point that does not match to its end gives its position
/// back and appends nothing. Every attempt reads at most three numbers, so the time is linear in the text.
namespace ks::syntax {

namespace classic = boost::spirit::classic;

/// Appends a point. The column `z` stays empty, which means zeros, until a point needs it.
inline void Append(CPointColumns& points, double x, double y) {
    points.x.push_back(x);
    points.y.push_back(y);
}
inline void Append(CPointColumns& points, double x, double y, double z) {
    points.z.resize(points.y.size(), 0.0);
    Append(points, x, y);
    points.z.push_back(z);
}

/// ReadLeadingNumber as a functor of Spirit's functor_parser.
class CRealFunctor {
public:
    using result_t = double;

    template <class Scanner>
    std::ptrdiff_t operator()(const Scanner& scan, double& value) const {
        const CLeadingNumber number = ReadLeadingNumber({scan.first, static_cast<std::size_t>(scan.last - scan.first)});
        if (number.length == 0) return -1;
        value = number.value;
        scan.first += number.length;
        return static_cast<std::ptrdiff_t>(number.length);
    }
};
inline const classic::functor_parser<CRealFunctor> kReal{};

/// The characters that the C locale classifies as space: blank, and tab to carriage return.
inline const auto kWhite = classic::ch_p(' ') | classic::range_p('\t', '\r');
inline const auto kSeparator = *(kWhite | classic::ch_p(','));
inline const auto kLineEnd = (classic::ch_p('\r') >> !classic::ch_p('\n')) | classic::ch_p('\n') | classic::end_p;

/// What the three point parsers share: where their points go, and how Spirit is told that they give no value.
template <class Parser>
class CPointParser : public classic::parser<Parser> {
public:
    using embed_t = Parser;
    template <class Scanner>
    class result {  // NOLINT: Spirit's name
    public:
        using type = typename classic::match_result<Scanner, classic::nil_t>::type;
    };

    explicit CPointParser(CPointColumns& points) : m_points(&points) {}

protected:
    CPointColumns* m_points;
};

/// A line with one number y: the point (0, y, 0).
class point_one_parser : public CPointParser<point_one_parser> {
public:
    using CPointParser::CPointParser;

    template <class Scanner>
    typename result<Scanner>::type parse(const Scanner& scan) const {
        double y = 0.0;
        const auto match = (*kWhite >> kReal[classic::assign_a(y)] >> kLineEnd).parse(scan);
        if (match) Append(*m_points, 0.0, y);
        return match;
    }
};

/// A line with two numbers: the point (x, y, 0).
class point_two_parser : public CPointParser<point_two_parser> {
public:
    using CPointParser::CPointParser;

    template <class Scanner>
    typename result<Scanner>::type parse(const Scanner& scan) const {
        double x = 0.0;
        double y = 0.0;
        const auto match =
            (*kWhite >> kReal[classic::assign_a(x)] >> kSeparator >> kReal[classic::assign_a(y)] >> kLineEnd)
                .parse(scan);
        if (match) Append(*m_points, x, y);
        return match;
    }
};

/// A line with three numbers: the point (x, y, z).
class point_three_parser : public CPointParser<point_three_parser> {
public:
    using CPointParser::CPointParser;

    template <class Scanner>
    typename result<Scanner>::type parse(const Scanner& scan) const {
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        const auto match = (*kWhite >> kReal[classic::assign_a(x)] >> kSeparator >> kReal[classic::assign_a(y)] >>
                            kSeparator >> kReal[classic::assign_a(z)] >> kLineEnd)
                               .parse(scan);
        if (match) Append(*m_points, x, y, z);
        return match;
    }
};

/// Appends the points of the text to `points`.
/// @return whether the whole text is a document; else the points before the failure are appended
inline bool ParsePoints(std::string_view text, CPointColumns& points) {
    const auto document = *point_one_parser(points) >> *point_two_parser(points) >> *point_three_parser(points);
    return classic::parse(text.data(), text.data() + text.size(), document).full;
}

}  // namespace ks::syntax
