#pragma once

#include <optional>
#include <string>
#include <vector>

// Other programs that this one starts.

/// The path (UTF-8) of the program `name` in the folder of the running one; empty when that folder is not known.
std::string SiblingProgram(const std::string& name);

/// Whether the file at `path` (UTF-8) exists and this user may execute it.
bool IsProgram(const std::string& path);

/// Runs a program, `command` being its path and its arguments (UTF-8), with the standard streams of this one, and waits
/// for its end.
/// @return its exit status; nothing when it could not be started or was ended from outside
std::optional<int> Execute(const std::vector<std::string>& command);
