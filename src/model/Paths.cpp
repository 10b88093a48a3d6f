// SPDX-License-Identifier: MIT
#include "model/Paths.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <pwd.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace kestrel {

namespace {

constexpr char Separator = '/';

std::string withoutTrailingSeparators(std::string text) {
    while (text.size() > 1 && text.back() == Separator) {
        text.pop_back();
    }
    return text;
}

/// The home folder in the account database of the current user; empty when there is none.
std::string accountHome() {
    std::vector<char> buffer(1024);
    passwd entry{};
    passwd* found = nullptr;
    while (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) == ERANGE) {
        buffer.resize(buffer.size() * 2);
    }
    return found != nullptr && found->pw_dir != nullptr ? found->pw_dir : "";
}

} // namespace

std::filesystem::path joined(const std::filesystem::path& base, std::string_view appended) {
    while (!appended.empty() && appended.front() == Separator) {
        appended.remove_prefix(1);
    }
    if (appended.empty()) {
        return {pathText(base)};
    }
    std::string text = withoutTrailingSeparators(base.native());
    if (!text.empty() && text.back() != Separator) {
        text += Separator;
    }
    text += appended;
    return {text};
}

std::string pathText(const std::filesystem::path& path) {
    return withoutTrailingSeparators(path.native());
}

std::filesystem::path homeFolder() {
    const char* const home = std::getenv("HOME");
    if (home != nullptr && *home != '\0') {
        return {home};
    }
    return {accountHome()};
}

bool isUsablePath(const std::filesystem::path& path) {
    return !path.empty() && path.native().find('\0') == std::string::npos;
}

bool existsAt(const std::filesystem::path& path) {
    std::error_code error;
    return isUsablePath(path) && std::filesystem::exists(path, error) && !error;
}

} // namespace kestrel
