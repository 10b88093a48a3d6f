// SPDX-License-Identifier: MIT
#include "chrcanvas/data/ConsoleDataFactory.h"

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

TEST(ConsoleDataFactory, TakesAnyWholeNumberOfTilesAndGivesItsBytesBack) {
    for (const std::size_t size : {std::size_t{16}, std::size_t{32}, std::size_t{8192},
                                   std::size_t{255 * 8192}, ConsoleDataFactory::MaximumSize}) {
        std::string bytes(size, '\x5A');
        bytes.front() = '\x01';
        bytes.back() = '\x80';
        const auto generated = ConsoleDataFactory::generate(bytes);
        ASSERT_TRUE(generated.has_value()) << size;
        EXPECT_EQ(generated->first, ConsoleType::nes);
        EXPECT_EQ(generated->second.tileCount(), size / 16);
        EXPECT_EQ(generated->second.toData(), bytes) << size;
    }
}

TEST(ConsoleDataFactory, TakesNothingElse) {
    for (std::size_t size = 0; size < 64; ++size) {
        EXPECT_EQ(ConsoleDataFactory::generate(std::string(size, 'x')).has_value(),
                  size != 0 && size % 16 == 0)
            << size;
    }
    for (const std::size_t size :
         {std::size_t{8191}, std::size_t{8193}, ConsoleDataFactory::MaximumSize - 1,
          ConsoleDataFactory::MaximumSize + 1, ConsoleDataFactory::MaximumSize + 16}) {
        EXPECT_FALSE(ConsoleDataFactory::generate(std::string(size, 'x')).has_value()) << size;
    }
}

TEST(TileData, HasSixteenBytesATile) {
    EXPECT_EQ(TileData(std::size_t{0}).toData(), std::string());
    EXPECT_EQ(TileData(3).toData(), std::string(48, '\0'));
    EXPECT_EQ(TileData(3).tileCount(), 3U);
}

} // namespace
} // namespace kestrel::test
