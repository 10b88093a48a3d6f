// SPDX-License-Identifier: MIT
#include "build/QtText.h"

#include <QStringDecoder>

namespace kestrel {

std::optional<QString> textFromUtf8(QByteArrayView bytes) {
    // Stateless: an incomplete character at the end is an error. The converter works lazily, so its
    // result must exist before it is asked for errors.
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless |
                                                       QStringConverter::Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    if (decoder.hasError()) {
        return std::nullopt;
    }
    return text;
}

std::optional<QString> textFromUtf8(std::string_view bytes) {
    return textFromUtf8(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

std::optional<QString> textFromPath(const std::filesystem::path& path) {
    return textFromUtf8(std::string_view(path.native()));
}

} // namespace kestrel
