// SPDX-License-Identifier: MIT
#pragma once

#include "model/FileDescriptor.h"

#include <sys/types.h>
#include <vector>

namespace kestrel {

/// The processes that a child process started, they and theirs, also those that left its process
/// group. A process whose parent has ended belongs to nobody and is not found. Finds nothing on
/// systems other than Linux, and without /proc.
class Descendants {
public:
    /// `child` must stay a child of this program that was not waited for.
    explicit Descendants(pid_t child);

    /// Adds those that are there now.
    void find();

    /// Sends a signal to those that were found, except to the child and its process group.
    void send(int signal) const;

private:
    struct Member {
        pid_t process;
        bool isInGroup;
        FileDescriptor handle; ///< never means another process, unlike the number; none for `child`
    };
    bool isThere(const Member& member) const;
    void addChildrenOf(std::size_t parent, const std::vector<pid_t>& children);

    pid_t m_child;
    std::vector<Member> m_members; ///< the child first
};

} // namespace kestrel
