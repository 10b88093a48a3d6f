// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QProcess;

namespace kestrel {

/// Why a program could not be started, in the system's words.
std::string reasonOf(const QProcess& process);

} // namespace kestrel
