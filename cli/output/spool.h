#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Takes a text piece by piece.
using TextSink = std::function<void(std::string_view text)>;

/// Text that waits until it is known to be complete: in a file without a name, which ends with the program, and from
/// the point where that has no more room, in memory.
class CSpool {
public:
    CSpool();

    /// Appends `text`. @throws std::bad_alloc where neither the disk nor the memory has room for it
    void Put(std::string_view text);
    /// Hands over all the text, in order. False when the disk did not give it back; the text is then cut off there.
    [[nodiscard]] bool HandOver(const TextSink& take);

private:
    struct CCloseFile {
        void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
    };

    std::unique_ptr<std::FILE, CCloseFile> m_file;
    std::uint64_t m_size = 0;         ///< of the text in the file
    std::vector<std::string> m_rest;  ///< what comes after it
};
