#include "files/replacing_file.h"

#include "files/write_target.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ks {
namespace {

namespace fs = std::filesystem;

constexpr int kTemporaryNameTries = 100;
constexpr std::size_t kBytesAtATime = 65536;

struct CCloseStream {
    void operator()(std::FILE* stream) const { static_cast<void>(std::fclose(stream)); }
};
using Stream = std::unique_ptr<std::FILE, CCloseStream>;

bool IsLackOfRoom(int error) {
#ifdef EDQUOT
    if (error == EDQUOT) return true;
#endif
    return error == ENOSPC;
}

/// Why the last system call failed; never 0.
int LastError() {
    return errno != 0 ? errno : EIO;
}

// What the platforms do differently.

#ifdef _WIN32
Stream CreateNew(const fs::path& path) {
    return Stream(_wfopen(path.c_str(), L"w+bx"));
}
Stream OpenOld(const fs::path& path) {
    return Stream(_wfopen(path.c_str(), L"r+b"));
}
bool FlushToDisk(std::FILE* stream) {
    return _commit(_fileno(stream)) == 0;
}
bool SetSize(std::FILE* stream, std::uint64_t size) {
    return _chsize_s(_fileno(stream), static_cast<long long>(size)) == 0;
}
int ReserveRoom(std::FILE* stream, std::uint64_t size) {
    return _chsize_s(_fileno(stream), static_cast<long long>(size));
}
#else
Stream CreateNew(const fs::path& path) {
    return Stream(std::fopen(path.c_str(), "w+bx"));
}

/// Opens what is there without emptying it. Without O_NONBLOCK the opening of a pipe that nobody reads would never
/// return.
Stream OpenOld(const fs::path& path) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) return nullptr;
    const int flags = ::fcntl(descriptor, F_GETFL);
    if (flags >= 0) ::fcntl(descriptor, F_SETFL, flags & ~O_NONBLOCK);
    Stream stream(::fdopen(descriptor, "wb"));
    if (stream == nullptr) ::close(descriptor);
    return stream;
}

bool FlushToDisk(std::FILE* stream) {
    return ::fsync(::fileno(stream)) == 0;
}
bool SetSize(std::FILE* stream, std::uint64_t size) {
    return ::ftruncate(::fileno(stream), static_cast<off_t>(size)) == 0;
}
/// 0, or the reason why the device cannot hold a file of this size.
int ReserveRoom(std::FILE* stream, std::uint64_t size) {
    if (size == 0) return 0;
    const int error = ::posix_fallocate(::fileno(stream), 0, static_cast<off_t>(size));
    // Any other reason means that this device cannot be asked beforehand.
    return IsLackOfRoom(error) || error == EFBIG ? error : 0;
}
#endif

bool IsFile(const CWriteTarget& target) {
    return target.IsNew() || target.IsRegular();
}

}  // namespace

/// One write from beginning to end.
class CReplacingFile::CWriting {
public:
    explicit CWriting(const std::string& path) : m_givenPath(path), m_target(CWriteTarget::Find(path)) { Open(); }
    CWriting(const CWriting&) = delete;
    CWriting& operator=(const CWriting&) = delete;
    ~CWriting() { Discard(); }

    [[nodiscard]] bool IsOpen() const { return m_isOpen; }
    CFileSink& Sink() { return m_sink; }
    void Put(std::string_view text);
    CWriteResult Finish();
    /// Closes and removes what is left of the temporary file.
    void Discard();
    [[nodiscard]] const CWriteTrouble& Trouble() const { return m_trouble; }

private:
    void Open();
    bool CreateNextToTarget();
    bool CreateElsewhere();
    CWriteResult FinishDirectly();
    int Complete();
    bool FindAgain();
    int TakeThePlace();
    CWriteResult CopyIntoThePlace();
    int CopyInto(std::FILE* old);
    CWriteResult NotCompleted(int error);

    const std::string m_givenPath;
    std::optional<CWriteTarget> m_target;
    CWriteTrouble m_trouble;
    fs::path m_path;  ///< of the temporary file; empty for one that has no name
    Stream m_stream;  ///< the temporary file, or a device
    CFileSink m_sink{nullptr};
    bool m_isOpen = false;
};

CWriteResult CReplacingFile::CWriting::NotCompleted(int error) {
    m_trouble.isDeviceFull = IsLackOfRoom(error);
    return CWriteResult::NotCompleted;
}

void CReplacingFile::CWriting::Open() {
    if (!m_target.has_value() || !m_target->CanBeWritten()) return;
    if (!IsFile(*m_target)) {
        m_stream = OpenOld(m_target->Path());
    } else if (!CreateNextToTarget() && !m_target->IsNew()) {
        CreateElsewhere();
    }
    m_isOpen = m_stream != nullptr;
    m_sink = CFileSink(m_stream.get());
}

void CReplacingFile::CWriting::Put(std::string_view text) {
    if (!m_isOpen) return;
    m_sink.Put(text);
    if (m_sink.HasFailed()) Discard();
}

void CReplacingFile::CWriting::Discard() {
    m_stream.reset();
    if (m_path.empty()) return;
    std::error_code ignored;
    fs::remove(m_path, ignored);
    m_path.clear();
}

CWriteResult CReplacingFile::CWriting::Finish() {
    if (!m_isOpen) return CWriteResult::NotOpened;
    if (m_sink.HasFailed()) return NotCompleted(m_sink.Error());
    if (!IsFile(*m_target)) return FinishDirectly();
    if (const int error = Complete(); error != 0) return NotCompleted(error);
    if (!FindAgain()) return CWriteResult::NotOpened;
    const bool needsCopy = m_path.empty() || m_target->HasSeveralNames();
    const int refusal = needsCopy ? 0 : TakeThePlace();
    if (!needsCopy && refusal == 0) return CWriteResult::Written;
    return m_target->IsNew() ? NotCompleted(refusal) : CopyIntoThePlace();
}

CWriteResult CReplacingFile::CWriting::FinishDirectly() {
    return std::fclose(m_stream.release()) == 0 ? CWriteResult::Written : NotCompleted(LastError());
}

/// The target may have changed while the bytes were made.
bool CReplacingFile::CWriting::FindAgain() {
    m_target = CWriteTarget::Find(m_givenPath);
    return m_target.has_value() && m_target->CanBeWritten() && IsFile(*m_target) &&
           !(m_path.empty() && m_target->IsNew());
}

bool CReplacingFile::CWriting::CreateNextToTarget() {
    std::random_device random;
    for (int i = 0; i < kTemporaryNameTries; ++i) {
        // A short name of its own: the target's may already be as long as the system allows.
        fs::path path = m_target->Folder() / (".quorvel-" + std::to_string(random()) + ".tmp");
        m_stream = CreateNew(path);
        if (m_stream != nullptr) {
            m_path = std::move(path);
            return true;
        }
        std::error_code error;
        if (!fs::exists(path, error)) return false;
    }
    return false;
}

/// A file without a name, which ends with its stream.
bool CReplacingFile::CWriting::CreateElsewhere() {
    m_stream.reset(std::tmpfile());
    return m_stream != nullptr;
}

/// 0, or the reason for the failure.
int CReplacingFile::CWriting::Complete() {
    return std::fflush(m_stream.get()) == 0 && FlushToDisk(m_stream.get()) ? 0 : LastError();
}

/// Puts the temporary file in the place of the target: 0, or the reason why that failed.
int CReplacingFile::CWriting::TakeThePlace() {
    std::error_code error;
    if (!m_target->IsNew()) fs::permissions(m_path, m_target->Permissions(), error);
    if (error) return error.value();
#ifdef _WIN32
    m_stream.reset();  // an open file keeps its name there
#endif
    fs::rename(m_path, m_target->Path(), error);
    if (!error) m_path.clear();
    return error.value();
}

CWriteResult CReplacingFile::CWriting::CopyIntoThePlace() {
#ifdef _WIN32
    if (m_stream == nullptr) m_stream.reset(_wfopen(m_path.c_str(), L"rb"));
    if (m_stream == nullptr) return NotCompleted(LastError());
#endif
    std::error_code error;
    const std::uintmax_t oldSize = fs::file_size(m_target->Path(), error);
    const Stream old = OpenOld(m_target->Path());
    if (error || old == nullptr) return CWriteResult::NotOpened;

    // Before the first old byte is overwritten: there must be space for all of the new ones.
    if (const int refusal = ReserveRoom(old.get(), m_sink.Size()); refusal != 0) {
        SetSize(old.get(), oldSize);
        return NotCompleted(refusal);
    }
    const int failure = CopyInto(old.get());
    if (failure == 0) return CWriteResult::Written;
    NotCompleted(failure);
    return CWriteResult::Damaged;
}

/// 0, or the reason for the failure.
int CReplacingFile::CWriting::CopyInto(std::FILE* old) {
    std::array<char, kBytesAtATime> buffer{};
    if (std::fseek(m_stream.get(), 0, SEEK_SET) != 0) return LastError();
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), m_stream.get())) {
        if (std::fwrite(buffer.data(), 1, count, old) != count) return LastError();
    }
    const bool isDone =
        std::ferror(m_stream.get()) == 0 && std::fflush(old) == 0 && SetSize(old, m_sink.Size()) && FlushToDisk(old);
    return isDone ? 0 : LastError();
}

void CFileSink::Put(std::string_view text) {
    if (HasFailed()) return;
    if (std::fwrite(text.data(), 1, text.size(), m_stream) != text.size()) m_error = LastError();
    m_size += text.size();
}

bool CanWrite(const std::string& path) {
    const std::optional<CWriteTarget> target = CWriteTarget::Find(path);
    return target.has_value() && target->CanBeWritten();
}

CReplacingFile::CReplacingFile(const std::string& path) : m_writing(std::make_unique<CWriting>(path)) {}

CReplacingFile::~CReplacingFile() = default;

bool CReplacingFile::IsOpen() const {
    return m_writing->IsOpen();
}

void CReplacingFile::Put(std::string_view text) {
    m_writing->Put(text);
}

CFileSink& CReplacingFile::Sink() {
    return m_writing->Sink();
}

CWriteResult CReplacingFile::Finish(CWriteTrouble* trouble) {
    const CWriteResult result = m_writing->Finish();
    m_writing->Discard();
    if (trouble != nullptr) *trouble = m_writing->Trouble();
    return result;
}

CWriteResult WriteFile(const std::string& path, const FileMaker& make, CWriteTrouble* trouble) {
    CReplacingFile file(path);
    if (!file.IsOpen()) return CWriteResult::NotOpened;
    make(file.Sink());
    return file.Finish(trouble);
}

CWriteResult WriteFile(const std::string& path, std::string_view text, CWriteTrouble* trouble) {
    return WriteFile(path, FileMaker([text](CFileSink& sink) { sink.Put(text); }), trouble);
}

CWriteResult WriteFile(const std::string& path, std::span<const std::byte> bytes, CWriteTrouble* trouble) {
    return WriteFile(path, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), trouble);
}

}  // namespace ks
