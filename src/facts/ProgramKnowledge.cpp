// SPDX-License-Identifier: MIT
#include "facts/ProgramKnowledge.h"

#include <utility>

namespace kestrel {

void ProgramKnowledge::set(const std::filesystem::path& image, Facts facts) {
    m_before = image == m_image ? std::exchange(m_facts, nullptr) : nullptr;
    m_facts = std::move(facts);
    m_image = image;
    Q_EMIT changed();
}

void ProgramKnowledge::clear() {
    if (!m_facts) {
        return;
    }
    m_facts = m_before = nullptr;
    m_image.clear();
    Q_EMIT changed();
}

} // namespace kestrel
