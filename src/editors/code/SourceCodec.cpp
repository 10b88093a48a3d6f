// SPDX-License-Identifier: MIT
#include "editors/code/SourceCodec.h"

#include "editors/code/EncodingDetector.h"
#include "editors/code/KeptBytes.h"

#include <QByteArrayView>
#include <QStringDecoder>

#include <algorithm>
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

/// UTF-16 without a mark, which is known by its ASCII: one of two bytes is NUL, and of the two
/// nearly always the same one. No other source has so many of them.
std::optional<SourceText> decodedUnmarkedUtf16(std::string_view bytes) {
    constexpr std::size_t FewestUnits = 4;
    std::array<std::size_t, 2> zeros{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        zeros.at(i % 2) += bytes[i] == '\0' ? 1 : 0;
    }
    const bool isBigEndian = zeros[0] > zeros[1];
    const std::size_t units = bytes.size() / 2;
    if (bytes.size() % 2 != 0 || units < FewestUnits || std::max(zeros[0], zeros[1]) * 3 < units ||
        std::min(zeros[0], zeros[1]) * 8 > std::max(zeros[0], zeros[1])) {
        return std::nullopt;
    }
    auto text =
        decoded(QStringDecoder(isBigEndian ? QStringConverter::Utf16BE : QStringConverter::Utf16LE,
                               DecoderFlags),
                bytes);
    const auto isControl = [](QChar character) {
        return character.category() == QChar::Other_Control && !character.isSpace();
    };
    if (!text || std::ranges::any_of(*text, isControl)) {
        return std::nullopt;
    }
    return SourceText{*std::move(text), false, QStringLiteral("UTF-16")};
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
    if (auto source = decodedUnmarkedUtf16(bytes)) {
        return source;
    }
    const bool hasMark = bytes.starts_with(Utf8Mark);
    const std::string_view unmarked = hasMark ? bytes.substr(Utf8Mark.size()) : bytes;
    if (auto text = decoded(QStringDecoder(QStringConverter::Utf8, DecoderFlags), unmarked)) {
        return SourceText{*std::move(text), hasMark, {}};
    }
    for (const EncodingCandidate& candidate : encodingCandidates(bytes)) {
        if (hasMark || candidate.name == "UTF-8") {
            return SourceText{textWithKeptBytes(unmarked), hasMark, {}};
        }
        if (auto text = decoded(QStringDecoder(candidate.name.c_str(), DecoderFlags), bytes)) {
            return SourceText{*std::move(text), false, candidate.title};
        }
    }
    return std::nullopt;
}

std::string encodeSource(const SourceText& source) {
    std::string bytes = source.byteOrderMark ? std::string(Utf8Mark) : std::string();
    bytes += bytesWithKeptBytes(source.text);
    return bytes;
}

SourceText decodeSavedSource(std::string_view bytes) {
    const bool hasMark = bytes.starts_with(Utf8Mark);
    return {textWithKeptBytes(hasMark ? bytes.substr(Utf8Mark.size()) : bytes), hasMark, {}};
}

} // namespace kestrel
