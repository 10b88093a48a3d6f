// SPDX-License-Identifier: MIT
#pragma once

namespace kestrel {

/// What the mark before a sentence about a build stands for.
enum class BuildMarkKind { notice, running, made, warned, failed, stopped };

} // namespace kestrel
