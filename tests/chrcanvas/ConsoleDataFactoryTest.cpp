#include "chrcanvas/ConsoleDataFactory.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrel::test {
namespace {

TEST(ConsoleDataFactory, BlankTilesForTheNesAreOneBankOfZeroBytes) {
    const auto tiles = ConsoleDataFactory::generate(ConsoleType::nes);
    ASSERT_TRUE(tiles.has_value());
    EXPECT_EQ(tiles->tileCount(), 512U);
    EXPECT_EQ(tiles->toData(), std::string(8192, '\0'));
}

TEST(ConsoleDataFactory, AConsoleThatIsNotKnownHasNoTiles) {
    EXPECT_FALSE(ConsoleDataFactory::generate(static_cast<ConsoleType>(7)).has_value());
}

TEST(TileData, HasSixteenBytesATile) {
    EXPECT_EQ(TileData(0).toData(), std::string());
    EXPECT_EQ(TileData(3).toData(), std::string(48, '\0'));
    EXPECT_EQ(TileData(3).tileCount(), 3U);
}

} // namespace
} // namespace kestrel::test
