#include "compare/ratings/verification/annex_file.h"

#include "compare/ratings/verification/messages.h"
#include "compare/ratings/verification/signals.h"
#include "files/error.h"
#include "files/number_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ratings {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::array<std::string_view, 3> kColumns = {"Time", "Test", "CAE"};

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\"";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsSameWord(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

// Goes through the lines of a text.
class CLines {
public:
    explicit CLines(std::string_view text) : m_rest(text) {}

    bool Next() {
        if (m_rest.empty()) return false;
        const std::size_t end = std::min(m_rest.find('\n'), m_rest.size());
        m_line = m_rest.substr(0, end);
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        ++m_number;
        return true;
    }
    [[nodiscard]] std::string_view Line() const { return m_line; }
    [[nodiscard]] bool IsBlank() const { return Trimmed(m_line).empty(); }
    [[nodiscard]] std::size_t Number() const { return m_number; }  // from 1 on

private:
    std::string_view m_rest, m_line;
    std::size_t m_number = 0;
};

char SeparatorOf(std::string_view header) {
    constexpr std::string_view kSeparators = ";\t,";
    const std::size_t place = header.find_first_of(kSeparators);
    return place == std::string_view::npos ? ',' : header[place];
}

void SplitInto(std::vector<std::string_view>& cells, std::string_view line, char separator) {
    cells.clear();
    for (std::size_t begin = 0; begin <= line.size();) {
        const std::size_t end = std::min(line.find(separator, begin), line.size());
        cells.push_back(Trimmed(line.substr(begin, end - begin)));
        begin = end + 1;
    }
}

// Where the three columns are.
struct CLayout {
    char separator = ',';
    std::array<std::size_t, kColumns.size()> places{};
};

CLayout ReadHeader(std::string_view line) {
    CLayout layout{SeparatorOf(line)};
    std::vector<std::string_view> names;
    SplitInto(names, line, layout.separator);
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        const auto isColumn = [i](std::string_view name) { return IsSameWord(name, kColumns[i]); };
        if (std::count_if(names.begin(), names.end(), isColumn) != 1) throw ks::CError(annex_message::kNoColumns);
        layout.places[i] = static_cast<std::size_t>(std::find_if(names.begin(), names.end(), isColumn) - names.begin());
    }
    return layout;
}

bool IsEmptyCell(std::string_view cell) {
    return cell.empty() || IsSameWord(cell, "nan");
}

std::optional<double> NumberIn(std::string_view cell, char separator) {
    if (separator == ',' || cell.find(',') == std::string_view::npos) return ks::ReadWholeNumber(cell);
    std::string pointed(cell);
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    return ks::ReadWholeNumber(pointed);
}

using CSampleCells = std::array<std::string_view, kColumns.size()>;

CSampleCells SampleCells(const std::vector<std::string_view>& cells, const CLayout& layout, std::size_t line) {
    CSampleCells sample;
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        if (layout.places[i] >= cells.size()) throw ks::CError(annex_message::ColumnMissing(line, kColumns[i]));
        sample[i] = cells[layout.places[i]];
    }
    return sample;
}

struct CTimedPair {
    std::vector<double> times;
    CPairOfSignals pair;
};

void AddSample(CTimedPair& read, const CSampleCells& cells, char separator, std::size_t line) {
    if (std::any_of(cells.begin(), cells.end(), IsEmptyCell)) return;
    std::array<double, kColumns.size()> numbers{};
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
        const std::optional<double> number = NumberIn(cells[i], separator);
        if (!number) throw ks::CError(annex_message::NotANumber(line, kColumns[i], cells[i]));
        numbers[i] = *number;
    }
    read.times.push_back(numbers[0]);
    read.pair.reference.push_back(numbers[1]);
    read.pair.computed.push_back(numbers[2]);
}

// Units, in the line after the names.
bool IsUnits(const CSampleCells& cells) {
    return std::none_of(cells.begin(), cells.end(), [](std::string_view cell) {
        return !cell.empty() && ks::ReadLeadingNumber(cell).length == cell.size();
    });
}

// Half a step is far more than the rounding of printed times and less than a sample that is missing.
void CheckTimes(const std::vector<double>& times) {
    if (times.empty()) throw ks::CError(annex_message::kNoSamples);
    const double step = (times.back() - times.front()) / static_cast<double>(times.size() - 1);
    for (std::size_t i = 1; i < times.size(); ++i) {
        const double difference = times[i] - times[i - 1];
        if (!(difference > 0.0 && std::abs(difference - step) <= 0.5 * step)) {
            throw ks::CError(annex_message::UnevenTime(i + 1));
        }
    }
}

}  // namespace

CPairOfSignals ReadAnnexPair(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    CLines lines(text);
    if (!lines.Next()) throw ks::CError(annex_message::kNoColumns);
    const CLayout layout = ReadHeader(lines.Line());
    CTimedPair read;
    std::vector<std::string_view> cells;
    while (lines.Next()) {
        if (lines.IsBlank()) continue;
        SplitInto(cells, lines.Line(), layout.separator);
        const CSampleCells sample = SampleCells(cells, layout, lines.Number());
        if (lines.Number() == 2 && IsUnits(sample)) continue;
        AddSample(read, sample, layout.separator, lines.Number());
    }
    CheckTimes(read.times);
    return read.pair;
}

}  // namespace ratings
