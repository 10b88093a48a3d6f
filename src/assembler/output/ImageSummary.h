// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/values/Image.h"

#include <string>

namespace nesasm {

/// One line that sums up the image, such as
/// "game.nes: 24592 bytes, mapper 0, PRG 2 x 8 KiB banks (73 % used), CHR 1 x 8 KiB";
/// as a JSON object when `isJson` is set.
std::string summaryLine(const std::string& path, const Image& image, bool isJson = false);

/// One line for each bank: how full it is.
std::string bankLines(const Image& image, bool isJson = false);

} // namespace nesasm
