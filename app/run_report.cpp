#include "app/run_report.h"

#include "compare/document.h"
#include "compare/run_state.h"

#include <QCoreApplication>
#include <cstddef>

namespace {

struct CRunReport {
    Q_DECLARE_TR_FUNCTIONS(CRunReport)
};

}  // namespace

QString RunReport(const CQuorvelDoc& document) {
    if (document.Run() == CRunState::Completed) {
        const std::size_t count = document.ComputedSignals().size();
        return count == 1 ? CRunReport::tr("1 signal was compared.")
                          : CRunReport::tr("%1 signals were compared.").arg(count);
    }
    // The document does not show the reference's own messages; without this sentence the run would end silently.
    if (document.ErrorMessages().empty() && !document.ReferenceMessages().empty()) {
        return CRunReport::tr("The reference could not be read; nothing was compared.");
    }
    return CRunReport::tr("The run stopped; nothing was compared.");
}
