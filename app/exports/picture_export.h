#pragma once

#include "app/window_services.h"
#include "chart/chart_control.h"

#include <QCoreApplication>
#include <QString>

#include <string>

class QWidget;

enum class CPictureKind { Bitmap, Metafile };

/// Saves the chart as a picture and remembers the folder for its lifetime.
class CPictureExport {
    Q_DECLARE_TR_FUNCTIONS(CPictureExport)

public:
    explicit CPictureExport(const CWindowServices& services) : m_services(services) {}

    /// Asks for a file above `parent` and writes `chart` to it; a picture that cannot be written is reported.
    /// @return what was done, for the status bar; empty when nothing was done, for example without a chart
    [[nodiscard]] QString Save(CChartControl& chart, CPictureKind kind, QWidget* parent);

private:
    CWindowServices m_services;
    std::string m_folder;  ///< of the last picture saved
};

/// Copies `chart` to the clipboard, as a metafile and as a picture.
/// @return what was done, for the status bar; empty without a chart
[[nodiscard]] QString CopyPicture(CChartControl& chart);
