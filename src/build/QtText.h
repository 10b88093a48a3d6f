// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

#include <filesystem>
#include <optional>
#include <string_view>

namespace kestrel {

/// Turns bytes into Qt's text without losing or replacing any.
class QtText {
public:
    /// The text that the bytes are in UTF-8, a byte-order mark kept as a character; nothing when
    /// they are not valid UTF-8.
    static std::optional<QString> fromUtf8(QByteArrayView bytes);
    static std::optional<QString> fromUtf8(std::string_view bytes);
    static std::optional<QString> fromPath(const std::filesystem::path& path);
};

} // namespace kestrel
