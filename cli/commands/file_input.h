#pragma once

#include "cli/output/console.h"
#include "signal/signal_loader.h"

#include <functional>
#include <string>

// Reading the file of a command. A failure prints the reader's sentence on standard error, then one that names the
// file, because not every reader's sentence does.

/// Reads the file at `path` as UDS-1992; a signal that is not loaded has the reader's sentence.
ks::CLoadedSignal LoadUdsOrComplain(const std::string& path, CConsole& console);

/// Calls `read`, which reads the file at `path` in its own way and throws CError if it cannot.
/// @return whether the file was read
bool ReadOrComplain(const std::string& path, CConsole& console, const std::function<void()>& read);

/// A measurement may exist only once.
/// @throws CUsageError when `output` leads to the file at `input`
void RefuseOverwriting(const std::string& output, const std::string& input);
