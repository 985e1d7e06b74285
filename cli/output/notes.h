#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "cli/output/console.h"
#include "compare/document.h"

/// Complains about every signal without any time in common with its reference, and about signals without any in
/// common: such a run looks like a result. All other notes are for those who ask.
void ComplainOfNoCommonTime(const CQuorvelDoc& document, CConsole& console);

/// One line per note, each after `indent`; those that ComplainOfNoCommonTime tells are left out.
std::string NoteLines(const std::vector<CNote>& notes, std::string_view indent);

/// A note that a chart page left on a signal.
struct CPageNote {
    std::size_t signal = 0;  ///< index of the computed signal
    CNote note;
};

/// Tells the notes that a page leaves on the signals from those that they have had before.
class CPageNotes {
public:
    /// Takes down how many notes the document's signals have now.
    explicit CPageNotes(const CQuorvelDoc& document);
    /// The notes added since then.
    std::vector<CPageNote> Added() const;

private:
    const CQuorvelDoc& m_document;
    std::vector<std::size_t> m_counts;
};
