// SPDX-License-Identifier: MIT
#include "editors/settings/RemovalHistory.h"

#include <utility>

namespace kestrel {

namespace {

void moveLast(std::vector<ListedFile>& from, std::vector<ListedFile>& to) {
    to.push_back(std::move(from.back()));
    from.pop_back();
}

} // namespace

void RemovalHistory::removed(ListedFile file) {
    m_removed.push_back(std::move(file));
    m_restored.clear();
}

std::optional<ListedFile> RemovalHistory::undo(NESBuildSettings& settings) {
    ListedFile file = m_removed.back();
    const auto place = putBackOnList(file, settings);
    if (!place) {
        return std::nullopt;
    }
    moveLast(m_removed, m_restored);
    file.place = *place;
    return file;
}

std::optional<ListedFile> RemovalHistory::redo(NESBuildSettings& settings) {
    const ListedFile file = m_restored.back();
    if (rowOf(*file.entry, *settings.listFor(file.kind)) < 0) {
        forget(*file.entry); // it went in another way
        return std::nullopt;
    }
    auto taken = takeOffList(file.entry, settings);
    if (taken) {
        moveLast(m_restored, m_removed);
    }
    return taken;
}

void RemovalHistory::forget(const ProjectItem& file) {
    for (std::vector<ListedFile>* files : {&m_removed, &m_restored}) {
        std::erase_if(*files,
                      [&](const ListedFile& each) { return isSameFile(file, *each.entry); });
    }
}

} // namespace kestrel
