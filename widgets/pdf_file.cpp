#include "widgets/pdf_file.h"

#include "files/replacing_file.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QPrinter>

#include <cstddef>
#include <string>
#include <string_view>

namespace {

constexpr int kResolution = 1200;  // dots per inch; positions are rounded to them

}  // namespace

ks::CWriteResult WritePdfFile(const std::string& path, const CPdfForm& form, const PaintPages& paint) {
    if (!ks::CanWrite(path)) return ks::CWriteResult::NotOpened;
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&file);
        writer.setResolution(kResolution);
        writer.setTitle(form.title);
        writer.setCreator(QStringLiteral("Quorvel"));
        writer.setPageLayout(form.layout);
        if (!paint(writer)) return ks::CWriteResult::NotCompleted;
    }
    return ks::WriteFile(path, std::string_view(file.data().constData(), static_cast<std::size_t>(file.size())));
}

bool MakesPdfFile(const QPrinter& printer) {
    return printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty();
}
