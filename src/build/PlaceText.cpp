// SPDX-License-Identifier: MIT
#include "build/PlaceText.h"

#include <algorithm>
#include <utility>

namespace kestrel {

namespace {

using Kind = Place::Kind;

struct Word {
    QStringView text;
    Kind kind;
};

constexpr Word Words[] = {
    {u": error:", Kind::error}, {u": warning:", Kind::warning}, {u": note:", Kind::note}};

constexpr QStringView Included = u"  included at ";
constexpr QStringView InMacro = u"  in macro ";
constexpr QStringView Called = u" called at ";
constexpr QStringView InRepetition = u"  in the repetition begun at ";

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Takes ":" and a number from the end of `text`; nothing, with it unchanged, when it ends
/// otherwise.
std::optional<int> takeNumber(QStringView& text) {
    qsizetype begin = text.size();
    while (begin > 0 && isDigit(text[begin - 1])) {
        --begin;
    }
    bool fits = false;
    const int number = text.sliced(begin).toInt(&fits);
    if (!fits || number == 0 || begin == 0 || text[begin - 1] != u':') {
        return std::nullopt;
    }
    text.truncate(begin - 1);
    return number;
}

/// The place that stands before `end` at the start of the line.
std::optional<PlaceText> placeBefore(QStringView line, qsizetype end) {
    QStringView file = line.first(end);
    const auto column = takeNumber(file);
    const auto number = column ? takeNumber(file) : std::nullopt;
    if (!number || file.isEmpty()) {
        return std::nullopt;
    }
    return PlaceText{{file.toString(), *number, *column, Kind::note, {}}, 0, end};
}

/// The first place in front of this word; `found` gets where the word is.
std::optional<PlaceText> firstBefore(const Word& word, QStringView line, qsizetype& found) {
    for (found = line.indexOf(word.text); found >= 0; found = line.indexOf(word.text, found + 1)) {
        if (auto place = placeBefore(line, found)) {
            place->place.kind = word.kind;
            const QStringView rest = line.sliced(found + word.text.size());
            place->place.text = rest.trimmed().toString();
            return place;
        }
    }
    return std::nullopt;
}

/// The place "file:line" that the line ends with.
std::optional<PlaceText> placeFrom(QStringView line, qsizetype begin) {
    QStringView file = line.sliced(begin).trimmed();
    const qsizetype length = file.size();
    const auto number = takeNumber(file);
    if (!number || file.isEmpty()) {
        return std::nullopt;
    }
    const QString text = line.first(begin + length).trimmed().toString();
    return PlaceText{{file.toString(), *number, 1, Kind::note, text}, begin, length};
}

} // namespace

std::optional<PlaceText> problemIn(QStringView line) {
    line.truncate(std::min(line.size(), LongestPlaceText));
    if (line.isEmpty() || line.front() == u' ' || line.front() == u'\t') {
        return std::nullopt; // a line of the source, quoted below a message
    }
    std::optional<PlaceText> first;
    qsizetype end = line.size();
    for (const Word& word : Words) {
        qsizetype found = 0;
        auto place = firstBefore(word, line, found);
        if (place && found < end) {
            first = std::move(place);
            end = found;
        }
    }
    return first;
}

std::optional<PlaceText> originIn(QStringView line) {
    line.truncate(std::min(line.size(), LongestPlaceText));
    if (line.startsWith(InRepetition)) {
        return placeFrom(line, InRepetition.size());
    }
    if (line.startsWith(Included)) {
        return placeFrom(line, Included.size());
    }
    const qsizetype called = line.startsWith(InMacro) ? line.indexOf(Called) : -1;
    return called < 0 ? std::nullopt : placeFrom(line, called + Called.size());
}

} // namespace kestrel
