// SPDX-License-Identifier: MIT
#include "assembler/language/Cycles.h"

#include <gtest/gtest.h>

#include <map>

namespace nesasm {

namespace {

TEST(Cycles, AreThoseOfTheManual) {
    const std::map<unsigned, std::string> expected{
        {0x00, "7"},  {0x40, "6"}, {0x60, "6"},  {0x48, "3"}, {0x68, "4"},  {0xEA, "2"},
        {0x0A, "2"},  {0xA9, "2"}, {0xA5, "3"},  {0xB5, "4"}, {0xAD, "4"},  {0xBD, "4+"},
        {0xB9, "4+"}, {0xA1, "6"}, {0xB1, "5+"}, {0x85, "3"}, {0x9D, "5"},  {0x99, "5"},
        {0x91, "6"},  {0xE6, "5"}, {0xF6, "6"},  {0xEE, "6"}, {0xFE, "7"},  {0x4C, "3"},
        {0x6C, "5"},  {0x20, "6"}, {0xD0, "2+"}, {0xB6, "4"}, {0xBE, "4+"}, {0x2C, "4"},
        {0x02, ""},   {0xFF, ""}};
    for (const auto& [opcode, text] : expected) {
        EXPECT_EQ(cyclesText(static_cast<std::uint8_t>(opcode)), text) << std::hex << opcode;
    }
}

} // namespace

} // namespace nesasm
