#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "compare/comparison.h"
#include "signal/nsignal.h"
#include "signal/signal_loader.h"

/// Number of columns of the summary table.
inline constexpr int kSummaryColumnCount = 16;

/// The columns of the summary table.
enum CSummaryColumn : int {
    kFilenameColumn = 0,
    kPeakColumn = 1,
    kResidualColumn = 2,
    kDeviationColumn = 3,
    kCorridorColumn = 4,  ///< share of points outside the corridor, whatever its header says
    kCorrelationColumn = 5,
    kTStatisticColumn = 6,
    kFirstMomentColumn = 7,
    kLastMomentColumn = 12,
    kReferenceColumn = 13,
    kMinimumTimeColumn = 14,
    kMaximumTimeColumn = 15,
};

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

    /// Reads the file at the path into a new record, by the first of all formats that can; see signal/signal_loader.h.
    /// False when none can: the record then stays, and the sentence of each attempt joins its warnings.
    bool Read();
    /// The same with the UDS-1992 format alone.
    bool ReadUds();
    /// The same with the format of ASCII points alone; the record becomes a time signal in seconds, numbered from 0.
    bool ReadAscii();

    /// Whether a run filters the signal; that of its file's format, true before a file was read.
    bool ShouldFilter() const { return m_shouldFilter; }

    /// Computes the measures against `reference` and takes its path as the reference name. See CComparison::Compute.
    void Compare(const CSignal& reference);

    /// The record's warnings; after a failed reading, the readers' sentences.
    const std::vector<std::string>& GetMessages() const { return m_record.GetWarnings(); }
    std::size_t GetPointCount() const { return m_record.GetPointCount(); }

    /// Text of one summary column, 0 to 15; empty for any other.
    std::string GetColumnText(int column) const;
    /// Verdict on one summary column against the critical values of the moment: white without one, green below its
    /// limit, red otherwise, so also for not-a-number.
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
    bool Take(ks::CLoadedSignal loaded);

    ks::CNSignal m_record;
    std::string m_path;
    std::string m_referenceName;
    CComparison m_comparison;
    bool m_shouldFilter = true;
};
