#include "viewer/report_pdf.h"

#include "files/path_text.h"
#include "files/replacing_file.h"
#include "signal/data.h"
#include "viewer/printer.h"

#include <QDate>
#include <QPageLayout>
#include <QPageSize>

#include <chrono>
#include <optional>
#include <string>

namespace {

QPageSize Paper(const std::optional<CReportPaper>& paper) {
    if (!paper) return UsualPaper();
    return QPageSize(*paper == CReportPaper::Letter ? QPageSize::Letter : QPageSize::A4);
}

QDate Date(const std::optional<std::chrono::year_month_day>& day) {
    if (!day) return QDate::currentDate();
    return {static_cast<int>(day->year()), static_cast<int>(static_cast<unsigned>(day->month())),
            static_cast<int>(static_cast<unsigned>(day->day()))};
}

}  // namespace

ks::CWriteResult WriteReportPdf(const std::string& path, const ks::CData& record, const std::string& filePath,
                                CReportMode mode, const CReportFileOptions& options) {
    const QString fileName = QString::fromStdString(std::string(ks::FileNameOf(filePath)));
    const CPrinter printer({record, fileName, mode, Date(options.today)});
    return printer.WritePdf(path, QPageLayout(Paper(options.paper), QPageLayout::Portrait, {}));
}
