#include "viewer/print_region.h"

#include "viewer/page.h"
#include "viewer/print_table.h"

#include <utility>

namespace {

// Inches.
constexpr double kBelowTitle = 0.02;
constexpr double kBelowRule = 0.04;

double HeadHeight() {
    return kGroupFont.LineHeight() + kBelowTitle + kBelowRule;
}

}  // namespace

CPrintRegion::CPrintRegion(QString title, CPrintTable table) : m_title(std::move(title)), m_table(std::move(table)) {}

CPrintRegion::CPrintRegion(QString title, CPage::Picture picture, double height)
    : m_title(std::move(title)), m_picture(std::move(picture)), m_pictureHeight(height) {}

double CPrintRegion::Height(double width) const {
    return HeadHeight() + (m_table ? m_table->Height(width) : m_pictureHeight);
}

void CPrintRegion::PlaceOn(CPage& page, QPointF place, double width) const {
    page.AddText(place, m_title, kGroupFont);
    const double ruleY = place.y() + kGroupFont.LineHeight() + kBelowTitle;
    page.AddRule({place.x(), ruleY}, {place.x() + width, ruleY});
    const QPointF contents(place.x(), place.y() + HeadHeight());
    if (m_table) m_table->PlaceOn(page, contents, width);
    if (m_picture) page.AddPicture({contents, QSizeF(width, m_pictureHeight)}, m_picture);
}
