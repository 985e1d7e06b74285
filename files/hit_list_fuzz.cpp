// Whatever the text: no path of a hit list is empty or holds a line feed, and the paths can be written and read again.

#include "files/hit_list.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

void Require(bool isMet) {
    if (!isMet) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::string> files = ks::ParseHitList({reinterpret_cast<const char*>(data), size});
    for (const std::string& file : files) Require(!file.empty() && file.find('\n') == std::string::npos);
    Require(ks::ParseHitList(ks::HitListText(files)) == files);
    return 0;
}
