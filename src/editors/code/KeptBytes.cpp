// SPDX-License-Identifier: MIT
#include "editors/code/KeptBytes.h"

#include <QByteArrayView>
#include <QStringDecoder>

#include <algorithm>

namespace kestrel {

namespace {

constexpr char16_t FirstStandIn = 0xdc00; // for byte 0, which needs none

constexpr unsigned char byteAt(std::string_view bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes[place]);
}

/// What the second byte of a character may be.
struct SecondByte {
    unsigned char least = 0x80;
    unsigned char most = 0xbf;
};

constexpr SecondByte secondByteAfter(unsigned char first) {
    switch (first) {
    case 0xe0:
        return {0xa0, 0xbf}; // less would be a longer form than needed
    case 0xed:
        return {0x80, 0x9f}; // more would be a surrogate
    case 0xf0:
        return {0x90, 0xbf};
    case 0xf4:
        return {0x80, 0x8f}; // more would be no code point
    default:
        return {};
    }
}

constexpr std::size_t lengthAfter(unsigned char first) {
    if (first < 0x80) {
        return 1;
    }
    if (first < 0xc2 || first > 0xf4) {
        return 0;
    }
    if (first < 0xe0) {
        return 2;
    }
    return first < 0xf0 ? 3 : 4;
}

/// The length of the character that begins at `start`; 0 when none does.
constexpr std::size_t characterLength(std::string_view bytes, std::size_t start) {
    const unsigned char first = byteAt(bytes, start);
    const std::size_t length = lengthAfter(first);
    if (length > bytes.size() - start) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        const SecondByte allowed = i == 1 ? secondByteAfter(first) : SecondByte();
        const unsigned char byte = byteAt(bytes, start + i);
        if (byte < allowed.least || byte > allowed.most) {
            return 0;
        }
    }
    return length;
}

/// Calls `character` for every stretch of whole characters and `kept` for every byte between.
template<typename Stretch, typename Kept>
void walkBytes(std::string_view bytes, Stretch stretch, Kept kept) {
    std::size_t start = 0;
    std::size_t place = 0;
    while (place < bytes.size()) {
        if (const std::size_t length = characterLength(bytes, place); length != 0) {
            place += length;
            continue;
        }
        stretch(bytes.substr(start, place - start));
        kept(byteAt(bytes, place));
        start = ++place;
    }
    stretch(bytes.substr(start));
}

/// The same for a text.
template<typename Stretch, typename Kept>
void walkText(QStringView text, Stretch stretch, Kept kept) {
    qsizetype start = 0;
    for (qsizetype place = 0; place < text.size(); ++place) {
        if (text[place].isHighSurrogate() && place + 1 < text.size() &&
            text[place + 1].isLowSurrogate()) {
            ++place;
        } else if (const char16_t unit = text[place].unicode(); isKeptByte(unit)) {
            stretch(text.sliced(start, place - start));
            kept(static_cast<char>(unit - FirstStandIn));
            start = place + 1;
        }
    }
    stretch(text.sliced(start));
}

} // namespace

Utf8Content contentOfUtf8(std::string_view bytes) {
    Utf8Content content;
    walkBytes(
        bytes,
        [&content](std::string_view characters) {
            content.characters +=
                static_cast<std::size_t>(std::ranges::count_if(characters, [](char byte) {
                    return static_cast<unsigned char>(byte) >= 0xc0; // the first of several
                }));
        },
        [&content](unsigned char /*byte*/) { ++content.keptBytes; });
    return content;
}

QString textWithKeptBytes(std::string_view bytes) {
    // What looks like a byte-order mark is a character, wherever it stands.
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless |
                                                       QStringConverter::Flag::ConvertInitialBom);
    QString text;
    text.reserve(std::ssize(bytes));
    walkBytes(
        bytes,
        [&](std::string_view characters) {
            text += decoder.decode(QByteArrayView(characters.data(), std::ssize(characters)));
        },
        [&text](unsigned char byte) { text += QChar(static_cast<char16_t>(FirstStandIn + byte)); });
    return text;
}

std::string bytesWithKeptBytes(QStringView text) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    walkText(
        text,
        [&bytes](QStringView characters) {
            const QByteArray encoded = characters.toUtf8();
            bytes.append(encoded.constData(), static_cast<std::size_t>(encoded.size()));
        },
        [&bytes](char byte) { bytes += byte; });
    return bytes;
}

qsizetype keptByteCount(QStringView text) {
    qsizetype count = 0;
    walkText(
        text, [](QStringView /*characters*/) {}, [&count](char /*byte*/) { ++count; });
    return count;
}

} // namespace kestrel
