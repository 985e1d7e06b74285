#pragma once

#include "cli/output/outputs.h"
#include "cli/output/spool.h"
#include "files/replacing_file.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// An output that is made bit by bit while the command goes on, so that it need not be in memory as a whole. It appears
/// when it is finished, complete: a file takes its place then, and what goes to standard output or to a device waits
/// until then. Without Finish, nothing appears.
class CStreamedOutput {
public:
    /// `outputs` must outlive the object; `what` and `path` as for COutputs::Write. Opens nothing yet.
    CStreamedOutput(COutputs& outputs, std::string_view what, std::string path);

    /// Appends `text`. The first call opens the file; if that fails or the file cannot be written, Finish says so.
    /// @throws std::bad_alloc
    void Put(std::string_view text);
    /// Appends the pieces and shows the output; a failure is one sentence. @throws std::bad_alloc
    void Finish(std::span<const std::string> pieces);

private:
    [[nodiscard]] bool IsBegun() const { return m_file.has_value() || m_spool.has_value(); }
    void Begin();
    void HandOver();

    COutputs& m_outputs;
    std::string m_what;
    std::string m_path;
    std::optional<ks::CReplacingFile> m_file;
    std::optional<CSpool> m_spool;
};
