#pragma once

#include "viewer/page.h"
#include "viewer/print_table.h"

#include <QPointF>
#include <QString>

#include <optional>

/// A group on a page: its title above a thin line, then a table or a picture.
class CPrintRegion {
public:
    CPrintRegion(QString title, CPrintTable table);
    /// @param height  of the picture, inches
    CPrintRegion(QString title, CPage::Picture picture, double height);

    /// Height at this width, inches.
    [[nodiscard]] double Height(double width) const;
    /// Puts the region onto a page; `place` is its upper left corner.
    void PlaceOn(CPage& page, QPointF place, double width) const;

private:
    QString m_title;
    std::optional<CPrintTable> m_table;
    CPage::Picture m_picture;
    double m_pictureHeight = 0.0;
};
