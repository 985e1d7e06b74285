#include "cli/output/json_text.h"

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
/// Room for any finite number in the library's form, whose longest are like -2.2250738585072014e-308.
constexpr std::size_t kNumberSize = 64;

}  // namespace

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
    std::array<char, kNumberSize> buffer{};
    const char* const end = nlohmann::detail::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    Value({buffer.data(), static_cast<std::size_t>(end - buffer.data())});
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
    if (m_pieces.empty() || m_pieces.back().size() + text.size() > m_pieces.back().capacity()) {
        std::string piece;
        piece.reserve(std::max(kPieceSize, text.size()));
        m_pieces.push_back(std::move(piece));
    }
    m_pieces.back() += text;
}
