// SPDX-License-Identifier: MIT
#pragma once

#include "facts/ProgramFacts.h"

#include <QObject>

#include <filesystem>
#include <memory>

namespace kestrel {

/// What the window knows about the program that it built last. Whoever shows some of it watches
/// changed(). It is of the last build that made an image and could be looked at: later edits, and
/// builds that failed, leave it.
class ProgramKnowledge : public QObject {
    Q_OBJECT

public:
    using Facts = std::shared_ptr<const ProgramFacts>;

    using QObject::QObject;

    /// nullptr when nothing is known.
    const Facts& facts() const { return m_facts; }
    /// The facts that facts() replaced; nullptr when those were of another image, or none.
    const Facts& before() const { return m_before; }
    /// The image that facts() tells of; empty when nothing is known.
    const std::filesystem::path& image() const { return m_image; }

    /// Whether a later image was made that could not be looked at in time: the facts, if there are
    /// any, are not of that one.
    bool gaveUp() const { return m_gaveUp; }

    void set(const std::filesystem::path& image, Facts facts);

    /// This image was made, but looking at it took too long. Facts of another image are forgotten.
    void giveUp(const std::filesystem::path& image);

    /// Forgets everything, as for another project.
    void clear();

Q_SIGNALS:
    void changed();

private:
    Facts m_facts;
    Facts m_before;
    std::filesystem::path m_image;
    bool m_gaveUp = false;
};

} // namespace kestrel
