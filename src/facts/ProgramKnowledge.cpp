// SPDX-License-Identifier: MIT
#include "facts/ProgramKnowledge.h"

#include <utility>

namespace kestrel {

void ProgramKnowledge::set(const std::filesystem::path& image, Facts facts) {
    m_before = image == m_image ? std::exchange(m_facts, nullptr) : nullptr;
    m_facts = std::move(facts);
    m_image = image;
    m_gaveUp = false;
    Q_EMIT changed();
}

void ProgramKnowledge::giveUp(const std::filesystem::path& image) {
    if (image != m_image) {
        m_facts = m_before = nullptr;
    }
    m_image = image;
    m_gaveUp = true;
    Q_EMIT changed();
}

void ProgramKnowledge::clear() {
    if (!m_facts && !m_gaveUp) {
        return;
    }
    m_facts = m_before = nullptr;
    m_image.clear();
    m_gaveUp = false;
    Q_EMIT changed();
}

} // namespace kestrel
