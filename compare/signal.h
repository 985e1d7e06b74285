#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "compare/comparison.h"
#include "signal/nsignal.h"

/// Number of columns of the summary table.
inline constexpr int kSummaryColumnCount = 16;

/// The sixteen headers of the summary table, in column order.
extern const std::array<std::string_view, kSummaryColumnCount> kSummaryHeaders;

/// Verdict on a summary cell, with the colour (0xRRGGBB) that shows it.
enum class CVerdictColor { White = 0xFFFFFF, Green = 0x00E000, Red = 0xFF0000 };

/// One computed file, or the reference: its record, its path, the reference that it was compared with, and the
/// measures.
class CSignal {
public:
    CSignal() = default;
    explicit CSignal(std::string path);
    CSignal(const CSignal&) = default;
    CSignal(CSignal&&) = default;
    CSignal& operator=(const CSignal&) = default;
    CSignal& operator=(CSignal&&) = default;
    virtual ~CSignal() = default;

    /// Reads the file at the path as a UDS-1992 file. False when it cannot be read; the record's warnings then hold
    /// the reader's sentence, behind those of the attempt before. Success drops those of the attempt before.
    bool ReadUds();
    /// The same for an ASCII point file; the record becomes a time signal in seconds, numbered from 0, of the file
    /// type "ASCII File".
    bool ReadAscii();

    /// Computes the measures against `reference` and takes its path as the reference name. See CComparison::Compute.
    void Compare(const CSignal& reference);

    /// The record's warnings; after a failed reading, the readers' sentences.
    const std::vector<std::string>& GetMessages() const { return m_record.GetWarnings(); }
    std::size_t GetPointCount() const { return m_record.GetPointCount(); }

    /// Text of one summary column, 0 to 15; empty for any other.
    std::string GetColumnText(int column) const;
    /// Verdict on one summary column: white without one, green below the critical value, red otherwise.
    CVerdictColor GetColumnColor(int column) const;

    ks::CNSignal& Record() { return m_record; }
    const ks::CNSignal& Record() const { return m_record; }
    const std::string& GetPath() const { return m_path; }
    void SetPath(std::string path) { m_path = std::move(path); }
    const std::string& GetReferenceName() const { return m_referenceName; }
    void SetReferenceName(std::string name) { m_referenceName = std::move(name); }
    CComparison& Comparison() { return m_comparison; }
    const CComparison& Comparison() const { return m_comparison; }

private:
    ks::CNSignal m_record;
    std::string m_path;
    std::string m_referenceName;
    CComparison m_comparison;
};
