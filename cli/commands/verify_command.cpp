#include "cli/commands/verify_command.h"

#include "cli/commands/verify_options.h"
#include "cli/exit_status.h"
#include "cli/messages.h"
#include "cli/output/console.h"
#include "cli/output/outputs.h"
#include "cli/output/verify_json.h"
#include "cli/output/verify_report.h"
#include "compare/ratings/verification/annex.h"
#include "compare/ratings/verification/reference_case.h"
#include "compare/ratings/verification/reference_cases.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

CVerification Verify(const CVerifyOptions& options) {
    CVerification verification{ratings::RunReferenceCases(), options.annex};
    if (options.annex) {
        ratings::CAnnexRun run = ratings::RunAnnex(*options.annex);
        std::move(run.cases.begin(), run.cases.end(), std::back_inserter(verification.cases));
        verification.annexErrors = std::move(run.errors);
    }
    return verification;
}

void ComplainOfAnnex(const CVerification& verification, CConsole& console) {
    for (const ratings::CAnnexError& error : verification.annexErrors) {
        console.Complain(cli_message::About(error.path, error.sentence));
    }
}

}  // namespace

CExitStatus StatusOf(std::span<const ratings::CReferenceCase> cases) {
    return ratings::CountChecks(cases).failed == 0 ? CExitStatus::Good : CExitStatus::BadVerdict;
}

CExitStatus RunVerify(const std::vector<std::string>& arguments, CConsole& console) {
    const CVerifyOptions options = ParseVerifyOptions(arguments);
    const CVerification verification = Verify(options);
    console.Print(options.isJson ? VerifyJson(verification) : VerifyReport(verification.cases));
    ComplainOfAnnex(verification, console);
    COutputs outputs(console);
    outputs.Finish();
    if (outputs.HasFailed()) return CExitStatus::Output;
    return verification.annexErrors.empty() ? StatusOf(verification.cases) : CExitStatus::Input;
}
