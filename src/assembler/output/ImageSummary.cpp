// SPDX-License-Identifier: MIT
#include "assembler/output/ImageSummary.h"

#include "assembler/output/ImageFile.h"
#include "assembler/text/Json.h"
#include "assembler/text/Text.h"

#include <cstdint>

namespace nesasm {

namespace {

std::uint32_t percent(std::uint64_t part, std::uint64_t whole) {
    return whole == 0 ? 0 : static_cast<std::uint32_t>(part * 100 / whole);
}

} // namespace

std::string summaryLine(const std::string& path, const Image& image, bool isJson) {
    const std::uint32_t banks = image.bankCount();
    const std::uint32_t mapper = image.header.mapper;
    const std::uint32_t prg = prgBankCount(image);
    std::uint64_t used = 0;
    for (std::uint32_t bank = 0; bank < prg; ++bank) {
        used += image.bytesWritten(bank);
    }
    const std::size_t size = ImageHeaderSize + std::size_t{banks} * BankSize;
    const std::string text = printable(path) + ": " + std::to_string(size) + " bytes, mapper " +
                             std::to_string(mapper) + ", PRG " + std::to_string(prg) +
                             " x 8 KiB banks (" +
                             std::to_string(percent(used, std::uint64_t{prg} * BankSize)) +
                             " % used), CHR " + std::to_string(banks - prg) + " x 8 KiB";
    if (!isJson) {
        return text + "\n";
    }
    JsonObject object;
    object.addText("type", "image").addText("text", text).addText("file", path);
    object.addNumber("bytes", size).addNumber("mapper", mapper).addNumber("prgBanks", prg);
    object.addNumber("prgBytesUsed", used).addNumber("chrBanks", banks - prg);
    return object.json() + "\n";
}

std::string bankLines(const Image& image, bool isJson) {
    std::string lines;
    for (std::uint32_t bank = 0; bank < image.bankCount(); ++bank) {
        const std::uint32_t used = image.bytesWritten(bank);
        const std::string text = "bank " + std::to_string(bank) + ": " + std::to_string(used) +
                                 " of " + std::to_string(BankSize) + " bytes (" +
                                 std::to_string(percent(used, BankSize)) + " %)";
        if (isJson) {
            JsonObject object;
            object.addText("type", "bank").addText("text", text).addNumber("bank", bank);
            lines += object.addNumber("bytesUsed", used).json();
        } else {
            lines += text;
        }
        lines += '\n';
    }
    return lines;
}

} // namespace nesasm
