// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Command.h"

#include <string_view>
#include <vector>

namespace kestrel {

/// The commands of one part of the window, in their order, and the actions made of them.
class CommandSet {
public:
    /// A command and its action, which is never null.
    struct Entry {
        Command command;
        QAction* action;
    };

    /// The actions become children of `owner`, which must outlive this.
    explicit CommandSet(QObject& owner);

    /// Adds a command; gives its action.
    QAction* add(Command command);

    const std::vector<Entry>& entries() const { return m_entries; }

    /// The action of the command with this id; null when there is none.
    QAction* action(std::string_view id) const;

private:
    QObject& m_owner;
    std::vector<Entry> m_entries;
};

} // namespace kestrel
