// SPDX-License-Identifier: MIT
#include "assembler/reading/PcxReader.h"

#include <cstddef>

namespace nesasm {

namespace {

constexpr std::size_t HeaderSize = 128;
constexpr std::size_t TileSize = 16;

/// What a PCX file's header says of its picture.
struct Picture {
    std::size_t width = 0;
    std::size_t height = 0;
    std::size_t bytesPerLine = 0;
    bool isPacked = true;
};

std::size_t byteAt(std::string_view file, std::size_t index) {
    return static_cast<unsigned char>(file[index]);
}

std::size_t wordAt(std::string_view file, std::size_t index) {
    return byteAt(file, index) | (byteAt(file, index + 1) << 8U);
}

Problem readHeader(std::string_view file, Picture& picture) {
    if (file.size() < HeaderSize || byteAt(file, 0) != 10) {
        return "it is not a PCX picture";
    }
    if (byteAt(file, 3) != 8 || byteAt(file, 65) != 1) {
        return "only PCX pictures with 256 colours (8 bits in one plane) can be read";
    }
    if (byteAt(file, 2) > 1) {
        return "its compression is not supported";
    }
    picture.isPacked = byteAt(file, 2) == 1;
    const std::size_t left = wordAt(file, 4);
    const std::size_t top = wordAt(file, 6);
    const std::size_t right = wordAt(file, 8);
    const std::size_t bottom = wordAt(file, 10);
    if (right < left || bottom < top) {
        return "its dimensions are invalid";
    }
    picture.width = right - left + 1;
    picture.height = bottom - top + 1;
    picture.bytesPerLine = wordAt(file, 66);
    if (picture.bytesPerLine < picture.width) {
        return "its dimensions are invalid";
    }
    if (picture.width % 8 != 0 || picture.height % 8 != 0) {
        return "its width and height must be multiples of 8, but it is " +
               std::to_string(picture.width) + " x " + std::to_string(picture.height) + " pixels";
    }
    if (std::uint64_t{picture.bytesPerLine} * picture.height > MostPicturePixels) {
        return "it holds more tiles than an image can";
    }
    return {};
}

/// Unpacks all lines; a run may go on in the next line. False when the file ends too early.
bool unpack(std::string_view file, const Picture& picture, std::vector<std::uint8_t>& pixels) {
    const std::size_t total = picture.bytesPerLine * picture.height;
    pixels.reserve(total);
    for (std::size_t at = HeaderSize; pixels.size() < total;) {
        if (at >= file.size()) {
            return false;
        }
        const std::size_t byte = byteAt(file, at++);
        if (!picture.isPacked || byte < 0xC0U) {
            pixels.push_back(static_cast<std::uint8_t>(byte));
            continue;
        }
        if (at >= file.size()) {
            return false;
        }
        const auto value = static_cast<std::uint8_t>(byteAt(file, at++));
        for (std::size_t left = byte & 0x3FU; left != 0 && pixels.size() < total; --left) {
            pixels.push_back(value);
        }
    }
    return true;
}

void appendTile(const std::uint8_t* corner, std::size_t bytesPerLine,
                std::vector<std::uint8_t>& tiles) {
    const std::size_t first = tiles.size();
    tiles.resize(first + TileSize);
    for (std::size_t y = 0; y < 8; ++y) {
        unsigned low = 0;
        unsigned high = 0;
        for (std::size_t x = 0; x < 8; ++x) {
            const unsigned pixel = corner[y * bytesPerLine + x];
            low = (low << 1U) | (pixel & 1U);
            high = (high << 1U) | ((pixel >> 1U) & 1U);
        }
        tiles[first + y] = static_cast<std::uint8_t>(low);
        tiles[first + 8 + y] = static_cast<std::uint8_t>(high);
    }
}

} // namespace

Problem readPcxTiles(std::string_view file, std::vector<std::uint8_t>& tiles) {
    Picture picture;
    if (Problem problem = readHeader(file, picture)) {
        return problem;
    }
    std::vector<std::uint8_t> pixels;
    if (!unpack(file, picture, pixels)) {
        return "it ends before its last line";
    }
    for (std::size_t y = 0; y < picture.height; y += 8) {
        for (std::size_t x = 0; x < picture.width; x += 8) {
            appendTile(pixels.data() + y * picture.bytesPerLine + x, picture.bytesPerLine, tiles);
        }
    }
    return {};
}

} // namespace nesasm
