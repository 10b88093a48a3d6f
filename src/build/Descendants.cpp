// SPDX-License-Identifier: MIT
#include "build/Descendants.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#ifdef __linux__
#include <dirent.h>
#include <memory>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace kestrel {

namespace {

#if defined(__linux__) && defined(SYS_pidfd_open) && defined(SYS_pidfd_send_signal)

struct Status {
    pid_t parent = 0;
    pid_t group = 0;
};

/// Parent and process group of a process; nothing when there is none.
std::optional<Status> statusOf(pid_t process) {
    const FileDescriptor file = openFile("/proc/" + std::to_string(process) + "/stat", O_RDONLY);
    std::string text(1024, '\0');
    const auto size = file.isOpen() ? file.read(text.data(), text.size()) : std::nullopt;
    text.resize(size.value_or(0));
    // "42 (name) S 1 42 ...": a name may hold any character.
    const std::size_t end = text.rfind(')');
    if (end == std::string::npos || text.size() < end + 4) {
        return std::nullopt;
    }
    Status status;
    const char* const last = text.data() + text.size();
    const auto parent = std::from_chars(text.data() + end + 4, last, status.parent);
    if (parent.ec != std::errc() || parent.ptr == last ||
        std::from_chars(parent.ptr + 1, last, status.group).ec != std::errc()) {
        return std::nullopt;
    }
    return status;
}

/// All processes by their parents.
std::map<pid_t, std::vector<pid_t>> allByParent() {
    std::map<pid_t, std::vector<pid_t>> result;
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir("/proc"), ::closedir);
    while (const dirent* entry = folder ? ::readdir(folder.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        pid_t process = 0;
        if (std::from_chars(name.data(), name.data() + name.size(), process).ec == std::errc()) {
            if (const auto status = statusOf(process)) {
                result[status->parent].push_back(process);
            }
        }
    }
    return result;
}

FileDescriptor handleOf(pid_t process) {
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

bool sendTo(const FileDescriptor& handle, int signal) {
    return ::syscall(SYS_pidfd_send_signal, handle.get(), signal, nullptr, 0) == 0 ||
           errno == EPERM;
}

#else

struct Status {
    pid_t parent = 0;
    pid_t group = 0;
};

std::optional<Status> statusOf(pid_t /*process*/) {
    return std::nullopt;
}

std::map<pid_t, std::vector<pid_t>> allByParent() {
    return {};
}

FileDescriptor handleOf(pid_t /*process*/) {
    return {};
}

bool sendTo(const FileDescriptor& /*handle*/, int /*signal*/) {
    return false;
}

#endif

} // namespace

Descendants::Descendants(pid_t child)
    : m_child(child) {
    m_members.push_back({child, true, {}});
}

void Descendants::find() {
    const auto all = allByParent();
    for (std::size_t i = 0; i < m_members.size(); ++i) { // grows meanwhile
        const auto children = all.find(m_members[i].process);
        if (children != all.end()) {
            addChildrenOf(i, children->second);
        }
    }
}

void Descendants::send(int signal) const {
    for (const Member& member : m_members) {
        if (!member.isInGroup) {
            sendTo(member.handle, signal);
        }
    }
}

bool Descendants::isThere(const Member& member) const {
    return member.process == m_child || sendTo(member.handle, 0);
}

void Descendants::addChildrenOf(std::size_t parent, const std::vector<pid_t>& children) {
    for (const pid_t process : children) {
        const bool isKnown = std::ranges::any_of(
            m_members, [&](const Member& member) { return member.process == process; });
        Member member{process, false, isKnown ? FileDescriptor() : handleOf(process)};
        // Only with both still there after the look do the numbers mean these two.
        const auto status = member.handle.isOpen() ? statusOf(process) : std::nullopt;
        if (status && status->parent == m_members[parent].process && isThere(member) &&
            isThere(m_members[parent])) {
            member.isInGroup = status->group == m_child;
            m_members.push_back(std::move(member));
        }
    }
}

} // namespace kestrel
