#include "tests/support/point_reference.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

class PlainReader {
public:
    explicit PlainReader(std::string_view text) : m_text(text) {}

    ReferencePoints Document() {
        ReferencePoints result;
        for (const int numbers : {1, 2, 3}) Run(numbers, result.points);
        result.isAccepted = IsAtEnd();
        return result;
    }

private:
    bool IsAtEnd() const { return m_position == m_text.size(); }
    bool Next(std::string_view set) const {
        return !IsAtEnd() && set.find(m_text[m_position]) != std::string_view::npos;
    }
    bool Take(std::string_view set) {
        if (!Next(set)) return false;
        ++m_position;
        return true;
    }
    void TakeAll(std::string_view set) {
        while (Take(set)) {
        }
    }

    void Run(int numbers, std::vector<std::array<double, 3>>& points) {
        while (true) {
            const std::size_t start = m_position;
            std::array<double, 3> values{};
            if (!Line(numbers, values)) {
                m_position = start;
                return;
            }
            if (numbers == 1) std::swap(values[0], values[1]);
            points.push_back(values);
        }
    }

    bool Line(int numbers, std::array<double, 3>& values) {
        TakeAll(" \t\n\v\f\r");
        for (int i = 0; i < numbers; ++i) {
            if (i > 0) TakeAll(" \t\n\v\f\r,");
            if (!Real(values.at(static_cast<std::size_t>(i)))) return false;
        }
        return LineEnd();
    }

    bool LineEnd() {
        const bool hasCarriageReturn = Take("\r");
        const bool hasLineFeed = Take("\n");
        return hasCarriageReturn || hasLineFeed || IsAtEnd();
    }

    bool Real(double& value) {
        const std::size_t start = m_position;
        Take("+-");
        if (!Mantissa()) {
            m_position = start;
            return false;
        }
        Exponent();
        const std::string number(m_text.substr(start, m_position - start));
        value = std::strtod(number.c_str(), nullptr);
        return true;
    }

    bool Mantissa() {
        if (Digits()) {
            if (Take(".")) Digits();
            return true;
        }
        return Take(".") && Digits();
    }

    void Exponent() {
        const std::size_t start = m_position;
        if (!Take("eE")) return;
        Take("+-");
        if (!Digits()) m_position = start;
    }

    bool Digits() {
        if (!Next("0123456789")) return false;
        TakeAll("0123456789");
        return true;
    }

    std::string_view m_text;
    std::size_t m_position = 0;
};

void CutAtPair(std::string& text, const char* pair, std::size_t kept) {
    const std::size_t found = text.find(pair);
    if (found != std::string::npos) text.resize(found + kept);
}

}  // namespace

ReferencePoints ReadPointsPlainly(std::string_view text) {
    return PlainReader(text).Document();
}

std::string CutStepByStep(std::string text) {
    CutAtPair(text, "\n\n", 1);
    CutAtPair(text, "\n\t", 1);
    CutAtPair(text, "\t\n", 0);
    CutAtPair(text, "\t ", 0);
    CutAtPair(text, "  ", 0);
    return text;
}
