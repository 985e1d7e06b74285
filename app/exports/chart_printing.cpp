#include "app/exports/chart_printing.h"

#include "app/dialogs/printer_picker.h"
#include "app/messages.h"
#include "app/window_services.h"
#include "chart/chart_control.h"
#include "files/replacing_file.h"
#include "widgets/pdf_file.h"
#include "widgets/sentences.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPrinter>

namespace {

struct CChartPrinting {
    Q_DECLARE_TR_FUNCTIONS(CChartPrinting)
};

void PrepareJob(QPrinter& printer, const QString& pageName) {
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(QStringLiteral("Quorvel - ") + pageName);
}

PaintPages PaintingOf(CChartControl& chart) {
    return [&chart](QPagedPaintDevice& device) {
        QPainter painter;
        if (!painter.begin(&device)) return false;
        chart.PaintOnto(painter, QRectF(0.0, 0.0, device.width(), device.height()));  // inside the margins
        return painter.end();
    };
}

/// Empty when the chart was printed, else why not.
QString PrintFault(CChartControl& chart, QPrinter& printer) {
    const PaintPages paint = PaintingOf(chart);
    if (MakesPdfFile(printer)) {
        const QString path = printer.outputFileName();
        const CPdfForm form{printer.pageLayout(), printer.docName()};
        const ks::CWriteResult result = WritePdfFile(path.toStdString(), form, paint);
        if (result == ks::CWriteResult::Written) return {};
        if (result == ks::CWriteResult::Damaged) return FileDamaged(path);
        return CChartPrinting::tr("The plot could not be printed to %1.").arg(path);
    }
    if (paint(printer) && printer.printerState() != QPrinter::Error) return {};
    return CChartPrinting::tr("The plot could not be printed. Check the printer or the output file.");
}

QString PrintOn(QPrinter& printer, CChartControl& chart, const CWindowServices& services, QWidget* parent) {
    const QString fault = PrintFault(chart, printer);
    if (fault.isEmpty()) return CChartPrinting::tr("The plot was printed.");
    services.messages.ShowError(parent, fault);
    return {};
}

}  // namespace

QString PrintChart(CChartControl& chart, const QString& pageName, const CWindowServices& services, QWidget* parent) {
    if (!chart.Exists()) return {};
    QPrinter printer(QPrinter::HighResolution);
    PrepareJob(printer, pageName);
    if (!services.printers.Pick(parent, printer, 1)) return {};
    return PrintOn(printer, chart, services, parent);
}

QString PrintChartDirectly(CChartControl& chart, const QString& pageName, const CWindowServices& services,
                           QWidget* parent) {
    if (!chart.Exists()) return {};
    QPrinter printer(QPrinter::HighResolution);
    if (!services.printers.TakeDefault(printer)) {
        services.messages.ShowError(
            parent, CChartPrinting::tr("There is no default printer. Use File > Print... to choose a printer."));
        return {};
    }
    PrepareJob(printer, pageName);
    return PrintOn(printer, chart, services, parent);
}
