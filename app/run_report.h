#pragma once

#include <QString>

class CQuorvelDoc;

/// One sentence on how the document's last run ended, for the status bar.
[[nodiscard]] QString RunReport(const CQuorvelDoc& document);
