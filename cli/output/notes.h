#pragma once

#include "cli/output/console.h"
#include "compare/document.h"
#include "compare/note.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Complains about every signal that has no time in common with its reference, about signals with no time in common
/// with each other, and about signals rated against a reference in other units, because such a run looks like a result.
/// Other notes are printed on request only.
void ComplainOfIncomparable(const CQuorvelDoc& document, CConsole& console);

/// One line per note, each indented by `indent`, without those that ComplainOfIncomparable prints.
std::string NoteLines(const std::vector<CNote>& notes, std::string_view indent);

/// A note that a chart page left on a signal.
struct CPageNote {
    std::size_t signal = 0;  ///< index of the computed signal
    CNote note;
};

/// Tells apart the notes that a page leaves on the signals and those that they had before.
class CPageNotes {
public:
    /// Records how many notes the document's signals have now.
    explicit CPageNotes(const CQuorvelDoc& document);
    /// The notes added since then.
    [[nodiscard]] std::vector<CPageNote> Added() const;

private:
    const CQuorvelDoc& m_document;
    std::vector<std::size_t> m_counts;
};
