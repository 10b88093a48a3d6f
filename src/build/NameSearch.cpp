// SPDX-License-Identifier: MIT
#include "build/NameSearch.h"

#include "build/DefinedNames.h"
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
            const bool isLocal = m_name.starts_with('.');
            if (const auto label = isLocal ? scopeLabel(line) : std::string_view();
                !label.empty()) {
                scope = label;
            }
            if (!isLocal || scope == m_scope) {
                searchLine(line, place);
            }
        });
    }

private:
    void searchLine(std::string_view line, BytePlace place) {
        std::optional<std::vector<DefinedName>> defined; // found for the few lines with the name
        forEachWord(line, [&](std::string_view word) {
            if (word != m_name) {
                return;
            }
            if (!defined) {
                defined = definedNames(line);
            }
            place.column = static_cast<std::uint32_t>(word.data() - line.data()) + 1;
            m_found.all.push_back(place);
            if (std::ranges::find(*defined, word.data(), [](const DefinedName& name) {
                    return name.text.data();
                }) != defined->end()) {
                m_found.definitions.push_back(place);
            }
        });
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

std::string lastScope(const std::filesystem::path& path, std::uint32_t firstLines) {
    const std::optional<std::string> text = textOf(path);
    std::string_view scope;
    std::uint32_t number = 0;
    forEachLine(text ? std::string_view(*text) : std::string_view(), [&](std::string_view line) {
        if (number++ < firstLines) {
            if (const std::string_view label = scopeLabel(line); !label.empty()) {
                scope = label;
            }
        }
    });
    return std::string(scope);
}

std::string_view scopeLabel(std::string_view line) {
    std::string_view scope;
    for (const DefinedName& name : definedNames(line)) {
        if (name.isLabel && !name.text.starts_with('.')) {
            scope = name.text;
        }
    }
    return scope;
}

} // namespace kestrel
