// SPDX-License-Identifier: MIT
#include "model/Log.h"

#include <cstdio>
#include <mutex>
#include <string>
#include <utility>

namespace kestrel {

namespace {

/// The sink and the lock that guards it.
struct LogState {
    std::mutex mutex;
    LogSink sink;
};

LogState& state() {
    static LogState instance;
    return instance;
}

} // namespace

void writeLog(std::string_view sentence) {
    LogState& log = state();
    const std::lock_guard lock(log.mutex);
    if (log.sink) {
        log.sink(sentence);
        return;
    }
    std::string line(sentence);
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

LogSink setLogSink(LogSink sink) {
    LogState& log = state();
    const std::lock_guard lock(log.mutex);
    return std::exchange(log.sink, std::move(sink));
}

} // namespace kestrel
