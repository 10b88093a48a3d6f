#include "chrcanvas/ConsoleDataFactory.h"

#include <cstddef>

namespace kestrel {

namespace {

constexpr std::size_t NesTileCount = 512;

} // namespace

std::optional<TileData> ConsoleDataFactory::generate(ConsoleType type) {
    switch (type) {
    case ConsoleType::nes:
        return TileData(NesTileCount);
    }
    return std::nullopt;
}

} // namespace kestrel
