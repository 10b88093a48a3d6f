// SPDX-License-Identifier: MIT
#pragma once

#include "model/Log.h"

#include <mutex>
#include <string>
#include <vector>

namespace kestrel::test {

/// Collects the application log's lines instead of printing them, as long as the object lives.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    std::vector<std::string> lines() const;

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
    LogSink m_former;
};

} // namespace kestrel::test
