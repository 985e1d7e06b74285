#include "signal/ascii_export.h"

#include "files/error.h"
#include "files/number_text.h"
#include "files/replacing_file.h"
#include "signal/data.h"
#include "signal/messages.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <string>

namespace ks {
namespace {

/// Most values came from single precision and take up to 21 characters; longer texts grow.
constexpr std::size_t kLikelyLength = 22;

constexpr const char* kLineEnd = "\r\n";

std::size_t FirstNotFinite(std::span<const double> values) {
    const auto found = std::ranges::find_if(values, [](double value) { return !std::isfinite(value); });
    return static_cast<std::size_t>(found - values.begin());
}

void RefuseNotFinite(const CData& record, CAsciiForm form) {
    const std::size_t count = record.GetPointCount();
    std::size_t first = FirstNotFinite(record.GetY());
    if (form == CAsciiForm::XY) first = std::min(first, FirstNotFinite(record.GetX()));
    if (first < count) throw CError(signal_message::PointNotFinite(first, count));
}

}  // namespace

std::string AsciiPoints(const CData& record, CAsciiForm form) {
    RefuseNotFinite(record, form);
    const std::size_t count = record.GetPointCount();
    const std::size_t columns = form == CAsciiForm::XY ? 2 : 1;
    std::string text;
    text.reserve(count * columns * kLikelyLength);
    for (std::size_t i = 0; i < count; ++i) {
        if (form == CAsciiForm::XY) {
            AppendShortestText(text, record.GetX()[i]);
            text += ' ';
        }
        AppendShortestText(text, record.GetY()[i]);
        text += kLineEnd;
    }
    return text;
}

CWriteResult ExportAsciiPoints(const std::string& path, const CData& record, CAsciiForm form) {
    return WriteFile(path, AsciiPoints(record, form));
}

}  // namespace ks
