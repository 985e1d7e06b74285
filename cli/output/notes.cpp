#include "cli/output/notes.h"

#include "cli/join.h"
#include "cli/messages.h"
#include "cli/output/console.h"
#include "compare/document.h"
#include "compare/note.h"
#include "compare/signal.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace {

bool IsComplaint(CNoteKind kind) {
    return kind == CNoteKind::NoCommonTime || kind == CNoteKind::UnitsDiffer;
}

void AddComplaints(std::vector<std::string>& complaints, const std::vector<CNote>& notes, std::string_view path) {
    for (const CNote& note : notes) {
        if (!IsComplaint(note.kind)) {
            continue;
        }
        complaints.push_back(path.empty() ? note.sentence : cli_message::About(path, note.sentence));
    }
}

}  // namespace

void ComplainOfIncomparable(const CQuorvelDoc& document, CConsole& console) {
    std::vector<std::string> complaints;
    AddComplaints(complaints, document.Notes(), {});
    for (const CSignal& signal : document.ComputedSignals()) {
        AddComplaints(complaints, signal.Notes(), signal.GetPath());
    }
    console.ComplainAll(complaints);
}

std::string NoteLines(const std::vector<CNote>& notes, std::string_view indent) {
    std::string lines;
    for (const CNote& note : notes) {
        if (!IsComplaint(note.kind)) {
            lines += Join({indent, "note: ", note.sentence, "\n"});
        }
    }
    return lines;
}

CPageNotes::CPageNotes(const CQuorvelDoc& document) : m_document(document) {
    for (const CSignal& signal : document.ComputedSignals()) m_counts.push_back(signal.Notes().size());
}

std::vector<CPageNote> CPageNotes::Added() const {
    std::vector<CPageNote> added;
    for (std::size_t i = 0; i < m_counts.size(); ++i) {
        const std::vector<CNote>& notes = m_document.ComputedSignals()[i].Notes();
        for (std::size_t j = m_counts[i]; j < notes.size(); ++j) added.push_back({i, notes[j]});
    }
    return added;
}
