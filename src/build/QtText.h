// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

#include <filesystem>
#include <optional>
#include <string_view>

namespace kestrel {

/// Decodes UTF-8 without loss: a byte-order mark stays a character, and invalid bytes give nothing
/// instead of replacement characters.
std::optional<QString> textFromUtf8(QByteArrayView bytes);
std::optional<QString> textFromUtf8(std::string_view bytes);
std::optional<QString> textFromPath(const std::filesystem::path& path);

} // namespace kestrel
