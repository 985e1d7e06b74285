#include "cli/commands/file_input.h"

#include "cli/messages.h"
#include "cli/output/console.h"
#include "cli/output/outputs.h"
#include "cli/usage_error.h"
#include "files/error.h"
#include "files/messages.h"
#include "files/same_file.h"
#include "signal/formats/formats.h"
#include "signal/signal_loader.h"

#include <functional>
#include <new>
#include <string>

namespace {

void Complain(const std::string& path, const std::string& sentence, CConsole& console) {
    console.Complain(sentence);
    console.Complain(cli_message::NotRead(path));
}

}  // namespace

ks::CLoadedSignal LoadUdsOrComplain(const std::string& path, CConsole& console) {
    ks::CLoadedSignal loaded = ks::LoadSignalAs(ks::kUdsFormat, path);
    if (!loaded.IsLoaded()) Complain(path, loaded.complaints.front(), console);
    return loaded;
}

bool ReadOrComplain(const std::string& path, CConsole& console, const std::function<void()>& read) {
    std::string sentence;
    try {
        read();
        return true;
    } catch (const std::bad_alloc&) {
        sentence = ks::read_message::NoMemoryToRead(path);
    } catch (const ks::CError& error) {
        sentence = error.what();
    }
    Complain(path, sentence, console);
    return false;
}

void RefuseOverwriting(const std::string& output, const std::string& input) {
    if (output != kStandardOutput && ks::WouldReplace(output, input)) {
        throw CUsageError(cli_message::InputOverwritten(output));
    }
}
