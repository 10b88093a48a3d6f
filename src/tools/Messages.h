// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace kestrel {

/// Makes the standard streams safe to write to. To be called first: opens closed ones to /dev/null,
/// so that no later file gets their descriptors, and ignores SIGPIPE.
void prepareStandardStreams();

/// Writes "kestrel-build: ", the sentence and a line break to standard error.
void complain(std::string_view sentence);

/// Writes text to standard output. True also when the reader of a pipe has closed it. False, with a
/// message to the user, for any other failure, such as a full disk.
bool printText(std::string_view text);

} // namespace kestrel
