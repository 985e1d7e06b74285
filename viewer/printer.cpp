#include "viewer/printer.h"

#include <QLocale>
#include <QMarginsF>
#include <QPainter>
#include <QPrinter>
#include <string>
#include <vector>

#include "files/replacing_file.h"
#include "viewer/report.h"
#include "widgets/pdf_file.h"

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

PrintResult AsPrintResult(ks::WriteResult result) {
    switch (result) {
        case ks::WriteResult::Written:
            return PrintResult::Printed;
        case ks::WriteResult::NotOpened:
            return PrintResult::NotOpened;
        case ks::WriteResult::NotCompleted:
            break;
    }
    return PrintResult::NotCompleted;
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

PrintResult CPrinter::Print(QPrinter& printer) const {
    const QPageRanges pages = printer.printRange() == QPrinter::PageRange ? printer.pageRanges() : QPageRanges();
    const QPageLayout layout = printer.pageLayout();
    if (PagesToPaint(PageCount(layout), pages).empty()) return PrintResult::NoPages;
    if (MakesPdfFile(printer)) return AsPrintResult(WritePdf(printer.outputFileName().toStdString(), layout, pages));
    printer.setFullPage(true);
    return PaintOn(printer, pages) ? PrintResult::Printed : PrintResult::NotOpened;
}

ks::WriteResult CPrinter::WritePdf(const std::string& path, const QPageLayout& layout, const QPageRanges& pages) const {
    const QPageLayout wholePaper(layout.pageSize(), layout.orientation(), QMarginsF());
    return WritePdfFile(path, {wholePaper, m_subject.fileName},
                        [&](QPagedPaintDevice& device) { return PaintOn(device, pages); });
}
