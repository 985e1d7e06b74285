#include "viewer/printer.h"

#include <QLocale>
#include <QMarginsF>
#include <QPainter>
#include <QPrinter>
#include <vector>

#include "chart/pdf_file.h"

namespace {

std::vector<int> PagesToPaint(int count, const QPageRanges& wanted) {
    std::vector<int> pages;
    for (int page = 0; page < count; ++page)
        if (wanted.isEmpty() || wanted.contains(page + 1)) pages.push_back(page);
    return pages;
}

}  // namespace

QPageSize UsualPaper() {
    const bool letter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(letter ? QPageSize::Letter : QPageSize::A4);
}

bool CPrinter::PaintOn(QPagedPaintDevice& device, const QPageRanges& pages) const {
    const CReport report(m_subject, device.pageLayout().fullRect(QPageLayout::Inch).size());
    QPainter painter;
    if (!painter.begin(&device)) return false;
    bool first = true;
    for (const int page : PagesToPaint(report.PageCount(), pages)) {
        if (!first && !device.newPage()) return false;
        first = false;
        report.Paint(painter, page);
    }
    return painter.end();
}

ks::WriteResult CPrinter::Print(QPrinter& printer) const {
    const QPageRanges pages = printer.printRange() == QPrinter::PageRange ? printer.pageRanges() : QPageRanges();
    if (MakesPdfFile(printer)) return WritePdf(printer.outputFileName().toStdString(), printer.pageLayout(), pages);
    printer.setFullPage(true);
    return PaintOn(printer, pages) ? ks::WriteResult::Written : ks::WriteResult::NotOpened;
}

ks::WriteResult CPrinter::WritePdf(const std::string& path, const QPageLayout& layout, const QPageRanges& pages) const {
    const QPageLayout wholePaper(layout.pageSize(), layout.orientation(), QMarginsF());
    return WritePdfFile(path, {wholePaper, m_subject.fileName},
                        [&](QPagedPaintDevice& device) { return PaintOn(device, pages); });
}
