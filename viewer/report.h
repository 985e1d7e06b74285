#pragma once

#include "signal/data.h"
#include "viewer/page.h"
#include "viewer/report_pdf.h"

#include <QDate>
#include <QSizeF>
#include <QString>

#include <vector>

class QPainter;

/// What a report is made from.
struct CReportSubject {
    const ks::CData& record;
    QString fileName;  ///< names the curve in the plot
    CReportMode mode = CReportMode::Specification;
    QDate date;  ///< in the footer
};

/// The printed report of one file, laid out for one paper size. It copies all it shows; the record need not outlive it.
class CReport {
public:
    /// @param paper  width and height in inches, both > 0
    CReport(const CReportSubject& subject, QSizeF paper);

    [[nodiscard]] int PageCount() const { return static_cast<int>(m_pages.size()); }  ///< at least 1
    /// Paints page `page`, from 0, onto a printer, a file or a preview. The painter's origin is the paper's corner.
    void Paint(QPainter& painter, int page) const;

private:
    std::vector<CPage> m_pages;
};
