// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/FinishedProgram.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nesasm {

/// A text file that is written beside the image.
struct SideFile {
    std::string path;
    std::string text;
};

/// What label files of NESasm say of themselves: the comment of the first label in each, or the
/// beginning of that.
inline constexpr std::string_view LabelMark = "written by NESasm";

/// PRG has no more banks of 16 KiB: the header counts them in one byte.
inline constexpr std::uint32_t MostNlBanks = 255;

/// The labels in the format that ends in .mlb (source: the label importer of the emulator that
/// reads it). `output` is the path of the image. Without labels the file is empty: the format knows
/// no comments apart from them.
SideFile mlbFile(const FinishedProgram& program, const std::string& output);

/// The labels in the format that ends in .nl (source: its emulator's manual, "NL files format"):
/// one file for RAM and one for each 16 KiB of PRG. Without labels a file holds a comment alone.
std::vector<SideFile> nlFiles(const FinishedProgram& program, const std::string& output);

/// The paths of those files when PRG has so many `banks` of 16 KiB.
std::vector<std::string> nlPaths(const std::string& output, std::uint32_t banks);

/// `path` with another ending, "game.mlb" for "game.nes".
std::string withEnding(const std::string& path, std::string_view ending);

} // namespace nesasm
