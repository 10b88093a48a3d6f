// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

/// A source file's text and what else its bytes say.
struct SourceText {
    QString text;
    /// Whether the file began with a byte-order mark that is to be kept; the text is without it.
    bool byteOrderMark = false;
};

/// Turns the bytes of source files into text, and text into bytes.
class SourceCodec {
public:
    /// The text of a file in UTF-8, in UTF-16 or UTF-32 with a byte-order mark, or in whatever
    /// other encoding the bytes are found to be. Nothing when they are no text. Line ends and all
    /// characters are as in the file.
    static std::optional<SourceText> decode(std::string_view bytes);

    /// The text in UTF-8, which is how all files are saved. For text that decode() gave from UTF-8
    /// these are the bytes it was given.
    static std::string encode(const SourceText& source);
};

} // namespace kestrel
