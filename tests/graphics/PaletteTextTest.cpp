// SPDX-License-Identifier: MIT
#include "graphics/PaletteText.h"

#include "chrcanvas/data/MasterColors.h"
#include "chrcanvas/data/NESPalette.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(PaletteText, IsWhatStandsInAProgram) {
    EXPECT_EQ(paletteText(*NESPalette::fromData("\x0F\x16\xA7\x30")), "$0F,$16,$A7,$30");
}

TEST(PaletteText, ComesBackWhole) {
    for (unsigned value = 0; value < 256; ++value) {
        NESPalette palette;
        palette.setEntry(2, masterColor(static_cast<std::uint8_t>(value)));
        EXPECT_EQ(paletteBytes(paletteText(palette), 4),
                  (Bytes{0, 0, static_cast<std::uint8_t>(value), 0}));
    }
}

TEST(PaletteText, MayComeFromALineOfAProgram) {
    const Bytes bytes{0x0F, 0x16, 0x27, 0x30};
    for (const char* text : {"$0f, $16, $27, $30", "  .db $0F,$16,$27,$30 ; title\n",
                             ".BYTE 0x0f 0X16\t$27\r\n$30", "$F,$16,$27,$30,"}) {
        EXPECT_EQ(paletteBytes(text, 4), bytes) << text;
    }
}

TEST(PaletteText, AnythingElseIsNone) {
    for (const char* text :
         {"", " ", "$0F,$16,$27", "$0F,$16,$27,$30,$01", "0F 16 27 30", "$0F,$16,$27,$130",
          "$0F,$16,$27,$", "$0F,$16,$27,$-1", "$0F,$16,$27,$3G", "0x,$1,$2,$3", ".db",
          ";$1,$2,$3,$4", ".dw $0F,$16,$27,$30", "\xC3\xA4$1,$2,$3,$4", "$0F$16$27$30"}) {
        EXPECT_EQ(paletteBytes(text, 4), std::nullopt) << text;
    }
    EXPECT_EQ(paletteBytes(std::string(1U << 20U, ','), 4), std::nullopt);
}

} // namespace
} // namespace kestrel::test
