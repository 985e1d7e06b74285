#include "cli/output/streamed_output.h"

#include "cli/output/outputs.h"
#include "cli/output/spool.h"
#include "files/replacing_file.h"
#include "files/write_target.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace {

/// Whether the output cannot be taken back once it is written.
bool IsShownAtOnce(const std::string& path) {
    if (path == kStandardOutput) return true;
    const std::optional<ks::CWriteTarget> target = ks::CWriteTarget::Find(path);
    return target.has_value() && !target->IsNew() && !target->IsRegular();
}

}  // namespace

CStreamedOutput::CStreamedOutput(COutputs& outputs, std::string_view what, std::string path)
    : m_outputs(outputs), m_what(what), m_path(std::move(path)) {}

void CStreamedOutput::Begin() {
    if (IsShownAtOnce(m_path)) {
        m_spool.emplace();
    } else {
        m_file.emplace(m_path);
    }
}

void CStreamedOutput::Put(std::string_view text) {
    if (!IsBegun()) Begin();
    if (m_spool) return m_spool->Put(text);
    m_file->Put(text);
}

void CStreamedOutput::Finish(std::span<const std::string> pieces) {
    if (!IsBegun()) return m_outputs.WritePieces(m_what, m_path, pieces);
    for (const std::string& piece : pieces) Put(piece);
    if (m_spool) return HandOver();
    m_outputs.Record(m_what, m_path, m_file->Finish());
}

void CStreamedOutput::HandOver() {
    bool isComplete = true;
    m_outputs.WritePieces(m_what, m_path, [&](const TextSink& put) { isComplete = m_spool->HandOver(put); });
    if (!isComplete) m_outputs.Record(m_what, m_path, ks::CWriteResult::NotCompleted);
}
