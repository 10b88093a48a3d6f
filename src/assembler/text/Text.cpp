// SPDX-License-Identifier: MIT
#include "assembler/text/Text.h"

#include "assembler/text/Characters.h"

namespace nesasm {

namespace {

constexpr std::string_view Replacement = "\xEF\xBF\xBD";

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

/// The length of the valid UTF-8 sequence at the start of `bytes`, 0 when there is none
/// (Unicode Standard, table 3-7 "Well-Formed UTF-8 Byte Sequences").
std::size_t validLength(std::string_view bytes) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned first = at(0);
    if (first < 0x80U) {
        return 1;
    }
    const std::size_t length = first >= 0xF0U ? 4 : first >= 0xE0U ? 3 : 2;
    if (first < 0xC2U || first > 0xF4U || bytes.size() < length) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if (!isContinuation(at(i))) {
            return 0;
        }
    }
    const unsigned second = at(1);
    const bool wrong = (first == 0xE0U && second < 0xA0U) || (first == 0xEDU && second > 0x9FU) ||
                       (first == 0xF0U && second < 0x90U) || (first == 0xF4U && second > 0x8FU);
    return wrong ? 0 : length;
}

bool isControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1) {
        return first < 0x20U || first == 0x7FU;
    }
    return character.size() == 2 && first == 0xC2U &&
           static_cast<unsigned char>(character[1]) < 0xA0U;
}

} // namespace

std::string printable(std::string_view bytes, bool keepTabs) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t length = validLength(bytes);
        const std::string_view character = bytes.substr(0, length == 0 ? 1 : length);
        const bool tab = keepTabs && character == "\t";
        if (length == 0 || (isControl(character) && !tab)) {
            text += Replacement;
        } else {
            text += character;
        }
        bytes.remove_prefix(character.size());
    }
    return text;
}

std::size_t characterLength(std::string_view bytes) {
    const std::size_t length = validLength(bytes);
    return length == 0 ? 1 : length;
}

std::size_t countCharacters(std::string_view bytes) {
    std::size_t count = 0;
    for (; !bytes.empty(); ++count) {
        bytes.remove_prefix(characterLength(bytes));
    }
    return count;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lowered(a[i]) != lowered(b[i])) {
            return false;
        }
    }
    return true;
}

std::string folderOf(std::string_view path) {
    const std::size_t separator = path.rfind('/');
    if (separator == std::string_view::npos) {
        return {};
    }
    return std::string(separator == 0 ? "/" : path.substr(0, separator));
}

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty() && path.back() != '/') {
        path += '/';
    }
    return path.append(name);
}

std::string quoted(std::string_view text) {
    std::string result(1, '\'');
    return result.append(text).append(1, '\'');
}

std::string counted(std::size_t count, std::string_view noun) {
    std::string text = std::to_string(count);
    text.append(" ").append(noun);
    if (count != 1) {
        text += 's';
    }
    return text;
}

std::string hexText(unsigned value, unsigned digits) {
    std::string text;
    for (; value != 0 || digits != 0; value >>= 4U, digits -= digits != 0 ? 1 : 0) {
        text.insert(text.begin(), "0123456789ABCDEF"[value & 15U]);
    }
    return "$" + text;
}

std::string valueText(std::int32_t value) {
    std::string text = std::to_string(value);
    if (value > 9) {
        text += " (" + hexText(static_cast<unsigned>(value), 2) + ")";
    }
    return text;
}

} // namespace nesasm
