// SPDX-License-Identifier: MIT
#include "build/ShownPath.h"

#include <string_view>

namespace kestrel {

std::string shown(const std::filesystem::path& path) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string result = "\"";
    for (const char character : path.native()) {
        const auto code = static_cast<unsigned char>(character);
        if (character == '\n') {
            result += "\\n";
        } else if (code < 0x20 || code == 0x7F) {
            result += {'\\', 'x', Digits[code >> 4U], Digits[code & 0xFU]};
        } else {
            result += character;
        }
    }
    return result + "\"";
}

} // namespace kestrel
