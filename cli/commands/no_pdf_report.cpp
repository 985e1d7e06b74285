#include "cli/commands/pdf_report.h"
#include "files/replacing_file.h"
#include "signal/nsignal.h"

#include <string>

bool CanWritePdfReport() {
    return false;
}

ks::CWriteResult WritePdfReport(const std::string&, const ks::CNSignal&, const std::string&, bool) {
    return ks::CWriteResult::NotOpened;
}
