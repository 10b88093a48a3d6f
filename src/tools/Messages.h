// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrel {

/// A path or a name in quotes as a message shows it: a control character is written as an escape,
/// so that a name with a line break stays on one line and none can steer the terminal.
std::string shown(const std::filesystem::path& path);

/// Makes the standard streams safe to write to: a closed one is opened to nowhere, so that no file
/// opened later takes its place, and a reader that goes away does not end the program. Called
/// first.
void prepareStandardStreams();

/// Writes "kestrel-build: ", the sentence and a line break to standard error.
void complain(std::string_view sentence);

/// Writes the whole text to standard output. True also when the reader of a pipe went away: it
/// wants no more. False, with a complaint, for any other failure, such as a full disk.
bool printText(std::string_view text);

} // namespace kestrel
