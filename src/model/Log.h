// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

namespace kestrel {

using LogSink = std::function<void(std::string_view sentence)>;

/// Writes one plain sentence and a line break to the application log (standard error). Thread-safe.
void writeLog(std::string_view sentence);

/// Replaces where log lines go and returns the former sink; an empty sink means standard error. For
/// tests.
LogSink setLogSink(LogSink sink);

} // namespace kestrel
