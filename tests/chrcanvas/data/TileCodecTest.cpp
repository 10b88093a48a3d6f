// SPDX-License-Identifier: MIT
#include "chrcanvas/data/TileCodec.h"

#include "chrcanvas/data/TileData.h"
#include "chrcanvas/data/TileRenderer.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

std::string randomBytes(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(count, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    return bytes;
}

/// The value of a pixel as the format's description puts it.
int describedPixel(unsigned low, unsigned high, int x) {
    const unsigned bit = 0x80U >> x;
    return ((low & bit) != 0 ? 1 : 0) + ((high & bit) != 0 ? 2 : 0);
}

TEST(TileCodec, DecodesAndEncodesEveryRow) {
    for (unsigned low = 0; low < 256; ++low) {
        for (unsigned high = 0; high < 256; ++high) {
            const RowPlanes planes{static_cast<std::uint8_t>(low), static_cast<std::uint8_t>(high)};
            const PixelRow row = decodeRow(planes);
            PixelRow described = 0;
            for (int x = 0; x < 8; ++x) {
                ASSERT_EQ(pixelInRow(row, x), describedPixel(low, high, x)) << low << ' ' << high;
                described |= static_cast<PixelRow>(describedPixel(low, high, x)) << (8 * x);
            }
            ASSERT_EQ(row, described) << low << ' ' << high;
            ASSERT_EQ(encodeRow(described), planes) << low << ' ' << high;
        }
    }
}

TEST(TileCodec, IgnoresAllButTheLowTwoBitsOfAValue) {
    EXPECT_EQ(encodeRow(0xFFFEFDFC07060504), (RowPlanes{0b01010101, 0b00110011}));
}

TEST(TileData, KeepsRandomBytesAsTheyAre) {
    for (const std::size_t size : {16U, 8192U, 12U * 1024U * 16U}) {
        const std::string bytes = randomBytes(size, static_cast<unsigned>(size));
        EXPECT_EQ(TileData(bytes).toData(), bytes);
    }
}

TEST(TileData, GivesAndSetsSinglePixels) {
    const std::string bytes = randomBytes(64, 5);
    TileData tiles(bytes);
    TileData rebuilt(4);
    for (std::size_t number = 0; number < 4; ++number) {
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 8; ++x) {
                const std::size_t at = number * 16 + static_cast<std::size_t>(y);
                const int expected = describedPixel(static_cast<std::uint8_t>(bytes[at]),
                                                    static_cast<std::uint8_t>(bytes[at + 8]), x);
                ASSERT_EQ(tiles.pixel(number, x, y), expected);
                rebuilt.setPixel(number, x, y, 3 - expected);
                rebuilt.setPixel(number, x, y, expected);
            }
        }
    }
    EXPECT_EQ(rebuilt.toData(), bytes);
}

TEST(TileData, KnowsWhichNumbersItHas) {
    const TileData tiles(20);
    EXPECT_TRUE(tiles.contains(0));
    EXPECT_TRUE(tiles.contains(19));
    EXPECT_FALSE(tiles.contains(20));
    EXPECT_FALSE(tiles.contains(-1));
}

TEST(TileRenderer, DrawsEachPixelOfARowEnlargedInItsColour) {
    const TileData tiles(randomBytes(16, 9));
    constexpr TileRenderer::Colors Colors = {0xFF112233, 0xFF445566, 0xFF778899, 0xFFAABBCC};
    TileRenderer renderer(Colors);
    for (const int zoom : {1, 2, 3, 7, 64, 1}) {
        renderer.set(Colors, zoom);
        EXPECT_EQ(renderer.zoom(), zoom);
        const auto width = static_cast<std::size_t>(8 * zoom);
        for (int y = 0; y < 8; ++y) {
            std::vector<std::uint32_t> line(width + 5, 0x01020304);
            renderer.drawRow(tiles.tile(0), y, line.data());
            for (std::size_t x = 0; x < line.size(); ++x) {
                const auto value =
                    static_cast<std::size_t>(tiles.pixel(0, static_cast<int>(x) / zoom % 8, y));
                ASSERT_EQ(line[x], x < width ? Colors[value] : 0x01020304U)
                    << "zoom " << zoom << " at " << x << ", " << y;
            }
        }
    }
}

TEST(TileRenderer, OtherColoursAreDrawnAtTheSameZoom) {
    const TileData tiles(std::string(16, '\xFF'));
    TileRenderer renderer({0, 1, 2, 3}, 2);
    renderer.set({4, 5, 6, 7}, 2);
    std::vector<std::uint32_t> line(16);
    renderer.drawRow(tiles.tile(0), 0, line.data());
    EXPECT_EQ(line, std::vector<std::uint32_t>(16, 7));
}

} // namespace
} // namespace kestrel::test
