// SPDX-License-Identifier: MIT
#include "build/MainAssemblyFile.h"

#include "build/QtText.h"
#include "build/SourceLocation.h"
#include "model/FileReader.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace kestrel {

namespace {

constexpr QStringView Directive = u".org";
constexpr QStringView Address = u"$FFFA";

/// Whether `word` stands at `position`, in any letter case.
bool standsAt(QStringView text, qsizetype position, QStringView word) {
    return text.size() - position >= word.size() &&
           text.sliced(position, word.size()).compare(word, Qt::CaseInsensitive) == 0;
}

/// The end of the first match, or -1. Not a regular expression, which may run out of stack on
/// megabytes of white space.
qsizetype endOfFirstMatch(QStringView text) {
    for (qsizetype start = text.indexOf(u'.'); start >= 0; start = text.indexOf(u'.', start + 1)) {
        if (!standsAt(text, start, Directive)) {
            continue;
        }
        const qsizetype blank = start + Directive.size();
        qsizetype position = blank;
        while (position < text.size() && text[position].isSpace()) {
            ++position;
        }
        if (position > blank && standsAt(text, position, Address)) {
            return position + Address.size();
        }
    }
    return -1;
}

/// The number of grapheme clusters in `line`, which has no LF except at its end.
qsizetype charactersIn(QStringView line) {
    // Below U+0300 the only cluster of two units is CR LF.
    constexpr char16_t FirstCombining = 0x300;
    const bool simple = std::all_of(line.begin(), line.end(),
                                    [](QChar unit) { return unit.unicode() < FirstCombining; });
    if (simple) {
        return line.size() - (line.endsWith(u"\r\n") ? 1 : 0);
    }
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, line.data(), line.size());
    qsizetype count = 0;
    while (finder.toNextBoundary() >= 0) {
        ++count;
    }
    return count;
}

/// Whether `text` has at least `wanted` grapheme clusters; counts no further than that. Every LF
/// ends a cluster, so lines can be counted one by one.
bool hasCharacters(QStringView text, qsizetype wanted) {
    qsizetype count = 0;
    for (qsizetype start = 0; start < text.size() && count < wanted;) {
        const qsizetype feed = text.indexOf(u'\n', start);
        const qsizetype end = feed < 0 ? text.size() : feed + 1;
        count += charactersIn(text.sliced(start, end - start));
        start = end;
    }
    return count >= wanted;
}

} // namespace

std::optional<std::string> mainAssemblyFileIn(const ProjectItems& assemblyFiles,
                                              const std::filesystem::path& projectFolder) {
    for (const auto& entry : assemblyFiles) {
        const auto file = sourceFile(*entry, projectFolder);
        const auto bytes = file ? readFile(*file, MaximumSourceSize) : std::nullopt;
        const auto text = bytes ? textFromUtf8(std::string_view(*bytes)) : std::nullopt;
        if (text && placesVectors(*text)) {
            return entry->itemName();
        }
    }
    return std::nullopt;
}

bool placesVectors(QStringView text) {
    const qsizetype end = endOfFirstMatch(text);
    return end >= 0 && hasCharacters(text, end);
}

} // namespace kestrel
