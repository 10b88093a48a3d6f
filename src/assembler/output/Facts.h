// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/FinishedProgram.h"

#include <string>

namespace nesasm {

/// What is known of a program that was built with its lines recorded and notes taken, in the form
/// that docs/facts.md describes.
std::string factsText(const FinishedProgram& program);

} // namespace nesasm
