#include "cli/output/page_outputs.h"

#include <exception>

#include "cli/join.h"
#include "cli/output/notes.h"
#include "compare/export.h"
#include "compare/plots/page_table.h"

namespace {

std::string PageStem(std::int32_t pageId) {
    return "page-" + std::to_string(pageId);
}

void WriteAsciiPage(const std::string& folder, const CQuorvelDoc& document, std::int32_t pageId, COutputs& outputs) {
    const std::string path = PathIn(folder, PageStem(pageId) + ".txt");
    if (outputs.IsInput(path)) {
        return;
    }
    // The table of a page that could not be built is empty: one of an earlier run would pass for this run's.
    outputs.Note("The ASCII table of a page", path, WriteAsciiTable(path, document.ChartBlock(), pageId));
}

void WriteUdsPage(const std::string& folder, const CQuorvelDoc& document, std::int32_t pageId, COutputs& outputs) {
    std::size_t number = 0;
    for (const auto& series : document.Series()) {
        const std::string path = PathIn(folder, PageStem(pageId) + "-" + std::to_string(++number) + ".uds");
        if (outputs.IsInput(path)) {
            continue;
        }
        try {
            series->SaveUDS(path);
        } catch (const std::exception& error) {
            outputs.Fail("The series could not be written: " + path + ": " + error.what());
        }
    }
}

void TellNotes(const CQuorvelDoc& document, const std::vector<CPageNote>& notes, CCliHost& host) {
    for (const CPageNote& note : notes) {
        host.TellMore(Join({document.ComputedSignals()[note.signal].GetPath(), ": note: ", note.note.sentence}));
    }
}

}  // namespace

bool WantsPages(const CCompareOptions& options) {
    return options.pages || options.asciiFolder.has_value() || options.udsFolder.has_value();
}

void WritePages(const CCompareOptions& options, CQuorvelDoc& document, CCliHost& host, CJsonResults& json,
                COutputs& outputs) {
    const bool ascii = options.asciiFolder && outputs.MakeFolder(*options.asciiFolder);
    const bool uds = options.udsFolder && outputs.MakeFolder(*options.udsFolder);
    if (!options.pages && !ascii && !uds) {
        return;
    }
    host.TakeShownMessages();
    for (const std::int32_t pageId : document.PageList()) {
        host.NameSource(Join({"Page ", std::to_string(pageId), " (", PageName(pageId), ")"}));
        const CPageNotes pageNotes(document);
        document.SelectPage(pageId);
        const std::vector<CPageNote> notes = pageNotes.Added();
        TellNotes(document, notes, host);
        const std::vector<std::string> shown = host.TakeShownMessages();
        if (options.pages) {
            const auto error = shown.empty() ? std::nullopt : std::optional<std::string>(shown.front());
            json.AddPage({pageId, error, document.ChartBlock(), document.Series(), document.SeriesNames(), notes});
        }
        if (ascii) {
            WriteAsciiPage(*options.asciiFolder, document, pageId, outputs);
        }
        if (uds) {
            WriteUdsPage(*options.udsFolder, document, pageId, outputs);
        }
    }
    host.NameSource({});
}
