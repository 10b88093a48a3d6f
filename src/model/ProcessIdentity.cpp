// SPDX-License-Identifier: MIT
#include "model/ProcessIdentity.h"

#include "model/FileReader.h"

#include <charconv>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace kestrel {

namespace {

/// When a process started; nothing when there is none of that number.
std::optional<std::uint64_t> startOf(std::int64_t number) {
    const auto status = readFile("/proc/" + std::to_string(number) + "/stat");
    if (!status) {
        return std::nullopt;
    }
    // The second field is the program's name in parentheses, which may hold anything. The start is
    // the twenty-second field, so the twentieth behind the name.
    constexpr int FieldsBetween = 20;
    const std::size_t name = status->rfind(')');
    if (name == std::string::npos) {
        return std::nullopt;
    }
    std::string_view rest = std::string_view(*status).substr(name + 1);
    for (int field = 0; field < FieldsBetween; ++field) {
        const std::size_t blank = rest.find(' ');
        if (blank == std::string_view::npos) {
            return std::nullopt;
        }
        rest.remove_prefix(blank + 1);
    }
    std::uint64_t start = 0;
    const auto result = std::from_chars(rest.data(), rest.data() + rest.size(), start);
    return result.ec == std::errc() ? std::optional(start) : std::nullopt;
}

std::string presentSystem() {
    std::string text = readFile("/proc/sys/kernel/random/boot_id").value_or(std::string());
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text;
}

} // namespace

ProcessIdentity ProcessIdentity::current() {
    const std::int64_t number = ::getpid();
    return {number, startOf(number).value_or(0), presentSystem()};
}

bool ProcessIdentity::isRunning() const {
    return system == presentSystem() && startOf(number) == start;
}

} // namespace kestrel
