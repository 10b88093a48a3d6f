// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrel::test {

/// The readable form of a ".nes" image that stands beside a golden case: a first line `size N` with
/// the size of the whole file, a line `header: PP CC F6 F7` with bytes 4 to 7 when they are not all
/// zero, and lines `bank:offset: bytes` (bank decimal, offset and bytes hexadecimal, `00*16` for a
/// run of sixteen). Every byte that no line names is $FF; a `;` starts a comment.
struct HexImage {
    /// The image that a text describes, or nothing, with the reason in `error`.
    static std::optional<std::string> parse(std::string_view text, std::string& error);

    /// The text that describes an image; bytes that are $FF are left out. Something that is no
    /// image is described by its first bytes.
    static std::string describe(std::string_view image);
};

} // namespace kestrel::test
