#pragma once

#include "compare/comparison.h"
#include "compare/note.h"
#include "compare/verdict.h"
#include "signal/nsignal.h"
#include "signal/signal_loader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ratings {
struct CRatingChoice;
struct CSignalRatings;
}  // namespace ratings

/// One computed file, or the reference: its record, its path, the reference that it was compared with, the measures,
/// and notes on its preparation.
class CSignal {
public:
    CSignal() = default;
    explicit CSignal(std::string path);
    CSignal(const CSignal&) = default;
    CSignal(CSignal&&) = default;
    CSignal& operator=(const CSignal&) = default;
    CSignal& operator=(CSignal&&) = default;
    virtual ~CSignal() = default;

    /// Reads the file at the path into a new record, by the first of all formats that can; see signal/signal_loader.h.
    /// False when none can: the record is then kept, and the sentence of each attempt joins its warnings.
    bool Read();
    /// The same with the UDS-1992 format alone; kept for programs that link the library.
    bool ReadUds();
    /// The same with the format of ASCII points alone; the record becomes a time signal in seconds, numbered from 0.
    /// Kept for programs that link the library.
    bool ReadAscii();

    /// Whether a run filters the signal; that of its file's format, true before a file was read.
    [[nodiscard]] bool ShouldFilter() const { return m_format == nullptr || m_format->shouldFilter; }
    /// Name of the format of its file, for sentences; empty before a file was read.
    [[nodiscard]] std::string_view FormatName() const {
        return m_format == nullptr ? std::string_view() : m_format->name;
    }

    /// Computes the measures against `reference` and takes its path as the reference name. See CComparison::Compute;
    /// what that does to the record becomes notes.
    void Compare(const CSignal& reference);

    /// Rates what Compare compared with `reference`, which must be as it was then; an empty choice leaves no ratings. A
    /// signal that was read without any time in common with the reference is rated as one without samples: what the
    /// comparison extends it to is not measured.
    /// @param filterClass  channel class that the record was filtered at in this run
    /// @throws ks::CError for parameters of the choice that are refused; std::bad_alloc
    void Rate(const CSignal& reference, const ratings::CRatingChoice& choice, std::optional<std::int32_t> filterClass);
    /// The ratings of the last comparison, or null when it was not rated. They stay when the record is changed later.
    [[nodiscard]] const ratings::CSignalRatings* Ratings() const { return m_ratings.get(); }

    /// The record's warnings; after a failed reading, the readers' sentences.
    [[nodiscard]] const std::vector<std::string>& GetMessages() const { return m_record.GetWarnings(); }
    [[nodiscard]] std::size_t GetPointCount() const { return m_record.GetPointCount(); }

    /// Text of the summary column at that place of SummaryColumns(); empty for any other. Kept, like the next one, for
    /// programs that link the library.
    [[nodiscard]] std::string GetColumnText(int column) const;
    /// Color of its verdict against the current critical values; white for any other. See Judge.
    [[nodiscard]] CVerdictColor GetColumnColor(int column) const;

    ks::CNSignal& Record() { return m_record; }
    [[nodiscard]] const ks::CNSignal& Record() const { return m_record; }
    [[nodiscard]] const std::string& GetPath() const { return m_path; }
    void SetPath(std::string path) { m_path = std::move(path); }
    [[nodiscard]] const std::string& GetReferenceName() const { return m_referenceName; }
    void SetReferenceName(std::string name) { m_referenceName = std::move(name); }
    /// What was done to the record without being asked, in order; never among its warnings.
    std::vector<CNote>& Notes() { return m_notes; }
    [[nodiscard]] const std::vector<CNote>& Notes() const { return m_notes; }
    CComparison& Comparison() { return m_comparison; }
    [[nodiscard]] const CComparison& Comparison() const { return m_comparison; }

private:
    bool Take(ks::CLoadedSignal loaded);

    ks::CNSignal m_record;
    std::string m_path;
    std::string m_referenceName;
    CComparison m_comparison;
    std::vector<CNote> m_notes;
    std::shared_ptr<const ratings::CSignalRatings> m_ratings;  ///< never changed, so copies share it
    const ks::CSignalFormat* m_format = nullptr;               ///< of the table of formats, which outlives every signal
};
