#include "cli/commands/file_input.h"

#include "cli/output/outputs.h"
#include "cli/usage_error.h"
#include "files/error.h"
#include "files/same_file.h"

std::optional<std::string> ComplaintOfReading(const std::string& path, CConsole& console,
                                              const std::function<void()>& read) {
    try {
        read();
        return std::nullopt;
    } catch (const ks::CError& error) {
        console.Complain(error.what());
        console.Complain("Could not be read: " + path);
        return error.what();
    }
}

void RefuseOverwriting(const std::string& output, const std::string& input) {
    if (output != kStandardOutput && ks::WouldReplace(output, input)) {
        throw CUsageError("An output would overwrite an input: " + output);
    }
}
