// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

/// A source file's text and whether it had a byte-order mark.
struct SourceText {
    QString text;
    /// Whether the file began with a byte-order mark that is to be kept; the text is without it.
    bool byteOrderMark = false;
    /// The name of the encoding that the file was read from, where it is saved in another one.
    QString formerEncoding;
};

/// The text of a file in UTF-8, UTF-16, UTF-32 with a byte-order mark, or in another encoding that
/// the bytes are found to be in. Nothing when they are not text. Line ends and all characters are
/// as in the file; in UTF-8, bytes that are part of no character stay, too (see KeptBytes).
std::optional<SourceText> decodeSource(std::string_view bytes);

/// The text in UTF-8, which is how all files are saved. For text that decodeSource() read from
/// UTF-8 these are the same bytes.
std::string encodeSource(const SourceText& source);

/// The text that encodeSource() made these bytes of.
SourceText decodeSavedSource(std::string_view bytes);

} // namespace kestrel
