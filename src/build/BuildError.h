// SPDX-License-Identifier: MIT
#pragma once

#include "model/ErrorValue.h"

#include <string>

namespace kestrel {

/// Why a builder's request failed. The builder's own errors have the domain "", the code 100 and a
/// description, but for the one of a run without an emulator, which has the domain "2", the code 0
/// and no description.
using BuildError = ErrorValue;

inline constexpr const char* BuildStopped = "The build was stopped";
inline constexpr const char* BuildOvertaken = "The build was replaced by a newer one";

/// The error's description; for a run without an emulator, where to choose one.
std::string textOf(const BuildError& error);

} // namespace kestrel
