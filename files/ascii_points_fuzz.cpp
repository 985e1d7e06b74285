// Whatever the text: the reader refuses it with an error of ours, or what it read can be written and read again to the
// same points. Reading in pieces gives what reading the whole text at once gives.

#include "files/ascii_points.h"

#include "files/error.h"
#include "files/number_text.h"
#include "files/points.h"
#include "tests/support/memory_source.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

namespace {

void Require(bool isMet) {
    if (!isMet) std::abort();
}

/// A number that reads back to the value; the grammar has no text for infinity.
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

/// Reads the text into `points`, in pieces; whether that ends without an error of ours.
bool ReadInPieces(std::string_view text, std::size_t bytesAtATime, ks::CPoints& points) {
    CMemorySource source(std::as_bytes(std::span(text)));
    return Accepts([&] { points.ReadFrom(source, "", bytesAtATime); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    ReadText(text);
    ks::CPoints whole;
    const bool isAccepted = ReadInPieces(text, size + 1, whole);
    for (const std::size_t bytesAtATime : {1U, 2U, 5U, 64U}) {
        ks::CPoints pieces;
        Require(ReadInPieces(text, bytesAtATime, pieces) == isAccepted);
        RequireSame(whole.Columns(), pieces.Columns());
    }
    return 0;
}
