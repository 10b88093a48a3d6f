#include "chrcanvas/TileData.h"

namespace kestrel {

TileData::TileData(std::size_t tileCount)
    : m_bytes(tileCount * BytesPerTile, '\0') {}

std::size_t TileData::tileCount() const {
    return m_bytes.size() / BytesPerTile;
}

std::optional<std::string> TileData::toData() const {
    return m_bytes;
}

} // namespace kestrel
