// SPDX-License-Identifier: MIT
#pragma once

#include "build/Place.h"
#include "model/ProjectItem.h"

#include <QObject>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace kestrel {

/// The places that the commands for the next and the previous one walk through. The window has one
/// list: whoever fills it last is who is walked through.
class PlaceList : public QObject {
    Q_OBJECT

public:
    /// What the places are.
    enum class Content { problems, uses, found };

    /// So many places are kept at most; there may be millions.
    static constexpr std::size_t Limit = 10'000;

    using QObject::QObject;

    /// Replaces all places. `project` is the one whose sources they are in. None is current.
    void fill(Content content, const std::shared_ptr<ProjectItem>& project,
              std::vector<Place> places);

    /// Adds places at the end when the list has this content; otherwise nothing happens.
    void add(Content content, std::vector<Place> places);

    /// Empties the list when it has this content.
    void clear(Content content);

    Content content() const { return m_content; }
    std::shared_ptr<ProjectItem> project() const { return m_project.lock(); }
    const std::vector<Place>& places() const { return m_places; }

    /// The current place's number; nothing before the first step.
    std::optional<std::size_t> currentIndex() const { return m_current; }
    const Place* current() const;

    /// Makes the following or the preceding place the current one, from the last one to the first
    /// and back. The first step goes to the first error where there is one, else to the first
    /// place; backwards to the last. False when there are no places.
    bool next();
    bool previous();

    /// Makes this place the current one; nothing happens when there is none of this number.
    void setCurrentIndex(std::size_t index);

Q_SIGNALS:
    /// The places are other ones.
    void filled();
    /// There are more places from `first` on.
    void added(std::size_t first);
    /// Another place, or none, is the current one.
    void currentChanged();

private:
    void moveTo(std::optional<std::size_t> index);

    Content m_content = Content::problems;
    std::weak_ptr<ProjectItem> m_project;
    std::vector<Place> m_places;
    std::optional<std::size_t> m_current;
};

} // namespace kestrel
