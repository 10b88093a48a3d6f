// SPDX-License-Identifier: MIT
#include "facts/ProgramFacts.h"

#include <algorithm>
#include <tuple>

namespace kestrel {

namespace {

char lowered(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lowered, lowered);
}

} // namespace

std::uint32_t MemoryArea::usedBytes() const {
    std::uint32_t count = 0;
    for (const ByteRange& range : used) {
        count += range.size();
    }
    return count;
}

ByteRange MemoryArea::largestGap() const {
    ByteRange largest{whole.end, whole.end};
    std::uint32_t begin = whole.begin;
    const auto consider = [&](std::uint32_t end) {
        if (end - begin > largest.size()) {
            largest = {begin, end};
        }
    };
    for (const ByteRange& range : used) {
        consider(range.begin);
        begin = range.end;
    }
    consider(whole.end);
    return largest;
}

std::string_view FileFacts::name() const {
    return std::string_view(path).substr(path.rfind('/') + 1);
}

const LineFacts* FileFacts::line(std::uint32_t number) const {
    const auto found = std::ranges::lower_bound(lines, number, {}, &LineFacts::line);
    return found != lines.end() && found->line == number ? &*found : nullptr;
}

const FileFacts* ProgramFacts::fileNamed(std::string_view name) const {
    auto found = std::ranges::find(files, name, &FileFacts::name);
    if (found == files.end()) {
        found = std::ranges::find_if(
            files, [name](const FileFacts& file) { return equalsIgnoringCase(file.name(), name); });
    }
    return found != files.end() ? &*found : nullptr;
}

const SymbolFacts* ProgramFacts::symbol(std::string_view name, std::string_view scope) const {
    if (!name.starts_with('.')) {
        scope = {};
    }
    const auto key = [](const SymbolFacts& symbol) {
        return std::tuple<std::string_view, std::string_view>(symbol.name, symbol.scope);
    };
    const auto found = std::ranges::lower_bound(symbols, std::tuple(name, scope), {}, key);
    const bool isFound = found != symbols.end() && key(*found) == std::tuple(name, scope);
    return isFound ? &*found : nullptr;
}

} // namespace kestrel
