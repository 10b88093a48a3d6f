// SPDX-License-Identifier: MIT
#include "chrcanvas/data/GeneralNESColorPalette.h"
#include "chrcanvas/data/MasterColors.h"
#include "chrcanvas/data/NESPalette.h"
#include "chrcanvas/data/PaletteFactory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

std::vector<std::uint8_t> keysOf(const Palettes& palettes) {
    std::vector<std::uint8_t> keys;
    for (const auto& palette : palettes) {
        for (std::size_t index = 0; index < palette->count(); ++index) {
            keys.push_back(palette->entry(index).key);
        }
    }
    return keys;
}

TEST(MasterColors, AreTheOnesOfAKnownConsole) {
    EXPECT_EQ(masterColor(0x00).color, (RgbColor{0x62, 0x62, 0x62}));
    EXPECT_EQ(masterColor(0x0D).color, (RgbColor{0, 0, 0}));
    EXPECT_EQ(masterColor(0x16).color, (RgbColor{0xBC, 0x3A, 0x00}));
    EXPECT_EQ(masterColor(0x2A).color, (RgbColor{0x2C, 0xF4, 0x57}));
    EXPECT_EQ(masterColor(0x20).color, masterColor(0x30).color);
    EXPECT_EQ(masterColor(0x3D).color, (RgbColor{0xB8, 0xB8, 0xB8}));
    EXPECT_EQ(masterColor(0x3F).color, (RgbColor{0, 0, 0}));
}

TEST(MasterColors, TheLowSixBitsOfAByteDecideItsColour) {
    for (unsigned key = 0; key < 256; ++key) {
        const auto byte = static_cast<std::uint8_t>(key);
        EXPECT_EQ(masterColor(byte).key, byte);
        EXPECT_EQ(masterColor(byte).color, masterColor(byte % 64).color) << key;
    }
}

TEST(NESPalette, HoldsFourEntriesOfIndexZeroAtFirst) {
    const NESPalette palette;
    ASSERT_EQ(palette.count(), 4U);
    for (std::size_t index = 0; index < 4; ++index) {
        EXPECT_EQ(palette.entry(index), masterColor(0));
    }
}

TEST(NESPalette, TakesExactlyFourBytes) {
    for (const std::size_t size : {0U, 1U, 3U, 5U, 8U, 32U}) {
        EXPECT_EQ(NESPalette::fromData(std::string(size, '\x01')), nullptr) << size;
    }
    const auto palette = NESPalette::fromData("\x30\x3D\x01\x0D");
    ASSERT_NE(palette, nullptr);
    EXPECT_EQ(palette->entry(0), masterColor(0x30));
    EXPECT_EQ(palette->entry(3), masterColor(0x0D));
}

TEST(NESPalette, ChangesOneEntryAndRefusesOneThatIsNotThere) {
    NESPalette palette;
    EXPECT_TRUE(palette.setEntry(3, masterColor(0x16)));
    EXPECT_EQ(palette.entry(3), masterColor(0x16));
    EXPECT_EQ(palette.entry(2), masterColor(0));
    EXPECT_FALSE(palette.setEntry(4, masterColor(0x16)));
    EXPECT_EQ(palette.entry(4), masterColor(0x0F));
}

TEST(GeneralNESColorPalette, HoldsAllMasterColoursInIndexOrderAndCannotBeChanged) {
    GeneralNESColorPalette palette;
    ASSERT_EQ(palette.count(), 64U);
    for (unsigned index = 0; index < 64; ++index) {
        EXPECT_EQ(palette.entry(index), masterColor(static_cast<std::uint8_t>(index)));
    }
    EXPECT_FALSE(palette.setEntry(0, masterColor(0x16)));
    EXPECT_EQ(palette.entry(0), masterColor(0));
    EXPECT_EQ(palette.entry(64), masterColor(0x0F));
}

TEST(PaletteFactory, ReadsEightPalettesOfFourFromThirtyTwoBytes) {
    std::string data(32, '\0');
    std::iota(data.begin(), data.end(), '\0');
    const auto read = PaletteFactory::generate(data);
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->first, PaletteType::nes);
    ASSERT_EQ(read->second.size(), 8U);
    for (std::uint8_t byte = 0; byte < 32; ++byte) {
        const auto palette = std::dynamic_pointer_cast<NESPalette>(read->second[byte / 4U]);
        ASSERT_NE(palette, nullptr);
        EXPECT_EQ(palette->entry(byte % 4U), masterColor(byte));
    }
}

TEST(PaletteFactory, AFileOfZeroHasEightPalettesOfIndexZero) {
    const auto read = PaletteFactory::generate(std::string(32, '\0'));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(keysOf(read->second), std::vector<std::uint8_t>(32, 0));
}

TEST(PaletteFactory, RefusesEveryOtherSize) {
    for (std::size_t size = 0; size <= 1024; ++size) {
        EXPECT_EQ(PaletteFactory::generate(std::string(size, '\x0F')).has_value(), size == 32)
            << size;
    }
    EXPECT_FALSE(PaletteFactory::generate(std::string(32U << 20U, '\0')).has_value());
}

TEST(PaletteFactory, ConvertsExactlyThirtyTwoBytesOfAKnownKind) {
    for (std::size_t size = 0; size <= 64; ++size) {
        const std::vector<std::uint8_t> array(size, 0x16);
        EXPECT_EQ(PaletteFactory::convert(array, PaletteType::nes).has_value(), size == 32) << size;
    }
    const std::vector<std::uint8_t> array(32, 0x16);
    EXPECT_EQ(PaletteFactory::convert(array, PaletteType::nes), std::string(32, '\x16'));
    EXPECT_FALSE(PaletteFactory::convert(array, static_cast<PaletteType>(5)).has_value());
}

TEST(PaletteFactory, EveryByteComesBackWholeUntilItIsChanged) {
    std::mt19937 random(20);
    std::uniform_int_distribution<int> bytes(0, 255);
    for (int round = 0; round < 200; ++round) {
        std::string data(32, '\0');
        for (char& byte : data) {
            byte = static_cast<char>(bytes(random));
        }
        const auto read = PaletteFactory::generate(data);
        ASSERT_TRUE(read.has_value());
        EXPECT_EQ(PaletteFactory::convert(keysOf(read->second), read->first), data);

        read->second[5]->setEntry(2, masterColor(0x11));
        data[22] = '\x11';
        EXPECT_EQ(PaletteFactory::convert(keysOf(read->second), read->first), data);
    }
}

} // namespace
} // namespace kestrel::test
