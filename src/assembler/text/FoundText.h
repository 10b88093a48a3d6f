// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/text/Cursor.h"

#include <string>

namespace nesasm {

/// What stands at `place`, for a message: "'x'", or "the end of the statement".
std::string foundText(Cursor place);

/// Advice for somebody who begins a comment at `place` as other languages do, "" for anything else.
const char* commentRemedy(Cursor place);

} // namespace nesasm
