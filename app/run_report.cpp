#include "app/run_report.h"

#include "app/messages.h"
#include "compare/document.h"
#include "compare/run_state.h"

QString RunReport(const CQuorvelDoc& document) {
    if (document.Run() == CRunState::Completed) {
        return app_message::RunCompleted(document.ComputedSignals().size());
    }
    // The document does not show the reference's own messages; without this sentence the run would end silently.
    if (document.ErrorMessages().empty() && !document.ReferenceMessages().empty()) {
        return app_message::kReferenceUnreadable;
    }
    return app_message::kRunStopped;
}
