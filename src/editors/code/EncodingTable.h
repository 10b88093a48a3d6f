// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/DoubleByteRating.h"
#include "editors/code/TextRating.h"

#include <span>

namespace kestrel {

/// An encoding that old sources are found in, and how its texts are known.
struct KnownEncoding {
    const char* name;                    ///< in Qt's spelling
    const char* title;                   ///< for people
    std::span<const Language> languages; ///< empty where `pairs` tells
    const DoubleByteSet* pairs = nullptr;
};

/// All of them. Of two that rate a text alike the first one is taken.
std::span<const KnownEncoding> knownEncodings();

} // namespace kestrel
