// SPDX-License-Identifier: MIT
#include "widgets/CommandSet.h"

#include <algorithm>
#include <utility>

namespace kestrel {

CommandSet::CommandSet(QObject& owner)
    : m_owner(owner) {}

QAction* CommandSet::add(Command command) {
    QAction* const action = makeAction(command, m_owner);
    m_entries.push_back({std::move(command), action});
    return action;
}

QAction* CommandSet::action(std::string_view id) const {
    const auto found = std::ranges::find_if(
        m_entries, [id](const Entry& entry) { return entry.command.id == id; });
    return found == m_entries.end() ? nullptr : found->action;
}

} // namespace kestrel
