#include "bench/bare_column.h"
#include "bench/bare_loops.h"

#include <fast_float/fast_float.h>
#include <fast_float/parse_number.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <utility>

namespace bare {
namespace {

/// Fewer characters than any line of the data has; memory that no line uses costs nothing.
constexpr std::size_t kShortestLine = 8;

struct CText {
    CBareColumn room;
    std::size_t size = 0;
};

CText ReadWhole(const std::string& path) {
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) throw std::runtime_error("Cannot read " + path);
    std::setvbuf(file, nullptr, _IONBF, 0);
    std::fseek(file, 0, SEEK_END);
    const auto size = static_cast<std::size_t>(std::ftell(file));
    std::rewind(file);
    CText text{CBareColumn(size / sizeof(double) + 1), 0};
    text.size = std::fread(text.room.Values().data(), 1, size, file);
    std::fclose(file);
    return text;
}

}  // namespace

CCurve ParseLines(const std::string& path) {
    const CText text = ReadWhole(path);
    const char* at = reinterpret_cast<const char*>(text.room.Values().data());
    const char* const end = at + text.size;
    CBareColumn x(text.size / kShortestLine + 1);
    CBareColumn y(text.size / kShortestLine + 1);
    std::size_t count = 0;
    while (at < end) {
        at = fast_float::from_chars(at, end, x.Values()[count]).ptr + 1;
        at = fast_float::from_chars(at, end, y.Values()[count]).ptr + 1;
        ++count;
    }
    x.Shorten(count);
    y.Shorten(count);
    return {std::move(x), std::move(y), {}};
}

}  // namespace bare
