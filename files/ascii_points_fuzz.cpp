// Whatever the text: the reader refuses it with an error of ours, or what it read can be written and read again to the
// same points. The end of the data is never beyond the text, and reading in pieces gives what the whole text gives.

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

#include "files/ascii_points.h"
#include "files/byte_source.h"
#include "files/error.h"
#include "files/number_text.h"
#include "files/points.h"

namespace {

void Require(bool isMet) {
    if (!isMet) std::abort();
}

/// A number as the reader takes it; it has no word for infinity.
std::string NumberText(double value) {
    if (std::isinf(value)) return value > 0 ? "1e999" : "-1e999";
    return ks::ShortestText(value);
}

void RequireSame(double a, double b) {
    Require(std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b));
}

void ReadText(std::string_view text) {
    ks::CPoints points;
    try {
        points.ParseData(text);
    } catch (const ks::CError&) {
        return;
    }
    const ks::CPointColumns& columns = points.Columns();
    std::string again;
    for (std::size_t i = 0; i < columns.Count(); ++i) {
        const double z = columns.z.empty() ? 0.0 : columns.z[i];
        again += NumberText(columns.x[i]) + " " + NumberText(columns.y[i]) + " " + NumberText(z) + "\n";
    }
    ks::CPoints back;
    back.ParseData(again);
    Require(back.Columns().Count() == columns.Count());
    for (std::size_t i = 0; i < columns.Count(); ++i) {
        RequireSame(back.Columns().x[i], columns.x[i]);
        RequireSame(back.Columns().y[i], columns.y[i]);
        RequireSame(back.Columns().z[i], columns.z.empty() ? 0.0 : columns.z[i]);
    }
}

void RequireSame(const ks::CPointColumns& a, const ks::CPointColumns& b) {
    Require(a.Count() == b.Count());
    for (std::size_t i = 0; i < a.Count(); ++i) {
        RequireSame(a.x[i], b.x[i]);
        RequireSame(a.y[i], b.y[i]);
    }
    Require(a.z.size() == b.z.size());
    for (std::size_t i = 0; i < a.z.size(); ++i) RequireSame(a.z[i], b.z[i]);
}

/// Whether `read` reads without an error of ours.
template <class Read>
bool Accepts(Read read) {
    try {
        read();
        return true;
    } catch (const ks::CError&) {
        return false;
    }
}

void ReadInPieces(std::string_view text, std::size_t length, std::size_t bytesAtATime) {
    ks::CPoints whole, pieces;
    ks::CMemorySource source(std::as_bytes(std::span(text)));
    Require(Accepts([&] { whole.ParseData(text.substr(0, length)); }) ==
            Accepts([&] { pieces.ReadFrom(source, "", bytesAtATime); }));
    RequireSame(whole.Columns(), pieces.Columns());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ReadText(text);
    const std::size_t length = ks::DataLength(text);
    Require(length <= size);
    ReadText(text.substr(0, length));
    for (const std::size_t bytesAtATime : {1U, 2U, 5U, 64U}) ReadInPieces(text, length, bytesAtATime);
    return 0;
}
