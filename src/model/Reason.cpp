// SPDX-License-Identifier: MIT
#include "model/Reason.h"

#include "model/Log.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace kestrel {

std::string systemReason() {
    return std::generic_category().message(errno);
}

void giveReason(std::string* reason, std::string phrase) {
    if (reason != nullptr) {
        *reason = std::move(phrase);
    }
}

void logReason(const std::string& subject, const std::string& reason) {
    if (!reason.empty()) {
        writeLog(subject + ": " + reason);
    }
}

} // namespace kestrel
