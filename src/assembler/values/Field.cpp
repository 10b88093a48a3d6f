// SPDX-License-Identifier: MIT
#include "assembler/values/Field.h"

#include "assembler/text/Text.h"

namespace nesasm {

namespace {

std::string branchText(std::int32_t target, std::uint32_t next) {
    const std::int64_t distance = std::int64_t{target} - next;
    const std::int64_t excess = distance < 0 ? -128 - distance : distance - 127;
    return "the branch is out of range by " + counted(static_cast<std::size_t>(excess), "byte") +
           " (its target is " + std::to_string(distance) +
           " bytes from the next instruction, -128 to 127 can be reached)";
}

} // namespace

std::string misfitText(Field field, std::int32_t value, std::uint32_t next) {
    switch (field) {
    case Field::byte:
        return "the value " + valueText(value) +
               " does not fit into a byte (-256 to 255) and was truncated";
    case Field::word:
        return "the value " + valueText(value) +
               " does not fit into a word (-32768 to 65535) and was truncated";
    case Field::immediate:
        return "the value " + valueText(value) + " does not fit into a byte (-256 to 255)" +
               (value > 0 ? "; leave out the # to use it as an address, or " : "; ") +
               "take one byte of it with #LOW() or #HIGH()";
    case Field::zeroPage:
        return "the address " + valueText(value) + " is not in the zero page ($00 to $FF)";
    case Field::absolute:
    case Field::jumpIndirect:
        return "the address " + valueText(value) + " does not fit into 16 bits (-32768 to 65535)";
    case Field::relative:
        return branchText(value, next);
    }
    return {};
}

} // namespace nesasm
