#include "cli/commands/pdf_report.h"

#include "cli/commands/pdf_exit_code.h"
#include "cli/process.h"
#include "files/replacing_file.h"

#include <new>
#include <optional>
#include <string>

namespace {

std::string Program() {
    return SiblingProgram("quorvel-pdf-report");
}

ks::CWriteResult ResultOf(CPdfExitCode code) {
    switch (code) {
        case CPdfExitCode::Written:
            return ks::CWriteResult::Written;
        case CPdfExitCode::NotOpened:
            return ks::CWriteResult::NotOpened;
        case CPdfExitCode::Damaged:
            return ks::CWriteResult::Damaged;
        case CPdfExitCode::NoMemory:
            throw std::bad_alloc();
        case CPdfExitCode::NotCompleted:
        case CPdfExitCode::NotRead:
        case CPdfExitCode::Failed:
        case CPdfExitCode::WrongUsage:
            break;
    }
    return ks::CWriteResult::NotCompleted;  // also for a program that a signal ended: it replaces complete files only
}

}  // namespace

bool CanWritePdfReport() {
    return IsProgram(Program());
}

ks::CWriteResult WritePdfReport(const std::string& pdf, const std::string& file, bool isFull) {
    const std::optional<int> status = Execute({Program(), file, pdf, std::string(isFull ? kFullReport : kShortReport)});
    return ResultOf(status ? static_cast<CPdfExitCode>(*status) : CPdfExitCode::Failed);
}
