// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>

namespace kestrel {

/// The index of a colour byte as two hexadecimal digits: "0F".
QString indexDigits(std::uint8_t key);

/// The index as it is written in a program, and the whole byte where that differs: "$16", or "$16
/// (stored as $56)".
QString indexText(std::uint8_t key);

/// A remark on a colour that is one of the blacks; empty for all others.
QString colorNote(std::uint8_t key);

/// Whether a game should not use the colour: $0D upsets televisions (nesdev wiki, "PPU palettes").
bool isToBeAvoided(std::uint8_t key);

} // namespace kestrel
