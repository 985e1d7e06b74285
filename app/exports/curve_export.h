#pragma once

#include <QString>

class CChartControl;
class CQuorvelDoc;
class CWindowHost;

enum class CCurveFormat { Uds, Ascii };

/// Has the document save the curves of the current page, which `chart` shows; `host` is the document's.
/// @return what was done, or that the page has no curves, for the status bar; empty when the user canceled or has
///         been told why nothing was saved
/// @throws ks::CError from the UDS writer
[[nodiscard]] QString SaveCurves(const CChartControl& chart, CQuorvelDoc& document, CWindowHost& host,
                                 CCurveFormat format);
