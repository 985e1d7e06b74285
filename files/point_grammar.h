#pragma once

#include "files/number_text.h"
#include "files/point_lines.h"
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
#include <optional>
#include <string_view>

/// The grammar of ASCII point files; docs/formats/ascii-points.md has it in words.
///
/// A run of points is tried greedily, each point as a whole: a point that does not match completely gives its position
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

    explicit CPointParser(CPointColumns& points) : m_points(&points) {}  // NOLINT(bugprone-crtp-*): inherited

protected:
    CPointColumns* m_points;
};

/// A line with one number y: the point (0, y, 0).
class point_one_parser : public CPointParser<point_one_parser> {
public:
    using CPointParser::CPointParser;

    template <class Scanner>
    [[nodiscard]] typename result<Scanner>::type parse(const Scanner& scan) const {
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
    [[nodiscard]] typename result<Scanner>::type parse(const Scanner& scan) const {
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
    [[nodiscard]] typename result<Scanner>::type parse(const Scanner& scan) const {
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

/// A document that arrives piece by piece: its three runs of points, each greedy.
class CDocument {
public:
    /// The points are appended to `points`, which must outlive the document.
    explicit CDocument(CPointColumns& points) : m_points(&points) {}

    /// Takes the points that begin in the first `certain` characters of `text`, which continues where the previous call
    /// ended. Everything that decides about these points must be in the text.
    /// @return how many characters they took; no value when no document begins so
    std::optional<std::size_t> Take(std::string_view text, std::size_t certain) {
        const char* at = text.data();
        const char* const end = text.data() + text.size();
        const char* const stop = text.data() + certain;
        while (true) {
            if (at < stop) at += TakeOrdinary({at, end}, static_cast<std::size_t>(stop - at));
            if (at >= stop) return static_cast<std::size_t>(at - text.data());
            if (TakePoint(at, end)) continue;
            if (m_numbers == 3) return std::nullopt;
            ++m_numbers;
        }
    }

    /// Takes only the ordinary lines (files/point_lines.h) at the start of `text`, which continues where the previous
    /// call ended, as far as they begin in its first `certain` characters. They are not ordinary lines of fewer
    /// numbers, nor any other points of fewer numbers: so a run before theirs has ended.
    /// @return how many characters they took
    std::size_t TakeOrdinary(std::string_view text, std::size_t certain) {
        std::size_t taken = 0;
        for (int numbers = m_numbers; numbers <= 3 && taken < certain; ++numbers) {
            const std::size_t more = TakeOrdinaryLines(text.substr(taken), certain - taken, numbers, *m_points);
            if (more > 0) m_numbers = numbers;
            taken += more;
        }
        return taken;
    }

private:
    /// One point of the current run.
    bool TakePoint(const char*& at, const char* end) {
        if (m_numbers == 1) return Take(point_one_parser(*m_points), at, end);
        if (m_numbers == 2) return Take(point_two_parser(*m_points), at, end);
        return Take(point_three_parser(*m_points), at, end);
    }

    template <class Point>
    static bool Take(const Point& point, const char*& at, const char* end) {
        const auto parsed = classic::parse(at, end, point);
        if (parsed.hit) at = parsed.stop;
        return parsed.hit;
    }

    CPointColumns* m_points;
    int m_numbers = 1;  ///< of each point of the current run
};

/// Whether the character can be part of a number, even if this is not a place where a number allows it.
constexpr bool IsOfNumber(char c) {
    return (c >= '0' && c <= '9') || c == '.' || c == '+' || c == '-' || c == 'e' || c == 'E';
}

/// What the C locale classifies as space.
constexpr bool IsWhite(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// How many characters at the start of a text are so far from its end that nothing after the text can change whether
/// and how a point begins at one of them. The last character of the text itself is not looked at.
///
/// A point has three numbers at most, each within one row of characters of numbers, and a line end of two characters.
/// So three whole rows and two characters decide. A text of one endless number is certain nowhere.
inline std::size_t CertainLength(std::string_view text) {
    constexpr std::size_t kUndecided = 3;  // a line end, and the last character
    if (text.size() <= kUndecided) return 0;
    std::size_t i = text.size() - kUndecided;
    while (i > 0 && IsOfNumber(text[i])) --i;  // a row that may continue
    for (int row = 0; row < 3; ++row) {
        while (i > 0 && !IsOfNumber(text[i - 1])) --i;
        if (i == 0) return 0;
        while (i > 0 && IsOfNumber(text[i - 1])) --i;
    }
    return i + 1;
}

/// Whether points can begin with this text, of which more may follow. True for a text that may continue as a point. For
/// texts that are certain nowhere: these hold so few rows of numbers that the ways to divide them are few as well.
inline bool MayBeginPoint(std::string_view text) {
    constexpr std::size_t kLongestStartOfNumber = 2;  // "-." or "e+": what is not a number yet but can become one
    const auto isLineEnd = [](char c) { return c == '\r' || c == '\n'; };
    const auto drop = [&text](auto belongs) {
        std::size_t count = 0;
        while (count < text.size() && belongs(text[count])) ++count;
        text.remove_prefix(count);
    };
    drop(IsWhite);
    for (int number = 0; number < 3; ++number) {
        const std::size_t length = ReadLeadingNumber(text).length;
        text.remove_prefix(length);
        if (length == 0 || text.empty()) return text.size() <= kLongestStartOfNumber;
        if (isLineEnd(text.front()) && MayBeginPoint(text.substr(1))) return true;
        drop([](char c) { return IsWhite(c) || c == ','; });
    }
    return text.size() <= kLongestStartOfNumber;
}

/// Appends the points of the text to `points`.
/// @return whether the whole text is a document; else the points before the failure are appended
inline bool ParsePoints(std::string_view text, CPointColumns& points) {
    return CDocument(points).Take(text, text.size()).has_value();
}

}  // namespace ks::syntax
