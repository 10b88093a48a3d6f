// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace kestrel {

/// How a line of a source file ends.
enum class LineEnd { lf, crlf, cr };

/// The bytes of a line end in a file.
constexpr std::string_view bytesOf(LineEnd end) {
    switch (end) {
    case LineEnd::crlf:
        return "\r\n";
    case LineEnd::cr:
        return "\r";
    case LineEnd::lf:
        break;
    }
    return "\n";
}

} // namespace kestrel
