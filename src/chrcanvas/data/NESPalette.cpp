// SPDX-License-Identifier: MIT
#include "chrcanvas/data/NESPalette.h"

#include "chrcanvas/data/MasterColors.h"

#include <cstdint>

namespace kestrel {

namespace {

constexpr std::uint8_t CanonicalBlack = 0x0F;

} // namespace

NESPalette::NESPalette() {
    m_entries.fill(masterColor(0));
}

std::shared_ptr<NESPalette> NESPalette::fromData(std::string_view data) {
    if (data.size() != ColorCount) {
        return nullptr;
    }
    auto palette = std::make_shared<NESPalette>();
    for (std::size_t index = 0; index < ColorCount; ++index) {
        palette->m_entries.at(index) = masterColor(static_cast<std::uint8_t>(data[index]));
    }
    return palette;
}

std::size_t NESPalette::count() const {
    return m_entries.size();
}

ColorEntry NESPalette::entry(std::size_t index) const {
    return index < m_entries.size() ? m_entries.at(index) : masterColor(CanonicalBlack);
}

bool NESPalette::setEntry(std::size_t index, const ColorEntry& entry) {
    if (index >= m_entries.size()) {
        return false;
    }
    m_entries.at(index) = entry;
    return true;
}

} // namespace kestrel
