// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

namespace kestrel {

/// Receives the sentences of the application log.
using LogSink = std::function<void(std::string_view sentence)>;

/// Writes a sentence and a line break to the application log (standard error). Thread-safe.
void writeLog(std::string_view sentence);

/// Sets the sink and returns the former one; an empty sink means standard error. For tests.
LogSink setLogSink(LogSink sink);

} // namespace kestrel
