// SPDX-License-Identifier: MIT
#include "support/LogCapture.h"

#include <utility>

namespace kestrel::test {

LogCapture::LogCapture() {
    m_former = setLogSink([this](std::string_view sentence) {
        const std::lock_guard lock(m_mutex);
        m_lines.emplace_back(sentence);
    });
}

LogCapture::~LogCapture() {
    setLogSink(std::move(m_former));
}

std::vector<std::string> LogCapture::lines() const {
    const std::lock_guard lock(m_mutex);
    return m_lines;
}

} // namespace kestrel::test
