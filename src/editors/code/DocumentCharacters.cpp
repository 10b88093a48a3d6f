// SPDX-License-Identifier: MIT
#include "editors/code/DocumentCharacters.h"

#include "editors/code/KeptBytes.h"

namespace kestrel {

namespace {

constexpr char16_t standInFor(char16_t character) {
    switch (character) {
    case 0x2028:
        return 0xdc28;
    case 0x2029:
        return 0xdc29;
    case 0xfdd0:
        return 0xdc30;
    case 0xfdd1:
        return 0xdc31;
    default:
        return 0;
    }
}

constexpr char16_t standsFor(char16_t character) {
    switch (character) {
    case 0xdc28:
        return 0x2028;
    case 0xdc29:
        return 0x2029;
    case 0xdc30:
        return 0xfdd0;
    case 0xdc31:
        return 0xfdd1;
    default:
        return 0;
    }
}

/// Calls `replacement` for every character that is no half of a pair, from the first one on; where
/// it answers other than 0, that takes the character's place. Copies only a text that changes.
template<typename Replacement> QString replaced(QString text, Replacement replacement) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = std::as_const(text)[i];
        if (character.isHighSurrogate() && i + 1 < text.size() &&
            std::as_const(text)[i + 1].isLowSurrogate()) {
            ++i;
        } else if (const char16_t other = replacement(character.unicode()); other != 0) {
            text[i] = QChar(other);
        }
    }
    return text;
}

constexpr char16_t documentForm(char16_t character) {
    if (!QChar::isSurrogate(character)) {
        return standInFor(character);
    }
    return isKeptByte(character) ? u'\0' : u'\xfffd';
}

} // namespace

QString toDocumentCharacters(QString text) {
    return replaced(std::move(text), documentForm);
}

QString fromDocumentCharacters(QString characters) {
    return replaced(std::move(characters), standsFor);
}

bool hasStandIns(QStringView characters) {
    for (qsizetype i = 0; i < characters.size(); ++i) {
        if (!characters[i].isSurrogate()) {
            continue;
        }
        if (characters[i].isHighSurrogate() && i + 1 < characters.size() &&
            characters[i + 1].isLowSurrogate()) {
            ++i;
        } else if (standsFor(characters[i].unicode()) != 0) {
            return true;
        }
    }
    return false;
}

} // namespace kestrel
