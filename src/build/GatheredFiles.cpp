// SPDX-License-Identifier: MIT
#include "build/GatheredFiles.h"

#include "build/QtText.h"
#include "build/SourceLocation.h"
#include "model/Paths.h"

#include <QFile>

#include <algorithm>
#include <ranges>

namespace kestrel {

namespace {

constexpr QStringView SourceSuffix = u".asm";
constexpr std::size_t LongestCharacter = 4; // in bytes of UTF-8

/// The first character of `bytes`; nothing when they begin with none.
std::optional<QString> firstCharacter(std::string_view bytes) {
    for (std::size_t length = 1; length <= std::min(LongestCharacter, bytes.size()); ++length) {
        if (auto character = textFromUtf8(bytes.substr(0, length))) {
            return character;
        }
    }
    return std::nullopt;
}

/// What follows the last separator, of which a source may use both.
QStringView lastPart(QStringView name) {
    return name.sliced(std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\')) + 1);
}

char16_t lowered(QChar c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c.unicode() | 0x20U) : c.unicode();
}

/// As the assembler compares names: the letters of ASCII only have two cases.
bool equalIgnoringCase(QStringView one, QStringView other) {
    return std::ranges::equal(one, other, {}, lowered, lowered);
}

} // namespace

QString nameInMessages(std::string_view name) {
    QString text;
    while (!name.empty()) {
        const auto character = firstCharacter(name);
        const bool isShown = character && character->at(0).category() != QChar::Other_Control;
        text += isShown ? *character : QString(QChar::ReplacementCharacter);
        name.remove_prefix(character ? static_cast<std::size_t>(character->toUtf8().size()) : 1);
    }
    return text;
}

GatheredFiles::GatheredFiles(const std::vector<const ProjectItems*>& lists,
                             const std::filesystem::path& projectFolder) {
    const std::filesystem::path gatheredTo = joined(projectFolder, "tmp").lexically_normal();
    std::vector<Entry> own; // lie there themselves, and are never replaced
    for (const ProjectItems* list : lists) {
        for (const auto& item : *list) {
            if (auto path = sourceFile(*item, projectFolder)) {
                const bool isOwn = path->parent_path().lexically_normal() == gatheredTo;
                (isOwn ? own : m_entries)
                    .push_back({nameInMessages(item->itemName()), *std::move(path)});
            }
        }
    }
    std::ranges::move(own, std::back_inserter(m_entries));
}

template<typename Matches> const GatheredFiles::Entry* GatheredFiles::last(Matches matches) const {
    const auto found =
        std::ranges::find_if(m_entries.rbegin(), m_entries.rend(), matches,
                             [](const Entry& entry) { return QStringView(entry.name); });
    return found == m_entries.rend() ? nullptr : &*found;
}

std::optional<std::filesystem::path> GatheredFiles::find(const QString& name) const {
    if (name.startsWith(u'/')) {
        return std::filesystem::path(QFile::encodeName(name).toStdString());
    }
    const QStringView exact = lastPart(name);
    const QString withSuffix = exact.toString().append(SourceSuffix);
    const Entry* found = nullptr;
    for (const QStringView wanted : {exact, QStringView(withSuffix)}) {
        found = found != nullptr ? found : last([wanted](QStringView n) { return n == wanted; });
    }
    for (const QStringView wanted : {exact, QStringView(withSuffix)}) {
        found = found != nullptr
                    ? found
                    : last([wanted](QStringView n) { return equalIgnoringCase(n, wanted); });
    }
    return found != nullptr ? std::optional(found->path) : std::nullopt;
}

} // namespace kestrel
