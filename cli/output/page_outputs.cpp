#include "cli/output/page_outputs.h"

#include "cli/cli_host.h"
#include "cli/commands/compare_options.h"
#include "cli/messages.h"
#include "cli/output/json_results.h"
#include "cli/output/notes.h"
#include "cli/output/outputs.h"
#include "cli/output/page_files.h"
#include "compare/document.h"
#include "compare/export.h"
#include "compare/plots/page_table.h"
#include "files/native_path.h"
#include "signal/messages.h"
#include "signal/nsignal.h"
#include "signal/saved_axis.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <vector>

namespace {

void WriteAsciiPage(const std::string& folder, const CQuorvelDoc& document, std::int32_t pageId, COutputs& outputs) {
    const std::string path = AsciiPagePath(folder, pageId);
    if (outputs.IsInput(path)) {
        return;
    }
    // A page that could not be built gets an empty table, so that one from an earlier run does not pass for this run's.
    outputs.Record(cli_message::kPageTable, path, WriteAsciiTable(path, document.ChartBlock(), pageId));
}

/// The UDS files of a run.
class CUdsPages {
public:
    CUdsPages(const std::string& folder, COutputs& outputs) : m_folder(folder), m_outputs(outputs) {}

    void Write(const CQuorvelDoc& document, std::int32_t pageId);
    /// Removes those of an earlier run, so that they do not pass for this run's.
    void RemoveOlder();

private:
    void Save(const ks::CNSignal& series, const std::string& path);

    const std::string& m_folder;
    COutputs& m_outputs;
    std::set<std::string> m_paths;  ///< of this run
};

void CUdsPages::Write(const CQuorvelDoc& document, std::int32_t pageId) {
    std::size_t number = 0;
    for (const auto& series : document.Series()) {
        const std::string path = UdsPagePath(m_folder, pageId, ++number);
        m_paths.insert(path);
        if (!m_outputs.IsInput(path)) {
            Save(*series, path);
        }
    }
}

void CUdsPages::Save(const ks::CNSignal& series, const std::string& path) {
    try {
        series.SaveUDS(path);
    } catch (const std::exception& error) {
        m_outputs.Fail(cli_message::SeriesNotWritten(path, error.what()));
        return;
    }
    if (const auto lost = ks::FirstLostAbscissa(series)) {
        m_outputs.Warn(ks::signal_message::TimesLost(path, *lost));
    }
}

void CUdsPages::RemoveOlder() {
    for (const std::string& path : UdsPagesIn(m_folder)) {
        if (m_paths.contains(path) || m_outputs.Protects(path)) {
            continue;
        }
        std::error_code error;
        std::filesystem::remove(ks::NativePath(path), error);
        if (error) {
            m_outputs.Fail(cli_message::OlderFileNotRemoved(path));
        }
    }
}

void TellNotes(const CQuorvelDoc& document, const std::vector<CPageNote>& notes, CCliHost& host) {
    for (const CPageNote& note : notes) {
        host.TellMore(cli_message::PageNote(document.ComputedSignals()[note.signal].GetPath(), note.note.sentence));
    }
}

/// Selects the page and returns what the results file shows of it.
CPageView ShowPage(std::int32_t pageId, CQuorvelDoc& document, CCliHost& host) {
    host.NameSource(cli_message::PageSource(pageId, PageName(pageId)));
    const CPageNotes pageNotes(document);
    document.SelectPage(pageId);
    const std::vector<CPageNote> notes = pageNotes.Added();
    TellNotes(document, notes, host);
    const std::vector<std::string> shown = host.TakeShownMessages();
    const auto error = shown.empty() ? std::nullopt : std::optional<std::string>(shown.front());
    return {pageId, error, document.ChartBlock(), document.Series(), document.SeriesNames(), notes};
}

}  // namespace

bool WantsPages(const CCompareOptions& options) {
    return options.shouldWritePages || options.asciiFolder.has_value() || options.udsFolder.has_value();
}

void WritePages(const CCompareOptions& options, CQuorvelDoc& document, CCliHost& host, CJsonResults* json,
                COutputs& outputs) {
    const bool hasAscii = options.asciiFolder && outputs.MakeFolder(*options.asciiFolder);
    std::optional<CUdsPages> uds;
    if (options.udsFolder && outputs.MakeFolder(*options.udsFolder)) {
        uds.emplace(*options.udsFolder, outputs);
    }
    if (!options.shouldWritePages && !hasAscii && !uds) {
        return;
    }
    host.TakeShownMessages();
    document.SetNeedsMatrices(hasAscii);
    for (const std::int32_t pageId : document.PageList()) {
        const bool isMade = outputs.Attempt(cli_message::NoMemoryForPage(pageId), [&] {
            const CPageView page = ShowPage(pageId, document, host);
            if (json != nullptr && options.shouldWritePages) json->AddPage(page);
            if (hasAscii) WriteAsciiPage(*options.asciiFolder, document, pageId, outputs);
            if (uds) uds->Write(document, pageId);
        });
        if (!isMade && json != nullptr) json->GiveUp();
    }
    if (uds) {
        uds->RemoveOlder();
    }
    host.NameSource({});
}
