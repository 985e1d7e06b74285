#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace ks {

/// How a write ended.
enum class CWriteResult {
    Written,       ///< the file holds exactly the given bytes
    NotOpened,     ///< the target cannot be opened for writing; nothing was touched
    NotCompleted,  ///< writing failed partway, for example on a full disk; an existing file is unchanged
    Damaged,  ///< the same, but the existing file had to be written in place: it holds neither all of the old bytes
              ///< nor all of the new ones
};

/// Details of a write that was not completed.
struct CWriteTrouble {
    bool isDeviceFull = false;  ///< the device is full, or the user's share of it
};

/// Takes the bytes of a file piece by piece.
class CFileSink {
public:
    explicit CFileSink(std::FILE* stream) : m_stream(stream) {}

    /// Appends `text`; nothing after a failure.
    void Put(std::string_view text);
    /// Whether something could not be written. Whatever follows is lost, so there is no need to make it.
    [[nodiscard]] bool HasFailed() const { return m_error != 0; }
    /// The system's number of the failure; 0 without one.
    [[nodiscard]] int Error() const { return m_error; }
    /// Bytes taken so far.
    [[nodiscard]] std::uint64_t Size() const { return m_size; }

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
/// The bytes go to a temporary file next to the target, which then takes its place. Where that cannot be (the folder is
/// not writable, the system refuses the exchange, the file has further names that must show the same content), the
/// complete temporary file is copied into the old one. A device or a pipe is written directly.
///
/// @param trouble  if not null, receives the details of a write that was not completed
[[nodiscard]] CWriteResult WriteFile(const std::string& path, std::span<const std::byte> bytes,
                                     CWriteTrouble* trouble = nullptr);
[[nodiscard]] CWriteResult WriteFile(const std::string& path, std::string_view text, CWriteTrouble* trouble = nullptr);

/// The same for bytes that need not be in memory together. Exceptions from `make` pass through; the old file is then
/// kept.
[[nodiscard]] CWriteResult WriteFile(const std::string& path, const FileMaker& make, CWriteTrouble* trouble = nullptr);

/// A file that is written while its bytes are still being made. They go where those of WriteFile go: an old file is
/// touched by Finish only, and without Finish nothing remains. May throw std::bad_alloc.
class CReplacingFile {
public:
    /// Begins to write the file at `path` (UTF-8). Where that is impossible, the bytes are dropped, and Finish says so.
    explicit CReplacingFile(const std::string& path);
    CReplacingFile(const CReplacingFile&) = delete;
    CReplacingFile& operator=(const CReplacingFile&) = delete;
    ~CReplacingFile();

    [[nodiscard]] bool IsOpen() const;
    /// Appends `text`. After a failure, what was written so far is removed at once, so that other files find room.
    void Put(std::string_view text);
    /// The same for a maker of bytes, while the file is open.
    [[nodiscard]] CFileSink& Sink();
    /// Puts the complete file in its place; once.
    [[nodiscard]] CWriteResult Finish(CWriteTrouble* trouble = nullptr);

private:
    class CWriting;
    std::unique_ptr<CWriting> m_writing;
};

}  // namespace ks
