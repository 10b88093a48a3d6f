// SPDX-License-Identifier: MIT
#include "build/NameSearch.h"

#include "build/SourcePieces.h"
#include "model/FileReader.h"

#include <algorithm>
#include <map>
#include <optional>

namespace kestrel {

namespace {

constexpr std::uintmax_t LargestSource = std::uintmax_t{128} << 20U;

std::optional<std::string> textOf(const std::filesystem::path& path) {
    std::optional<std::string> text = readFile(path, LargestSource);
    if (text && text->starts_with("\xEF\xBB\xBF")) {
        text->erase(0, 3);
    }
    return text;
}

QString shown(std::string_view line) {
    return QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())).trimmed();
}

/// Notes the places of a name in one file, line by line.
class NameFinder {
public:
    NameFinder(std::string_view name, std::string_view scope, FoundName& found)
        : m_name(name)
        , m_scope(scope)
        , m_found(found) {}

    void search(const std::filesystem::path& path, std::string_view text) {
        std::string_view scope;
        BytePlace place{path, 0, 1};
        forEachLine(text, [&](std::string_view line) {
            ++place.line;
            if (const std::string_view label = scopeLabel(line); !label.empty()) {
                scope = label;
            }
            if (!m_name.starts_with('.') || scope == m_scope) {
                searchLine(line, place);
            }
        });
    }

private:
    void searchLine(std::string_view line, BytePlace place) {
        std::string_view before;
        forEachWord(line, [&](std::string_view word) {
            if (word == m_name) {
                const auto column = static_cast<std::uint32_t>(word.data() - line.data());
                place.column = column + 1;
                m_found.all.push_back(place);
                if (column == 0 || isMacro(before)) {
                    m_found.definitions.push_back(place);
                }
            }
            before = word;
        });
    }

    static bool isMacro(std::string_view word) {
        return word == ".macro" || word == ".MACRO" || word == "macro" || word == "MACRO";
    }

    std::string_view m_name;
    std::string_view m_scope;
    FoundName& m_found;
};

} // namespace

std::vector<Place> placesWithText(const std::vector<BytePlace>& places, Place::Kind kind) {
    std::map<std::filesystem::path, std::vector<std::size_t>> byFile;
    for (std::size_t i = 0; i < places.size(); ++i) {
        byFile[places[i].path].push_back(i);
    }
    std::vector<std::optional<Place>> found(places.size());
    for (const auto& [path, indices] : byFile) {
        const std::optional<std::string> text = textOf(path);
        std::vector<std::string_view> lines;
        forEachLine(text ? std::string_view(*text) : std::string_view(),
                    [&](std::string_view line) { lines.push_back(line); });
        for (const std::size_t index : indices) {
            const BytePlace& place = places[index];
            if (!text || place.line == 0 || place.line > lines.size()) {
                continue;
            }
            const std::string_view line = lines[place.line - 1];
            const std::size_t before = std::min<std::size_t>(place.column - 1, line.size());
            found[index] = Place{QString::fromStdString(path.filename().string()),
                                 static_cast<int>(place.line),
                                 charactersIn(line.substr(0, before)) + 1,
                                 kind,
                                 shown(line),
                                 path};
        }
    }
    std::vector<Place> result;
    for (std::optional<Place>& place : found) {
        if (place) {
            result.push_back(*std::move(place));
        }
    }
    return result;
}

FoundName findName(const std::vector<std::filesystem::path>& files, std::string_view name,
                   std::string_view scope) {
    FoundName found;
    for (const std::filesystem::path& path : files) {
        if (const std::optional<std::string> text = textOf(path)) {
            NameFinder(name, scope, found).search(path, *text);
        }
    }
    return found;
}

std::string_view scopeLabel(std::string_view line) {
    std::string_view label;
    std::string_view next;
    forEachWord(line, [&](std::string_view word) {
        if (label.empty()) {
            label = word;
        } else if (next.empty()) {
            next = word;
        }
    });
    if (label.empty() || label.data() != line.data() || label.starts_with('.')) {
        return {};
    }
    const std::string_view rest = line.substr(label.size());
    const std::size_t sign = rest.find_first_not_of(" \t");
    const bool isAssigned = sign != std::string_view::npos && rest[sign] == '=';
    const bool isOther = next == ".rs" || next == ".equ" || next == ".macro" || next == ".RS" ||
                         next == ".EQU" || next == ".MACRO";
    return isAssigned || isOther ? std::string_view() : label;
}

} // namespace kestrel
