// SPDX-License-Identifier: MIT
#include "chrcanvas/data/ConsoleDataFactory.h"

namespace kestrel {

namespace {

constexpr std::size_t NesTileCount = 512;

} // namespace

std::optional<std::pair<ConsoleType, TileData>>
ConsoleDataFactory::generate(const std::string& data) {
    if (data.empty() || data.size() > MaximumSize || data.size() % TileData::BytesPerTile != 0) {
        return std::nullopt;
    }
    return std::pair(ConsoleType::nes, TileData(data));
}

std::optional<TileData> ConsoleDataFactory::generate(ConsoleType type) {
    switch (type) {
    case ConsoleType::nes:
        return TileData(NesTileCount);
    }
    return std::nullopt;
}

} // namespace kestrel
