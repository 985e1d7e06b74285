#include "viewer/testing/pdf_text.h"

#include <QProcess>
#include <QStandardPaths>
#include <QXmlStreamReader>

#include <cstddef>
#include <vector>

namespace {

QByteArray PdfToText(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral("pdftotext"), arguments);
    process.waitForFinished();
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 ? process.readAllStandardOutput()
                                                                                   : QByteArray();
}

double Number(const QXmlStreamReader& xml, const char* name) {
    return xml.attributes().value(QLatin1String(name)).toDouble();
}

}  // namespace

QString PdfReaderFault() {
    if (!QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty()) return {};
    return QStringLiteral("pdftotext is missing, which the Debian package poppler-utils has.");
}

std::vector<CPdfPage> ReadPdf(const QString& path) {
    std::vector<CPdfPage> pages;
    QXmlStreamReader xml(PdfToText({"-bbox", path, "-"}));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == QLatin1String("page"))
            pages.push_back({QSizeF(Number(xml, "width"), Number(xml, "height")), {}, {}});
        if (xml.name() != QLatin1String("word") || pages.empty()) continue;
        const QRectF box(QPointF(Number(xml, "xMin"), Number(xml, "yMin")),
                         QPointF(Number(xml, "xMax"), Number(xml, "yMax")));
        pages.back().words.push_back({xml.readElementText(), box});
    }
    if (xml.hasError()) return {};
    const QStringList texts = QString::fromUtf8(PdfToText({"-layout", path, "-"})).split(QLatin1Char('\f'));
    for (std::size_t page = 0; page < pages.size() && static_cast<qsizetype>(page) < texts.size(); ++page)
        pages[page].lines = texts[static_cast<qsizetype>(page)].split(QLatin1Char('\n'));
    return pages;
}
