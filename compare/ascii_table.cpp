#include "compare/chart_block.h"
#include "compare/export.h"
#include "compare/plots/page_table.h"
#include "files/number_text.h"
#include "files/replacing_file.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view kPadding = "0.0 ";
constexpr std::size_t kPieceSize = 65536;  // bytes, more by up to one row

/// X and Y of one cell. X alone tells whether the series has ended before this row.
void AppendCell(std::string& text, double x, double y, double paddingValue) {
    if (x == paddingValue) {
        text += kPadding;
        text += kPadding;
        return;
    }
    ks::AppendGeneralText(text, x);
    text += ' ';
    ks::AppendGeneralText(text, y);
    text += ' ';
}

}  // namespace

void PutAsciiTable(const CChartBlock& block, ks::CFileSink& sink) {
    const std::size_t rows = static_cast<std::size_t>(block.pointCount);
    const std::size_t columns = static_cast<std::size_t>(block.seriesCount);
    // The counts are those of a run, not of a chart, until a chart page is chosen.
    if (block.x.size() < rows * columns || block.y.size() < rows * columns) return;
    std::string text;
    for (std::size_t i = 0; i < rows && !sink.HasFailed(); ++i) {
        for (std::size_t j = 0; j < columns; ++j) {
            const std::size_t cell = i + j * rows;
            AppendCell(text, block.x[cell], block.y[cell], block.paddingValue);
        }
        text += "\r\n";
        if (text.size() < kPieceSize) continue;
        sink.Put(text);
        text.clear();
    }
    sink.Put(text);
}

ks::CWriteResult WriteAsciiTable(const std::string& path, const CChartBlock& block, std::int32_t pageId) {
    return ks::WriteFile(path, [&block, pageId](ks::CFileSink& sink) {
        if (HasChart(pageId)) PutAsciiTable(block, sink);
    });
}
