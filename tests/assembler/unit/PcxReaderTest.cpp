// SPDX-License-Identifier: MIT
#include "assembler/reading/PcxReader.h"

#include <gtest/gtest.h>

namespace nesasm {

namespace {

std::string header(unsigned width, unsigned height, unsigned bytesPerLine) {
    std::string file(128, '\0');
    const auto word = [&](std::size_t at, unsigned value) {
        file[at] = static_cast<char>(value & 0xFFU);
        file[at + 1] = static_cast<char>(value >> 8U);
    };
    file[0] = 10;
    file[1] = 5;
    file[2] = 1;
    file[3] = 8;
    word(8, width - 1);
    word(10, height - 1);
    file[65] = 1;
    word(66, bytesPerLine);
    return file;
}

/// Runs of one value, packed.
std::string run(unsigned count, unsigned value) {
    std::string packed;
    for (; count != 0; count -= std::min(count, 63U)) {
        packed += static_cast<char>(0xC0U | std::min(count, 63U));
        packed += static_cast<char>(value);
    }
    return packed;
}

TEST(PcxReader, RunsCrossLinesAndTilesGoRowByRow) {
    std::vector<std::uint8_t> tiles;
    // Two tiles side by side, 16 pixels a line: all 1, but the last line's right half is 6 (2
    // counts).
    ASSERT_EQ(readPcxTiles(header(16, 8, 16) + run(120, 1) + run(8, 6), tiles), std::nullopt);
    std::vector<std::uint8_t> expected(32, 0);
    std::fill_n(expected.begin(), 8, 0xFF);
    std::fill_n(expected.begin() + 16, 7, 0xFF);
    expected[31] = 0xFF;
    EXPECT_EQ(tiles, expected);
}

TEST(PcxReader, BytesBeyondTheWidthAreDropped) {
    std::vector<std::uint8_t> tiles;
    std::string lines;
    for (int i = 0; i < 8; ++i) {
        lines += run(8, 3) + run(2, 0);
    }
    ASSERT_EQ(readPcxTiles(header(8, 8, 10) + lines, tiles), std::nullopt);
    EXPECT_EQ(tiles, std::vector<std::uint8_t>(16, 0xFF));
}

TEST(PcxReader, WrongFilesAreRefused) {
    std::vector<std::uint8_t> tiles;
    EXPECT_EQ(readPcxTiles("", tiles), "it is not a PCX picture");
    EXPECT_EQ(readPcxTiles(std::string(128, 'x'), tiles), "it is not a PCX picture");
    EXPECT_EQ(readPcxTiles(header(16, 8, 16) + run(100, 1), tiles), "it ends before its last line");
    EXPECT_EQ(readPcxTiles(header(16, 8, 16) + "\xC5", tiles), "it ends before its last line");
    EXPECT_NE(readPcxTiles(header(12, 8, 12) + run(96, 1), tiles).value_or("").find("12 x 8"),
              std::string::npos);
    EXPECT_EQ(readPcxTiles(header(16, 8, 8), tiles), "its dimensions are invalid");
    EXPECT_EQ(readPcxTiles(header(65528, 65528, 65528), tiles),
              "it holds more tiles than an image can");
    std::string planes = header(8, 8, 8);
    planes[65] = 3;
    EXPECT_NE(readPcxTiles(planes, tiles).value_or("").find("256 colours"), std::string::npos);
    EXPECT_TRUE(tiles.empty());
}

} // namespace

} // namespace nesasm
