#include "cli/output/json_text.h"

#include "cli/output/spool.h"
#include "signal/column.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kPieceSize = 65536;
/// Room for any finite number in the library's form, whose longest are like -2.2250738585072014e-308, and a comma.
constexpr std::size_t kNumberSize = 64;

}  // namespace

void CJsonText::PassTo(TextSink sink) {
    m_sink = std::move(sink);
    if (m_pieces.empty()) return;
    for (std::size_t i = 0; i + 1 < m_pieces.size(); ++i) m_sink(m_pieces[i]);
    m_pieces.erase(m_pieces.begin(), m_pieces.end() - 1);
}

void CJsonText::Open(char bracket) {
    Value({&bracket, 1});
    m_needsComma = false;
}

void CJsonText::Close(char bracket) {
    Put({&bracket, 1});
    m_needsComma = true;
}

void CJsonText::Key(std::string_view name) {
    Value("\"");
    Put(name);
    Put("\":");
    m_needsComma = false;
}

void CJsonText::Null() {
    Value("null");
}

void CJsonText::Bool(bool value) {
    Value(value ? "true" : "false");
}

void CJsonText::Real(double value) {
    if (!std::isfinite(value)) {
        Null();
        return;
    }
    // What the library's own text of a number is made with. A number object of the library would cost an allocation.
    std::array<char, kNumberSize> buffer{','};
    char* const begin = buffer.data() + 1;
    const char* const end = nlohmann::detail::to_chars(begin, buffer.data() + buffer.size(), value);
    const char* const text = m_needsComma ? buffer.data() : begin;
    Put({text, static_cast<std::size_t>(end - text)});
    m_needsComma = true;
}

void CJsonText::String(std::string_view value) {
    // Only for single texts: the library's arrays and objects allocate while they are destroyed, and without memory
    // that ends the program.
    Value(nlohmann::json(std::string(value)).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

void CJsonText::Strings(std::span<const std::string> values) {
    Open('[');
    for (const std::string& value : values) String(value);
    Close(']');
}

void CJsonText::Reals(std::span<const double> values) {
    Open('[');
    for (const double value : values) Real(value);
    Close(']');
}

void CJsonText::Column(const ks::CColumn& values) {
    Open('[');
    ks::VisitAxis(values, [this, count = values.size()](const auto& axis) {
        for (std::size_t i = 0; i < count; ++i) Real(axis[i]);
    });
    Close(']');
}

void CJsonText::NewLine(std::string_view indent) {
    Value("\n");
    Put(indent);
    m_needsComma = false;
}

void CJsonText::Space(std::string_view space) {
    Put(space);
}

std::vector<std::string> CJsonText::Take() {
    m_needsComma = false;
    return std::exchange(m_pieces, {});
}

void CJsonText::Value(std::string_view text) {
    if (m_needsComma) Put(",");
    Put(text);
    m_needsComma = true;
}

void CJsonText::Put(std::string_view text) {
    if (m_pieces.empty() || m_pieces.back().size() + text.size() > m_pieces.back().capacity()) BeginPiece(text.size());
    m_pieces.back() += text;
}

/// Makes the last piece an empty one with room for that many bytes.
void CJsonText::BeginPiece(std::size_t size) {
    if (m_sink && !m_pieces.empty()) {
        m_sink(m_pieces.back());
        m_pieces.back().clear();
        m_pieces.back().reserve(size);
        return;
    }
    std::string piece;
    piece.reserve(std::max(kPieceSize, size));
    m_pieces.push_back(std::move(piece));
}
