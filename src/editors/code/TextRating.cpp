// SPDX-License-Identifier: MIT
#include "editors/code/TextRating.h"

#include <QChar>

namespace kestrel {

namespace {

constexpr double Never = -3;
constexpr double Hardly = -2;
constexpr double Rarely = -1;
constexpr double Perhaps = 0;
constexpr double Sometimes = 1;
constexpr double Often = 2;
constexpr double Surely = 3;

/// A character with its neighbours; a space where the text ends.
struct Place {
    QChar before;
    QChar self;
    QChar after;
    bool quotesArePaired; ///< whether the text has both of the double quotes
};

bool isAscii(QChar character) {
    return character.unicode() < 0x80;
}

bool isAsciiLetter(QChar character) {
    return isAscii(character) && character.isLetter();
}

bool isOneOf(QChar character, std::u16string_view set) {
    return set.find(character.unicode()) != std::u16string_view::npos;
}

bool isBox(QChar character) {
    return character.unicode() >= 0x2500 && character.unicode() <= 0x25ff;
}

double either(bool fits, double otherwise = Hardly) {
    return fits ? Often : otherwise;
}

bool isBlock(QChar character) {
    return character.unicode() >= 0x2580 && character.unicode() <= 0x25a0;
}

bool isStraight(QChar character) {
    return isOneOf(character, u"\u2500\u2502\u2550\u2551");
}

bool isLevel(QChar character) {
    return isOneOf(character, u"\u2500\u2550");
}

/// Whether people draw these two side by side.
bool goTogether(QChar left, QChar right) {
    if (!isBox(left) || !isBox(right)) {
        return false;
    }
    return left == right || (isBlock(left) && isBlock(right)) ||
           (!isBlock(left) && !isBlock(right) && (isLevel(left) || isLevel(right)));
}

/// Frames, rules and shades: among what continues them and spaces, hardly beside words.
double ratedBox(const Place& place) {
    const bool continues =
        goTogether(place.before, place.self) || goTogether(place.self, place.after);
    if (place.before.isLetter() || place.after.isLetter()) {
        // The side of a frame stands close to what is in it, on one side.
        const bool isSide = isOneOf(place.self, u"\u2502\u2551") &&
                            !(place.before.isLetter() && place.after.isLetter());
        return continues || isSide ? Perhaps : Never;
    }
    const bool isAlone = !isBox(place.before) && !isBox(place.after) &&
                         (isStraight(place.self) || isBlock(place.self));
    return either(continues || isAlone, Rarely);
}

double ratedQuote(const Place& place) {
    const bool opens = !place.before.isLetterOrNumber() && !place.after.isSpace();
    const bool closes = !place.before.isSpace() && !place.after.isLetterOrNumber();
    if (isOneOf(place.self, u"\u201c\u201d\u201e") && !place.quotesArePaired) {
        return Perhaps;
    }
    switch (place.self.unicode()) {
    case u'\u2019':
        if (isAsciiLetter(place.before) && isAsciiLetter(place.after)) {
            return Surely;
        }
        return either(closes || (opens && place.after.isDigit()));
    case u'\u201d':
    case u'\u203a':
        return either(closes);
    case u'\u00bb': // in French, the inner side of both has a space
        return either(closes || (place.before.isSpace() && !place.after.isLetterOrNumber()));
    case u'\u00ab':
        return either(opens || (place.after.isSpace() && !place.before.isLetterOrNumber()));
    case u'\u201c': // it closes in German
    case u'\u2018':
        return either(opens || closes);
    case u'\u201e':
        return either(opens);
    default: // a low single one, which few languages have
        return opens ? Perhaps : Hardly;
    }
}

/// What stands between, before or after numbers and words.
double ratedSign(const Place& place) {
    const bool afterDigit = place.before.isDigit();
    const bool afterWord = place.before.isLetterOrNumber();
    const bool beforeWord = place.after.isLetterOrNumber();
    const bool apart = !place.before.isLetter() && !place.after.isLetter();
    if ((!isAscii(place.before) && !place.before.isSpace()) ||
        (!isAscii(place.after) && !place.after.isSpace())) {
        return Hardly;
    }
    switch (place.self.unicode()) {
    case u'\u00a0':
        return Perhaps;
    case u'\u00b0':
    case u'\u00ba':
    case u'\u00aa':
        return afterDigit ? Surely : Hardly;
    case u'\u00b2':
    case u'\u00b3':
    case u'\u00b9':
        return either(afterWord && !place.after.isLetter());
    case u'\u00b5':
    case u'\u00a9':
    case u'\u00ae':
    case u'\u00a7':
        return either(!afterWord || afterDigit, Rarely);
    case u'\u2022':
        return either(place.after.isSpace(), Rarely);
    case u'\u2122':
        return either(afterWord && !beforeWord);
    case u'\u2026':
        return either(!beforeWord);
    case u'\u20ac':
    case u'\u00a3':
    case u'\u00a5':
        return either(afterDigit || place.after.isDigit());
    case u'\u00bf':
    case u'\u00a1':
        return !afterWord && beforeWord ? Surely : Never;
    case u'\u2013':
    case u'\u2014':
    case u'\u00b1':
    case u'\u00bd':
    case u'\u00bc':
    case u'\u00be':
    case u'\u00d7':
    case u'\u00b7':
    case u'\u2248':
    case u'\u2264':
    case u'\u2265':
        return either(apart);
    default:
        return place.self.category() == QChar::Other_Control ? Never : Hardly;
    }
}

bool breaksCase(const Place& place) {
    return (place.before.isLower() && place.self.isUpper()) ||
           (place.self.isLower() && place.before.isUpper() && place.after.isUpper());
}

double ratedLatin(const Language& language, const Place& place) {
    if (breaksCase(place)) {
        return Never;
    }
    if (!isOneOf(place.self, language.letters)) {
        return Hardly;
    }
    if (isAsciiLetter(place.before) || isAsciiLetter(place.after)) {
        return Often;
    }
    if (isOneOf(place.before, language.letters) || isOneOf(place.after, language.letters)) {
        return Sometimes;
    }
    // Alone it is a short word.
    const bool isAlone = !place.before.isLetter() && !place.after.isLetter();
    return isAlone && place.self.isLower() ? Perhaps : Rarely;
}

double ratedOwnScript(const Language& language, const Place& place) {
    if (!isOneOf(place.self.toLower(), language.letters) || breaksCase(place) ||
        isAsciiLetter(place.before) || isAsciiLetter(place.after)) {
        return Never;
    }
    const bool isAlone = !place.before.isLetter() && !place.after.isLetter();
    if (isAlone) {
        return Perhaps;
    }
    const double common = isOneOf(place.self.toLower(), language.frequent) ? Surely : Sometimes;
    const bool inCapitals =
        place.self.isUpper() && (place.before.isUpper() || place.after.isUpper());
    return inCapitals ? common - Sometimes / 2 : common;
}

double rated(const Language& language, const Place& place) {
    if (isBox(place.self)) {
        return ratedBox(place);
    }
    if (place.before == place.self && place.self == place.after) {
        return Never; // nothing but a rule is so
    }
    // The two ordinals are letters to Unicode.
    if (place.self.isLetter() && !isOneOf(place.self, u"\u00aa\u00ba\u00b5")) {
        return language.frequent.empty() ? ratedLatin(language, place)
                                         : ratedOwnScript(language, place);
    }
    return isOneOf(place.self, u"\u2018\u2019\u201a\u201c\u201d\u201e\u2039\u203a\u00ab\u00bb")
               ? ratedQuote(place)
               : ratedSign(place);
}

} // namespace

std::optional<double> ratedAs(const Language& language, QStringView text) {
    const bool quotesArePaired =
        text.contains(u'\u201c') && (text.contains(u'\u201d') || text.contains(u'\u201e'));
    double sum = 0;
    int count = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isAscii(text[i])) {
            continue;
        }
        const Place place{i > 0 ? text[i - 1] : QChar(u' '), text[i],
                          i + 1 < text.size() ? text[i + 1] : QChar(u' '), quotesArePaired};
        sum += rated(language, place);
        ++count;
    }
    return count == 0 ? std::nullopt : std::optional(sum / count);
}

} // namespace kestrel
