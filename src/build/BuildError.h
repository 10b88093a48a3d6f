// SPDX-License-Identifier: MIT
#pragma once

#include "model/ErrorValue.h"

namespace kestrel {

/// Why a builder's request failed. The builder's own errors have the domain "", the code 100 and a
/// description.
using BuildError = ErrorValue;

} // namespace kestrel
