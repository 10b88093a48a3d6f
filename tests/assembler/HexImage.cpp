// SPDX-License-Identifier: MIT
#include "assembler/HexImage.h"

#include <charconv>
#include <cstddef>
#include <cstdio>
#include <sstream>
#include <vector>

namespace kestrel::test {

namespace {

constexpr std::size_t HeaderSize = 16;
constexpr std::size_t BankSize = 8192;
constexpr std::size_t LargestImage = HeaderSize + 1024 * BankSize;

std::optional<std::size_t> number(std::string_view text, int base) {
    std::size_t value = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (fault != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

/// Adds the bytes that one word means ("A9", "00*16") to `bytes`.
bool addBytes(const std::string& word, std::string& bytes) {
    const std::size_t star = word.find('*');
    const std::string digits = word.substr(0, star);
    const auto value = number(digits, 16);
    const auto count = star == std::string::npos ? 1 : number(word.substr(star + 1), 10);
    if (digits.size() != 2 || !value || !count || *count > LargestImage) {
        return false;
    }
    bytes.append(*count, static_cast<char>(*value));
    return true;
}

std::string hex(char byte) {
    char text[4];
    std::snprintf(text, sizeof text, "%02X",
                  static_cast<unsigned>(static_cast<unsigned char>(byte)));
    return text;
}

/// Puts the bytes of one line "bank:offset:" or "header:" into the image.
bool placeLine(const std::string& place, const std::string& bytes, std::string& image) {
    std::size_t position = 4;
    if (place == "header:") {
        if (bytes.size() != 4) {
            return false;
        }
    } else {
        const std::size_t colon = place.find(':');
        if (colon == std::string::npos || place.back() != ':' || place.size() != colon + 6) {
            return false;
        }
        const auto bank = number(place.substr(0, colon), 10);
        const auto offset = number(place.substr(colon + 1, 4), 16);
        if (!bank || !offset || *offset >= BankSize || *offset + bytes.size() > BankSize ||
            *bank > 1023) {
            return false;
        }
        position = HeaderSize + *bank * BankSize + *offset;
    }
    if (position + bytes.size() > image.size()) {
        return false;
    }
    image.replace(position, bytes.size(), bytes);
    return true;
}

/// Describes the bytes of one bank, sixteen or one run a line.
void describeBank(std::string_view bytes, std::size_t bank, std::ostream& out) {
    for (std::size_t at = 0; at < bytes.size();) {
        if (bytes[at] == '\xFF') {
            ++at;
            continue;
        }
        char place[32];
        std::snprintf(place, sizeof place, "%zu:%04zX:", bank, at);
        out << place;
        for (int words = 0; words < 16 && at < bytes.size() && bytes[at] != '\xFF'; ++words) {
            std::size_t end = at;
            while (end < bytes.size() && bytes[end] == bytes[at]) {
                ++end;
            }
            const std::size_t run = end - at;
            out << ' ' << hex(bytes[at]);
            if (run >= 8) {
                out << '*' << run;
                at = end;
            } else {
                ++at;
            }
        }
        out << '\n';
    }
}

} // namespace

std::optional<std::string> HexImage::parse(std::string_view text, std::string& error) {
    std::istringstream lines{std::string(text)};
    std::string image;
    std::string line;
    for (int count = 1; std::getline(lines, line); ++count) {
        std::istringstream words(line.substr(0, line.find(';')));
        std::string first;
        std::string word;
        if (!(words >> first)) {
            continue;
        }
        bool good = true;
        if (first == "size" && image.empty()) {
            const auto size = words >> word ? number(word, 10) : std::nullopt;
            good = size && *size >= HeaderSize && *size <= LargestImage && !(words >> word);
            if (good) {
                image = std::string("NES\x1A") + std::string(12, '\0') +
                        std::string(*size - HeaderSize, '\xFF');
            }
        } else {
            std::string bytes;
            while (good && words >> word) {
                good = addBytes(word, bytes);
            }
            good = good && !image.empty() && !bytes.empty() && placeLine(first, bytes, image);
        }
        if (!good) {
            error = "line " + std::to_string(count) + " is not understood: " + line;
            return std::nullopt;
        }
    }
    if (image.empty()) {
        error = "the line \"size N\" is missing";
        return std::nullopt;
    }
    return image;
}

std::string HexImage::describe(std::string_view image) {
    std::ostringstream out;
    out << "size " << image.size() << '\n';
    const std::string_view magic = "NES\x1A";
    if (image.size() < HeaderSize || image.substr(0, 4) != magic ||
        image.substr(8, 8) != std::string(8, '\0')) {
        out << "; no header as expected:";
        for (const char byte : image.substr(0, HeaderSize)) {
            out << ' ' << hex(byte);
        }
        out << '\n';
    } else if (image.substr(4, 4) != std::string(4, '\0')) {
        out << "header: " << hex(image[4]) << ' ' << hex(image[5]) << ' ' << hex(image[6]) << ' '
            << hex(image[7]) << '\n';
    }
    for (std::size_t at = HeaderSize, bank = 0; at < image.size(); at += BankSize, ++bank) {
        describeBank(image.substr(at, BankSize), bank, out);
    }
    return out.str();
}

} // namespace kestrel::test
