// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/SourceCodec.h"

#include <QString>

namespace kestrel {

/// A source file's encoding and line ends, in a few words for the status bar.
QString sourceDescription(const SourceText& source);

} // namespace kestrel
