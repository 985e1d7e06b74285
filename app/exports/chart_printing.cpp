#include "app/exports/chart_printing.h"

#include "app/dialogs/printer_picker.h"
#include "app/message_box.h"
#include "app/messages.h"
#include "app/window_services.h"
#include "chart/chart_control.h"
#include "files/replacing_file.h"
#include "widgets/messages.h"
#include "widgets/pdf_file.h"

#include <QPainter>
#include <QPrinter>

namespace {

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
        if (result == ks::CWriteResult::Damaged) return widget_message::FileDamaged(path);
        return app_message::PlotNotPrintedTo(path);
    }
    if (paint(printer) && printer.printerState() != QPrinter::Error) return {};
    return app_message::kPlotNotPrinted;
}

QString PrintOn(QPrinter& printer, CChartControl& chart, const CWindowServices& services, QWidget* parent) {
    const QString fault = PrintFault(chart, printer);
    if (fault.isEmpty()) return app_message::kPlotPrinted;
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
        services.messages.ShowError(parent, app_message::kNoDefaultPrinter);
        return {};
    }
    PrepareJob(printer, pageName);
    return PrintOn(printer, chart, services, parent);
}
