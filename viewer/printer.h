#pragma once

#include "files/replacing_file.h"
#include "viewer/report.h"

#include <QPageLayout>
#include <QPageRanges>
#include <QPageSize>

#include <string>
#include <utility>

class QPagedPaintDevice;
class QPrinter;

/// Letter or A4, whichever is usual in the user's country.
QPageSize UsualPaper();

/// How printing ended.
enum class CPrintResult {
    Printed,
    NoPages,       ///< the report has none of the chosen pages; nothing was opened
    NotOpened,     ///< the printer or its file does not accept the report
    NotCompleted,  ///< its file could not be written completely; an existing one is unchanged
    Damaged        ///< the same, but the existing file had to be written in place and is damaged
};

/// Puts a report on paper. Printers, previews, and PDF files all use this class.
class CPrinter {
public:
    /// The subject's record must outlive the printer.
    explicit CPrinter(CReportSubject subject) : m_subject(std::move(subject)) {}

    /// How many pages the report has on this paper.
    [[nodiscard]] int PageCount(const QPageLayout& layout) const;

    /// Paints the report, laid out for the device's paper. The device's origin must be the paper's corner.
    /// @param pages  those to paint, from 1; empty: all. Pages that the report does not have are left out.
    /// @return       false when the device does not accept them, or when there are none
    [[nodiscard]] bool PaintOn(QPagedPaintDevice& device, const QPageRanges& pages = {}) const;

    /// Prints to the printer or to its file, which is replaced only when the new one is complete; honors the page range
    /// chosen in a print dialog.
    [[nodiscard]] CPrintResult Print(QPrinter& printer) const;

    /// Writes a PDF file; `layout` gives paper and orientation, the report has its own margins.
    [[nodiscard]] ks::CWriteResult WritePdf(const std::string& path, const QPageLayout& layout,
                                            const QPageRanges& pages = {}) const;

private:
    CReportSubject m_subject;
};
