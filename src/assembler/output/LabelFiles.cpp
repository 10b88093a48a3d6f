// SPDX-License-Identifier: MIT
#include "assembler/output/LabelFiles.h"

#include "assembler/output/DebugLabels.h"
#include "assembler/output/ImageFile.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace nesasm {

namespace {

using Memory = DebugLabel::Memory;

/// The longest line that the reader of .nl files takes.
constexpr std::size_t LongestNlLine = 512;
constexpr std::uint32_t NlBankSize = 0x4000;

/// Of the header's byte 6: the RAM at $6000 to $7FFF keeps its contents (source: nesdev wiki,
/// "INES").
constexpr std::uint32_t BatteryFlag = 2;

std::string_view mlbType(Memory memory, const Header& header) {
    static constexpr std::array<std::string_view, 5> Types{
        "NesPrgRom", "NesChrRom", "NesInternalRam", "NesWorkRam", "NesMemory"};
    if (memory == Memory::workRam && (header.mirroring & BatteryFlag) != 0) {
        return "NesSaveRam";
    }
    return Types[static_cast<std::size_t>(memory)];
}

std::string hexDigits(std::uint32_t value, unsigned digits) {
    return hexText(value, digits).substr(1);
}

std::string alsoText(const DebugLabel& label) {
    std::string text;
    for (const std::string& name : label.also) {
        text.append(text.empty() ? "also " : ", ").append(name);
    }
    return text;
}

/// The comment of a label: the mark when it is the first one of its file, and its other names.
std::string commentOf(const DebugLabel& label, bool isFirst) {
    std::string text(isFirst ? LabelMark : "");
    const std::string also = alsoText(label);
    return text.append(isFirst && !also.empty() ? "; " : "").append(also);
}

std::string nlLine(const DebugLabel& label, bool isFirst) {
    std::string line = hexText(label.address, 4);
    if (label.size > 1) {
        line += "/" + hexDigits(label.size, 1);
    }
    line += "#" + label.name;
    line.resize(std::min(line.size(), LongestNlLine - 1 - (isFirst ? LabelMark.size() : 0)));
    line += "#" + commentOf(label, isFirst);
    line.resize(std::min(line.size(), LongestNlLine));
    return line += '\n';
}

} // namespace

std::string withEnding(const std::string& path, std::string_view ending) {
    const std::size_t slash = path.rfind('/');
    const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
    const std::size_t dot = path.rfind('.');
    // A dot at the start of the name is no ending.
    const bool hasEnding = dot != std::string::npos && dot > name;
    std::string result = hasEnding ? path.substr(0, dot) : path;
    return result.append(ending);
}

SideFile mlbFile(const FinishedProgram& program, const std::string& output) {
    SideFile file{withEnding(output, ".mlb"), {}};
    for (const DebugLabel& label : debugLabels(program)) {
        const bool isFirst = file.text.empty();
        file.text.append(mlbType(label.memory, program.image.header))
            .append(":")
            .append(hexDigits(label.offset, 4));
        if (label.size > 1) {
            file.text += "-" + hexDigits(label.offset + label.size - 1, 4);
        }
        file.text += ":" + label.name;
        if (isFirst || !label.also.empty()) {
            file.text += ":" + commentOf(label, isFirst);
        }
        file.text += '\n';
    }
    return file;
}

std::vector<std::string> nlPaths(const std::string& output, std::uint32_t banks) {
    std::vector<std::string> paths{output + ".ram.nl"};
    for (std::uint32_t bank = 0; bank < banks; ++bank) {
        paths.push_back(output + "." + hexDigits(bank, 1) + ".nl");
    }
    return paths;
}

std::vector<SideFile> nlFiles(const FinishedProgram& program, const std::string& output) {
    const std::uint32_t prgSize = prgBankCount(program.image) * BankSize;
    std::vector<SideFile> files;
    for (std::string& path : nlPaths(output, (prgSize + NlBankSize - 1) / NlBankSize)) {
        files.push_back({std::move(path), {}});
    }
    // A file may name an address only once; the same one in another 8 KiB of the same file comes
    // later and is left out.
    std::vector<std::map<std::uint32_t, bool>> taken(files.size());
    for (const DebugLabel& label : debugLabels(program)) {
        std::size_t index = 0;
        if (label.memory == Memory::prgRom) {
            index = 1 + label.offset / NlBankSize;
        } else if (label.memory == Memory::chrRom || label.address >= 0x8000) {
            continue;
        }
        if (taken[index].emplace(label.address, true).second) {
            files[index].text += nlLine(label, files[index].text.empty());
        }
    }
    for (SideFile& file : files) {
        if (file.text.empty()) {
            // A comment without a name, at the first address that the file is about.
            file.text =
                (&file == &files.front() ? "$0000##" : "$8000##") + std::string(LabelMark) + "\n";
        }
    }
    return files;
}

} // namespace nesasm
