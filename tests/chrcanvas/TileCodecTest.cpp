#include "chrcanvas/TileCodec.h"

#include "chrcanvas/TileData.h"
#include "chrcanvas/TileRenderer.h"

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

TEST(TileRenderer, DrawsEachPixelAsASquareOfItsColour) {
    const TileData tiles(randomBytes(16, 9));
    const TileRenderer renderer({0xFF112233, 0xFF445566, 0xFF778899, 0xFFAABBCC});
    for (const int zoom : {1, 2, 3, 7}) {
        const auto side = static_cast<std::size_t>(8 * zoom);
        const std::size_t stride = side + 3;
        std::vector<std::uint32_t> image(stride * (side + 1), 0x01020304);
        renderer.draw(tiles.tile(0), zoom, image.data(), stride);
        for (std::size_t y = 0; y < side + 1; ++y) {
            for (std::size_t x = 0; x < stride; ++x) {
                const bool inside = x < side && y < side;
                const auto value = static_cast<std::size_t>(
                    tiles.pixel(0, static_cast<int>(x) / zoom % 8, static_cast<int>(y) / zoom % 8));
                ASSERT_EQ(image[y * stride + x], inside ? renderer.colors()[value] : 0x01020304U)
                    << "zoom " << zoom << " at " << x << ", " << y;
            }
        }
    }
}

} // namespace
} // namespace kestrel::test
