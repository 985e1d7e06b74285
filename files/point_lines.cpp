#include "files/point_lines.h"

#include "files/points.h"

#include <fast_float/fast_float.h>
#include <fast_float/parse_number.h>

#include <array>
#include <cstddef>
#include <string_view>
#include <system_error>
#include <vector>

namespace ks {
namespace {

constexpr std::size_t kLinesAtATime = 128;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Reads from the front of a text; every Take leaves out what does not match.
class CLineText {
public:
    CLineText(const char* at, const char* end) : m_at(at), m_end(end) {}

    [[nodiscard]] const char* At() const { return m_at; }

    bool Take(char c) {
        if (m_at == m_end || *m_at != c) return false;
        ++m_at;
        return true;
    }
    bool TakeBlank() { return Take(' ') || Take('\t'); }
    bool TakeSeparator() {
        const bool hasBlank = TakeBlank();
        if (!Take(',')) return hasBlank;
        TakeBlank();
        return true;
    }
    bool TakeLineEnd() {
        if (Take('\n')) return true;
        if (!Take('\r') || m_at == m_end) return false;  // a line feed may follow
        Take('\n');
        return true;
    }
    /// fast_float also knows "nan" and "inf", which are no numbers here, and does not know a leading plus.
    bool TakeNumber(double& value) {
        const char* digits = m_at;
        if (digits != m_end && (*digits == '-' || *digits == '+')) ++digits;
        if (digits == m_end || (!IsDigit(*digits) && *digits != '.')) return false;
        const auto result = fast_float::from_chars(*m_at == '+' ? digits : m_at, m_end, value);
        m_at = result.ptr;
        return result.ec != std::errc::invalid_argument;
    }

private:
    const char* m_at;
    const char* m_end;
};

template <std::size_t numbers>
bool TakeLine(CLineText& text, std::array<double, numbers>& values) {
    text.Take(' ');
    for (std::size_t i = 0; i < numbers; ++i) {
        if (i > 0 && !text.TakeSeparator()) return false;
        if (!text.TakeNumber(values[i])) return false;
    }
    return text.TakeLineEnd();
}

/// Points of `numbers` numbers, column by column.
template <std::size_t numbers>
struct CLinePoints {
    std::array<std::array<double, kLinesAtATime>, numbers> columns;  // not filled before it is used
    std::size_t count = 0;
};

void AppendColumn(std::vector<double>& column, const std::array<double, kLinesAtATime>& values, std::size_t count) {
    column.insert(column.end(), values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count));
}

template <std::size_t numbers>
void Append(const CLinePoints<numbers>& lines, CPointColumns& points) {
    if (lines.count == 0) return;
    if constexpr (numbers == 3) {
        points.z.resize(points.y.size(), 0.0);
        AppendColumn(points.z, lines.columns[2], lines.count);
    }
    if constexpr (numbers == 1) points.x.resize(points.x.size() + lines.count, 0.0);
    if constexpr (numbers > 1) AppendColumn(points.x, lines.columns[0], lines.count);
    AppendColumn(points.y, lines.columns[numbers > 1 ? 1 : 0], lines.count);
}

/// Takes at most kLinesAtATime lines that begin before `stop`.
template <std::size_t numbers>
void TakeSomeLines(CLineText& text, const char* stop, CLinePoints<numbers>& lines) {
    std::array<double, numbers> values{};
    for (lines.count = 0; lines.count < kLinesAtATime && text.At() < stop; ++lines.count) {
        CLineText next = text;
        if (!TakeLine(next, values)) return;
        for (std::size_t i = 0; i < numbers; ++i) lines.columns[i][lines.count] = values[i];
        text = next;
    }
}

template <std::size_t numbers>
std::size_t TakeLines(std::string_view text, std::size_t certain, CPointColumns& points) {
    CLineText rest(text.data(), text.data() + text.size());
    CLinePoints<numbers> lines;
    do {
        TakeSomeLines(rest, text.data() + certain, lines);
        Append(lines, points);
    } while (lines.count == kLinesAtATime);
    return static_cast<std::size_t>(rest.At() - text.data());
}

}  // namespace

std::size_t TakeOrdinaryLines(std::string_view text, std::size_t certain, int numbers, CPointColumns& points) {
    if (numbers == 1) return TakeLines<1>(text, certain, points);
    if (numbers == 2) return TakeLines<2>(text, certain, points);
    return TakeLines<3>(text, certain, points);
}

}  // namespace ks
