#include "viewer/printer.h"

#include "files/replacing_file.h"
#include "viewer/report.h"
#include "widgets/pdf_file.h"

#include <QLocale>
#include <QMarginsF>
#include <QPainter>
#include <QPrinter>

#include <string>
#include <vector>

namespace {

std::vector<int> PagesToPaint(int count, const QPageRanges& wanted) {
    std::vector<int> pages;
    for (int page = 0; page < count; ++page)
        if (wanted.isEmpty() || wanted.contains(page + 1)) pages.push_back(page);
    return pages;
}

CReport LaidOut(const CReportSubject& subject, const QPageLayout& layout) {
    return {subject, layout.fullRect(QPageLayout::Inch).size()};
}

CPrintResult AsPrintResult(ks::CWriteResult result) {
    switch (result) {
        case ks::CWriteResult::Written:
            return CPrintResult::Printed;
        case ks::CWriteResult::NotOpened:
            return CPrintResult::NotOpened;
        case ks::CWriteResult::Damaged:
            return CPrintResult::Damaged;
        case ks::CWriteResult::NotCompleted:
            break;
    }
    return CPrintResult::NotCompleted;
}

}  // namespace

QPageSize UsualPaper() {
    const bool isLetter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4);
}

int CPrinter::PageCount(const QPageLayout& layout) const {
    return LaidOut(m_subject, layout).PageCount();
}

bool CPrinter::PaintOn(QPagedPaintDevice& device, const QPageRanges& pages) const {
    const CReport report = LaidOut(m_subject, device.pageLayout());
    const std::vector<int> wanted = PagesToPaint(report.PageCount(), pages);
    QPainter painter;
    if (wanted.empty() || !painter.begin(&device)) return false;
    for (const int page : wanted) {
        if (page != wanted.front() && !device.newPage()) return false;
        report.Paint(painter, page);
    }
    return painter.end();
}

CPrintResult CPrinter::Print(QPrinter& printer) const {
    const QPageRanges pages = printer.printRange() == QPrinter::PageRange ? printer.pageRanges() : QPageRanges();
    const QPageLayout layout = printer.pageLayout();
    if (PagesToPaint(PageCount(layout), pages).empty()) return CPrintResult::NoPages;
    if (MakesPdfFile(printer)) return AsPrintResult(WritePdf(printer.outputFileName().toStdString(), layout, pages));
    printer.setFullPage(true);
    return PaintOn(printer, pages) ? CPrintResult::Printed : CPrintResult::NotOpened;
}

ks::CWriteResult CPrinter::WritePdf(const std::string& path, const QPageLayout& layout,
                                    const QPageRanges& pages) const {
    const QPageLayout wholePaper(layout.pageSize(), layout.orientation(), QMarginsF());
    return WritePdfFile(path, {wholePaper, m_subject.fileName},
                        [&](QPagedPaintDevice& device) { return PaintOn(device, pages); });
}
