#pragma once

#include "cli/output/spool.h"
#include "signal/column.h"

#include <concepts>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Makes a JSON text value by value; commas between members and items come by themselves.
///
/// A number or a text has the bytes that the JSON library gives it. The text is held in pieces of limited size, so a
/// long one never needs twice its memory, or goes on piece by piece. Nothing is allocated while an object of this class
/// is destroyed: it can be used until memory runs out. The caller closes what it opens.
class CJsonText {
public:
    /// From now on, `sink` gets each piece that is full; all but the last of those held so far, at once. Exceptions
    /// from it pass through, and the text is then unusable.
    void PassTo(TextSink sink);

    void Open(char bracket);   ///< '{' or '['
    void Close(char bracket);  ///< '}' or ']'
    /// The name of the member whose value comes next: printable ASCII without quotes and backslashes.
    void Key(std::string_view name);
    void Null();
    void Bool(bool value);
    void Integer(std::integral auto value) { Value(std::to_string(value)); }
    /// Reads back bit for bit; null for a value that is not finite.
    void Real(double value);
    /// Bytes that are not UTF-8 become U+FFFD.
    void String(std::string_view value);
    void Strings(std::span<const std::string> values);  ///< an array of them
    void Reals(std::span<const double> values);         ///< an array of them
    void Column(const ks::CColumn& values);             ///< the same; does not make an array of a column by a rule
    /// Begins the next member or item on a new line, for the reader's eye.
    void NewLine(std::string_view indent = {});
    void Space(std::string_view space);  ///< white space

    /// The pieces of the text so far that no sink got, in order; nothing is left.
    std::vector<std::string> Take();

private:
    void Value(std::string_view text);
    void Put(std::string_view text);
    void BeginPiece(std::size_t size);

    TextSink m_sink;
    std::vector<std::string> m_pieces;  ///< with a sink at most one, whose memory is used again
    bool m_needsComma = false;          ///< before the next member or item
};
