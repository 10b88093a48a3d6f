// SPDX-License-Identifier: MIT
#include "navigation/container/PlaceList.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace kestrel {

void PlaceList::fill(Content content, const std::shared_ptr<ProjectItem>& project,
                     std::vector<Place> places) {
    m_content = content;
    m_project = project;
    m_places = std::move(places);
    m_places.resize(std::min(m_places.size(), Limit));
    m_current.reset();
    Q_EMIT filled();
    Q_EMIT currentChanged();
}

void PlaceList::add(Content content, std::vector<Place> places) {
    const std::size_t first = m_places.size();
    const std::size_t taken = std::min(places.size(), Limit - first);
    if (content != m_content || taken == 0) {
        return;
    }
    std::move(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(taken),
              std::back_inserter(m_places));
    Q_EMIT added(first);
}

void PlaceList::clear(Content content) {
    if (content == m_content && !m_places.empty()) {
        fill(content, m_project.lock(), {});
    }
}

const Place* PlaceList::current() const {
    return m_current ? &m_places[*m_current] : nullptr;
}

bool PlaceList::next() {
    if (m_places.empty()) {
        return false;
    }
    if (m_current) {
        moveTo((*m_current + 1) % m_places.size());
        return true;
    }
    const auto error = std::ranges::find(m_places, Place::Kind::error, &Place::kind);
    moveTo(error == m_places.end() ? 0 : static_cast<std::size_t>(error - m_places.begin()));
    return true;
}

bool PlaceList::previous() {
    if (m_places.empty()) {
        return false;
    }
    const std::size_t following = m_current.value_or(0);
    moveTo((following == 0 ? m_places.size() : following) - 1);
    return true;
}

void PlaceList::setCurrentIndex(std::size_t index) {
    if (index < m_places.size()) {
        moveTo(index);
    }
}

void PlaceList::moveTo(std::optional<std::size_t> index) {
    if (m_current != index) {
        m_current = index;
        Q_EMIT currentChanged();
    }
}

} // namespace kestrel
