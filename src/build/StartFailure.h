// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QProcess;

namespace kestrel {

/// Why a program could not be started, in the system's words. Of a script whose interpreter is the
/// reason, with the interpreter's name.
std::string reasonOf(const QProcess& process);

} // namespace kestrel
