#include "cli/commands/pdf_report.h"

bool CanWritePdfReport() {
    return false;
}

ks::WriteResult WritePdfReport(const std::string&, const ks::CNSignal&, const std::string&, bool) {
    return ks::WriteResult::NotOpened;
}
