#include "cli/commands/verify_options.h"

#include "cli/arguments.h"
#include "cli/messages.h"
#include "cli/usage_error.h"

#include <string>
#include <vector>

CVerifyOptions ParseVerifyOptions(const std::vector<std::string>& arguments) {
    const CArguments given(kVerifyOptions, arguments);
    if (!given.Files().empty()) throw CUsageError(cli_message::NoFileToVerify(given.Files().front()));
    CVerifyOptions options{given.Has("--json"), given.Value(kAnnex.name)};
    if (options.annex && options.annex->empty()) throw CUsageError(cli_message::EmptyPath(kAnnex.name));
    return options;
}
