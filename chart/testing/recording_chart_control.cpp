#include "chart/testing/recording_chart_control.h"

#include "chart/chart_control.h"
#include "files/replacing_file.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace {

template <class Number>
std::string Text(Number number) {
    std::array<char, 32> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    return {buffer.data(), end};
}

std::string Text(CChartProperty property) {
    return Text(static_cast<std::int32_t>(property));
}

std::string Text(CChartSize size) {
    std::string text = Text(size.width);
    text += " x ";
    text += Text(size.height);
    return text;
}

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string joined;
    for (const std::string_view part : parts) joined += part;
    return joined;
}

template <class Number>
std::string ArrayCall(CChartProperty property, std::span<const Number> values) {
    std::string call = Joined({"array ", Text(property), " ="});
    for (const Number value : values) {
        call += ' ';
        call += Text(value);
    }
    return call;
}

}  // namespace

void CRecordingChartControl::Create(const CChartCreation& creation) {
    calls.push_back(Joined({"create ", Text(creation.controlType), " style ", Text(creation.style), " area ",
                            Text(creation.clientArea), " id ", Text(creation.identifier)}));
    m_isThere = true;
    if (m_passedOnTo) m_passedOnTo->Create(creation);
}

void CRecordingChartControl::Destroy() {
    calls.emplace_back("destroy");
    m_isThere = false;
    if (m_passedOnTo) m_passedOnTo->Destroy();
}

void CRecordingChartControl::SetInteger(CChartProperty property, std::int32_t value) {
    calls.push_back(Joined({"set ", Text(property), " = ", Text(value)}));
    if (m_passedOnTo) m_passedOnTo->SetInteger(property, value);
}

void CRecordingChartControl::SetText(CChartProperty property, std::string_view text) {
    calls.push_back(Joined({"text ", Text(property), " = \"", text, "\""}));
    if (m_passedOnTo) m_passedOnTo->SetText(property, text);
}

void CRecordingChartControl::SetArray(CChartProperty property, std::span<const double> values) {
    calls.push_back(ArrayCall(property, values));
    if (m_passedOnTo) m_passedOnTo->SetArray(property, values);
}

void CRecordingChartControl::ShareArray(CChartProperty property, const CSharedValues& values) {
    calls.push_back(ArrayCall(property, values.values));
    if (m_passedOnTo) m_passedOnTo->ShareArray(property, values);
}

void CRecordingChartControl::SetArray(CChartProperty property, std::span<const std::int32_t> values) {
    calls.push_back(ArrayCall(property, values));
    if (m_passedOnTo) m_passedOnTo->SetArray(property, values);
}

void CRecordingChartControl::SetArray(CChartProperty property, std::string_view texts, std::int32_t count) {
    calls.push_back(Joined({"array ", Text(property), " = \"", texts, "\" (", Text(count), ")"}));
    if (m_passedOnTo) m_passedOnTo->SetArray(property, texts, count);
}

void CRecordingChartControl::ClearArray(CChartProperty property) {
    calls.push_back(Joined({"array ", Text(property), " empty"}));
    if (m_passedOnTo) m_passedOnTo->ClearArray(property);
}

void CRecordingChartControl::Draw(std::int32_t first, std::int32_t second) {
    calls.push_back(Joined({"draw ", Text(first), " ", Text(second)}));
    if (m_passedOnTo) m_passedOnTo->Draw(first, second);
}

void CRecordingChartControl::Apply() {
    calls.emplace_back("apply");
    if (m_passedOnTo) m_passedOnTo->Apply();
}

void CRecordingChartControl::CopyMetafile(CChartSize size) {
    calls.push_back(Joined({"copy ", Text(size)}));
    if (m_passedOnTo) m_passedOnTo->CopyMetafile(size);
}

ks::CWriteResult CRecordingChartControl::ExportMetafile(CChartSize size, const std::string& path) {
    calls.push_back(Joined({"metafile ", Text(size), " \"", path, "\""}));
    return m_passedOnTo ? m_passedOnTo->ExportMetafile(size, path) : exportResult;
}

ks::CWriteResult CRecordingChartControl::ExportBitmap(CChartSize size, const std::string& path) {
    calls.push_back(Joined({"bitmap ", Text(size), " \"", path, "\""}));
    return m_passedOnTo ? m_passedOnTo->ExportBitmap(size, path) : exportResult;
}

void CRecordingChartControl::Resized(std::int32_t width, std::int32_t height) {
    calls.push_back(Joined({"resized ", Text(width), " x ", Text(height)}));
    if (m_passedOnTo) m_passedOnTo->Resized(width, height);
}

void CRecordingChartControl::PaintOnto(QPainter& painter, const QRectF& area) {
    calls.emplace_back("paint");
    if (m_passedOnTo) m_passedOnTo->PaintOnto(painter, area);
}
