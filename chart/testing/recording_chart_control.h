#pragma once

#include "chart/chart_control.h"
#include "files/replacing_file.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A chart control that draws nothing and records every call in order, one line of text each: "set 2115 = 3",
/// "array 3268 = 0.5", "array 2125 = \"a\tb\t\" (2)", "text 3000 = \"Time\"", "draw 0 0", "apply",
/// "copy 10000 x 5000". Shared values read as those set. Real numbers are in the shortest form that reads back. Given
/// another control, it also forwards every call, so that a test can observe a working window.
class CRecordingChartControl : public CChartControl {
public:
    explicit CRecordingChartControl(CChartControl* passedOnTo = nullptr) : m_passedOnTo(passedOnTo) {}

    std::vector<std::string> calls;
    ks::CWriteResult exportResult = ks::CWriteResult::Written;  ///< of both exports when nothing is forwarded

    void Create(const CChartCreation& creation) override;
    void Destroy() override;
    [[nodiscard]] bool Exists() const override { return m_isThere; }
    void SetInteger(CChartProperty property, std::int32_t value) override;
    void SetText(CChartProperty property, std::string_view text) override;
    void SetArray(CChartProperty property, std::span<const double> values) override;
    void ShareArray(CChartProperty property, const CSharedValues& values) override;
    void SetArray(CChartProperty property, std::span<const std::int32_t> values) override;
    void SetArray(CChartProperty property, std::string_view texts, std::int32_t count) override;
    void ClearArray(CChartProperty property) override;
    void Draw(std::int32_t first, std::int32_t second) override;
    void Apply() override;
    void CopyMetafile(CChartSize size) override;
    [[nodiscard]] ks::CWriteResult ExportMetafile(CChartSize size, const std::string& path) override;
    [[nodiscard]] ks::CWriteResult ExportBitmap(CChartSize size, const std::string& path) override;
    void Resized(std::int32_t width, std::int32_t height) override;
    void PaintOnto(QPainter& painter, const QRectF& area) override;

private:
    CChartControl* m_passedOnTo;
    bool m_isThere = false;
};
