// SPDX-License-Identifier: MIT
#include "editors/code/SourceCodec.h"

#include "editors/code/EncodingDetector.h"

#include <QByteArrayView>
#include <QStringDecoder>

#include <array>

namespace kestrel {

namespace {

constexpr std::string_view Utf8Mark = "\xef\xbb\xbf";

struct MarkedEncoding {
    std::string_view mark;
    QStringConverter::Encoding encoding;
    const char* name;
    std::size_t unit;
};

using namespace std::string_view_literals;

/// The longer marks first: one in UTF-32 begins like one in UTF-16.
constexpr std::array MarkedEncodings{
    MarkedEncoding{"\xff\xfe\0\0"sv, QStringConverter::Utf32LE, "UTF-32", 4},
    MarkedEncoding{"\0\0\xfe\xff"sv, QStringConverter::Utf32BE, "UTF-32", 4},
    MarkedEncoding{"\xff\xfe"sv, QStringConverter::Utf16LE, "UTF-16", 2},
    MarkedEncoding{"\xfe\xff"sv, QStringConverter::Utf16BE, "UTF-16", 2},
};

// Stateless: a character cut off at the end is an error. A byte-order mark was taken off before, so
// what looks like another one is a character.
constexpr QStringConverter::Flags DecoderFlags =
    QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom;

/// Everything decoded, or nothing.
std::optional<QString> decoded(QStringDecoder decoder, std::string_view bytes) {
    if (!decoder.isValid()) {
        return std::nullopt;
    }
    // The converter works lazily, so its result must exist before it is asked for errors.
    QString text = decoder.decode(QByteArrayView(bytes.data(), std::ssize(bytes)));
    if (decoder.hasError() || !text.isValidUtf16()) {
        return std::nullopt;
    }
    return text;
}

} // namespace

std::optional<SourceText> decodeSource(std::string_view bytes) {
    bool isMarked = false;
    for (const MarkedEncoding& marked : MarkedEncodings) {
        if (!bytes.starts_with(marked.mark)) {
            continue;
        }
        isMarked = true;
        auto text = bytes.size() % marked.unit == 0
                        ? decoded(QStringDecoder(marked.encoding, DecoderFlags),
                                  bytes.substr(marked.mark.size()))
                        : std::nullopt;
        if (text) {
            return SourceText{*std::move(text), false, QString::fromLatin1(marked.name)};
        }
    }
    if (isMarked) {
        return std::nullopt;
    }
    const bool hasMark = bytes.starts_with(Utf8Mark);
    if (auto text = decoded(QStringDecoder(QStringConverter::Utf8, DecoderFlags),
                            hasMark ? bytes.substr(Utf8Mark.size()) : bytes)) {
        return SourceText{*std::move(text), hasMark, {}};
    }
    for (const std::string& name : encodingCandidates(bytes)) {
        if (auto text = decoded(QStringDecoder(name.c_str(), DecoderFlags), bytes)) {
            return SourceText{*std::move(text), false, QString::fromStdString(name)};
        }
    }
    return std::nullopt;
}

std::string encodeSource(const SourceText& source) {
    const QByteArray text = source.text.toUtf8();
    std::string bytes;
    bytes.reserve(Utf8Mark.size() + static_cast<std::size_t>(text.size()));
    if (source.byteOrderMark) {
        bytes += Utf8Mark;
    }
    bytes.append(text.constData(), static_cast<std::size_t>(text.size()));
    return bytes;
}

} // namespace kestrel
