#pragma once

#include <QRectF>
#include <QString>
#include <QStringList>

#include <vector>

/// A word of a PDF file, its box in points from the upper left corner of the page.
struct CPdfWord {
    QString text;
    QRectF box;
};

/// A page as an independent reader sees it.
struct CPdfPage {
    QSizeF size;  ///< points
    std::vector<CPdfWord> words;
    QStringList lines;  ///< of the text, laid out as on the page; runs of blanks represent gaps
};

/// What this machine needs to read PDF files but lacks, as a sentence; empty when nothing is missing.
QString PdfReaderFault();

/// Reads a PDF file with pdftotext (poppler); empty when that fails.
std::vector<CPdfPage> ReadPdf(const QString& path);
