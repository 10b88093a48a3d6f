// SPDX-License-Identifier: MIT
#pragma once

#include "model/ErrorValue.h"

namespace kestrel {

/// What a builder reports when a request failed. Its own errors have the domain "", the code 100
/// and a description.
using BuildError = ErrorValue;

} // namespace kestrel
