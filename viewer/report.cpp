#include "viewer/report.h"

#include "signal/data.h"
#include "signal/header_groups.h"
#include "viewer/curve_plot.h"
#include "viewer/page.h"
#include "viewer/print_region.h"
#include "viewer/print_table.h"
#include "viewer/report_pdf.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace {

using enum ks::CHeaderGroupId;

// Inches.
constexpr double kBetweenBands = 0.09;
constexpr double kBetweenRegions = 0.25;
constexpr double kPlotHeight = 5.0;
constexpr double kLeastPlotHeight = 4.2;

/// A group of the report; groups of the header that share a title are one.
struct CReportGroup {
    std::vector<ks::CHeaderGroupId> ids;
    int columns = 1;
};

/// Groups side by side.
using CBand = std::vector<CReportGroup>;

const std::vector<CBand>& SpecificationBands() {
    static const std::vector<CBand> kBands = {
        {{{File}, 4}},
        {{{Test}, 3}},
        {{{VehicleOne}, 1}, {{VehicleTwo}, 1}},
        {{{OccupantOne}, 1}, {{OccupantTwo}, 1}},
        {{{OccupantInjury}, 4}},
        {{{Curve}, 2}},
        {{{CurveData, Sensor}, 2}},
        {{{CurveUserData}, 5}},
    };
    return kBands;
}

const std::vector<CBand>& FurtherBands() {
    static const std::vector<CBand> kBands = {
        {{{OtherFile}, 1}, {{OtherTest}, 2}},
        {{{OtherVehicleOne}, 1}, {{OtherVehicleTwo}, 1}},
        {{{OtherInjury}, 3}},
        {{{OtherCurve}, 3}},
        {{{OtherSensor}, 3}},
        {{{Extrema}, 2}},
    };
    return kBands;
}

/// The lines of a group; only the labels if the file lacks the group.
QStringList Lines(const ks::CHeaderGroup& group, const ks::CData& record) {
    QStringList lines;
    const bool isThere = ks::HasHeaderGroup(record, group);
    for (const ks::CHeaderValue& value : ks::HeaderValues(group, record))
        lines.append(isThere ? QString::fromUtf8(ks::HeaderLine(value)) : QString::fromUtf8(value.label));
    return lines;
}

CPrintRegion Region(const CReportGroup& group, const ks::CData& record, double width) {
    QStringList lines;
    for (const ks::CHeaderGroupId id : group.ids) lines += Lines(ks::HeaderGroup(id), record);
    CPrintTable table(group.columns);
    table.Flow(lines, width);
    return {QString::fromUtf8(ks::HeaderGroup(group.ids.front()).title), std::move(table)};
}

/// Fills pages from top to bottom.
class CLayout {
public:
    CLayout(const CReportSubject& subject, QSizeF paper) : m_subject(subject), m_paper(paper) { NewPage(); }

    void AddBands(const std::vector<CBand>& bands) {
        for (const CBand& band : bands) AddBand(band);
    }

    void AddPlot() {
        const double room = Bottom() - m_top;
        if (room < kLeastPlotHeight && m_top > Body().top()) NewPage();
        const QString title = QCoreApplication::translate("CReport", "Plot of the Curve");
        const double headHeight = CPrintRegion(title, {}, 0.0).Height(Body().width());
        const QSizeF size(Body().width(), std::min(kPlotHeight, Bottom() - m_top - headHeight));
        const CPage::Picture picture = CurvePlot(m_subject.record, m_subject.fileName, size * m_pages.back().Scale());
        const CPrintRegion plot(title, picture, size.height());
        plot.PlaceOn(m_pages.back(), {Body().left(), m_top}, Body().width());
    }

    std::vector<CPage> TakePages() { return std::move(m_pages); }

private:
    [[nodiscard]] QRectF Body() const { return m_pages.back().Body(); }
    [[nodiscard]] double Bottom() const { return Body().bottom(); }

    void NewPage() {
        m_pages.emplace_back(m_paper);
        AddHeaderAndFooter(m_pages.back(), static_cast<int>(m_pages.size()));
        m_top = Body().top();
    }

    void AddHeaderAndFooter(CPage& page, int number) const {
        const bool isFull = m_subject.mode == CReportMode::Full;
        page.AddLine(0.0, Qt::AlignHCenter, isFull ? "Full UDS File Report" : "UDS File Specification Report",
                     kTitleFont);
        page.AddLine(CPage::kHeaderRow, Qt::AlignHCenter,
                     QString::asprintf("Test Number: %d        Curve Number: %d", m_subject.record.GetTSTNO(),
                                       m_subject.record.GetCURNO()),
                     kTitleFont);
        page.AddLine(CPage::kFooterRow, Qt::AlignLeft, QString::asprintf("Page: %d", number), kFooterFont);
        const QDate& date = m_subject.date;
        page.AddLine(CPage::kFooterRow, Qt::AlignRight,
                     QString::asprintf("Date: %d/%d/%d", date.month(), date.day(), date.year()), kFooterFont);
    }

    void AddBand(const CBand& band) {
        const auto count = static_cast<double>(band.size());
        const double width = (Body().width() - (count - 1.0) * kBetweenRegions) / count;
        std::vector<CPrintRegion> regions;
        double height = 0.0;
        for (const CReportGroup& group : band) {
            regions.push_back(Region(group, m_subject.record, width));
            height = std::max(height, regions.back().Height(width));
        }
        if (m_top + height > Bottom() && m_top > Body().top()) NewPage();
        double left = Body().left();
        for (const CPrintRegion& region : regions) {
            region.PlaceOn(m_pages.back(), {left, m_top}, width);
            left += width + kBetweenRegions;
        }
        m_top += height + kBetweenBands;
    }

    const CReportSubject& m_subject;
    QSizeF m_paper;
    std::vector<CPage> m_pages;
    double m_top = 0.0;
};

std::vector<CPage> LayOut(const CReportSubject& subject, QSizeF paper) {
    CLayout layout(subject, paper);
    layout.AddBands(SpecificationBands());
    if (subject.mode == CReportMode::Full) {
        layout.AddBands(FurtherBands());
        layout.AddPlot();
    }
    return layout.TakePages();
}

}  // namespace

CReport::CReport(const CReportSubject& subject, QSizeF paper) : m_pages(LayOut(subject, paper)) {}

void CReport::Paint(QPainter& painter, int page) const {
    m_pages.at(static_cast<std::size_t>(page)).Paint(painter);
}
