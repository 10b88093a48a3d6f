// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace nesasm {

/// The kinds of field that a value is written to.
enum class Field : std::uint8_t {
    byte,         ///< an item of .db
    word,         ///< an item of .dw
    immediate,    ///< the byte after an opcode
    zeroPage,     ///< a zero-page address, plain or indirect
    absolute,     ///< a 16-bit address
    jumpIndirect, ///< the address of the address in JMP [n]
    relative      ///< a branch's distance
};

/// Bytes that a field takes in the image.
constexpr std::uint32_t sizeOf(Field field) {
    switch (field) {
    case Field::word:
    case Field::absolute:
    case Field::jumpIndirect:
        return 2;
    case Field::byte:
    case Field::immediate:
    case Field::zeroPage:
    case Field::relative:
        break;
    }
    return 1;
}

/// True when `value` fits the field. `next` is the address after a branch.
constexpr bool fits(Field field, std::int32_t value, std::uint32_t next) {
    switch (field) {
    case Field::byte:
    case Field::immediate:
        return value >= -256 && value <= 255;
    case Field::zeroPage:
        return value >= 0 && value <= 0xFF;
    case Field::word:
    case Field::absolute:
    case Field::jumpIndirect:
        return value >= -32768 && value <= 65535;
    case Field::relative: {
        const std::int64_t distance = std::int64_t{value} - next;
        return distance >= -128 && distance <= 127;
    }
    }
    return false;
}

/// The bytes of the value in the field, low byte first; only the first sizeOf(field) count.
constexpr std::array<std::uint8_t, 2> encoded(Field field, std::int32_t value, std::uint32_t next) {
    const std::uint32_t bits = field == Field::relative ? static_cast<std::uint32_t>(value) - next
                                                        : static_cast<std::uint32_t>(value);
    return {static_cast<std::uint8_t>(bits & 0xFFU),
            static_cast<std::uint8_t>((bits >> 8U) & 0xFFU)};
}

/// Why a value does not fit the field, and what to do about it.
std::string misfitText(Field field, std::int32_t value, std::uint32_t next);

} // namespace nesasm
