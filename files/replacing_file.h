#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace ks {

/// How a write ended.
enum class CWriteResult {
    Written,       ///< the file holds exactly the given bytes
    NotOpened,     ///< the target cannot be opened for writing; nothing was touched
    NotCompleted,  ///< writing failed on the way, for example on a full disk; see CWriteTrouble
};

/// What there is to tell of a write that was not completed.
struct CWriteTrouble {
    bool isDeviceFull = false;   ///< the device, or the user's share of it, has no room
    bool isOldFileLost = false;  ///< the old file had to be written in place, and that failed on the way
};

/// Takes the bytes of a file piece by piece.
class CFileSink {
public:
    explicit CFileSink(std::FILE* stream) : m_stream(stream) {}

    /// Appends `text`; nothing after a failure.
    void Put(std::string_view text);
    /// Whether something could not be written. Whatever follows is lost, so its making can be spared.
    bool HasFailed() const { return m_error != 0; }
    /// The system's number of the failure; 0 without one.
    int Error() const { return m_error; }
    /// Bytes taken so far.
    std::uint64_t Size() const { return m_size; }

private:
    std::FILE* m_stream;
    std::uint64_t m_size = 0;
    int m_error = 0;
};

/// Makes a file's bytes by putting them into the sink, once.
using FileMaker = std::function<void(CFileSink& sink)>;

/// Whether the file at `path` (UTF-8) can be opened for writing, or created where there is none. Touches nothing.
[[nodiscard]] bool CanWrite(const std::string& path);

/// Puts `bytes` into the file at `path` (UTF-8), touching an old file only when the new one is complete. Links are
/// followed and permissions kept.
///
/// The bytes go to a temporary file beside the target, which then takes its place. Where that cannot be (the folder is
/// not writable, the system refuses the exchange, the file has further names that must show the same content), the
/// complete temporary file is copied into the old one. A device or a pipe is written directly.
///
/// @param trouble  where not null, told what to say about a write that was not completed
[[nodiscard]] CWriteResult WriteFile(const std::string& path, std::span<const std::byte> bytes,
                                     CWriteTrouble* trouble = nullptr);
[[nodiscard]] CWriteResult WriteFile(const std::string& path, std::string_view text, CWriteTrouble* trouble = nullptr);

/// The same for bytes that need not be in memory together. What `make` throws passes; the old file is then kept.
[[nodiscard]] CWriteResult WriteFile(const std::string& path, const FileMaker& make, CWriteTrouble* trouble = nullptr);

}  // namespace ks
