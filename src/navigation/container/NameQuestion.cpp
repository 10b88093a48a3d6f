// SPDX-License-Identifier: MIT
#include "navigation/container/NameQuestion.h"

#include "build/NameSearch.h"

#include <algorithm>

namespace kestrel {

namespace {

std::string scopeOf(const NameQuestion& question) {
    if (!question.name.starts_with('.')) {
        return {};
    }
    return question.scope ? *question.scope : lastScope(question.file, question.firstLines);
}

const SymbolFacts* knownSymbol(const NameQuestion& question, const std::string& scope) {
    return question.facts ? question.facts->symbol(question.name, scope) : nullptr;
}

std::vector<BytePlace> placesOf(const std::vector<FactPlace>& places,
                                const NameQuestion& question) {
    const std::vector<FileFacts>& files = question.facts->files;
    std::vector<std::optional<std::filesystem::path>> paths(files.size());
    std::vector<BytePlace> result;
    for (const FactPlace& place : places) {
        std::optional<std::filesystem::path>& path = paths[place.file];
        if (!path) {
            path = question.copies.sourceOf(files[place.file]);
        }
        result.push_back({*path, place.line, place.column});
    }
    return result;
}

} // namespace

std::vector<Place> definitionsOf(const NameQuestion& question) {
    const std::string scope = scopeOf(question);
    const SymbolFacts* const known = knownSymbol(question, scope);
    const bool isKnown = known != nullptr && !known->definitions.empty();
    return placesWithText(isKnown ? placesOf(known->definitions, question)
                                  : findName(question.sources, question.name, scope).definitions,
                          Place::Kind::found);
}

std::vector<Place> usesOf(const NameQuestion& question) {
    const std::string scope = scopeOf(question);
    if (const SymbolFacts* const known = knownSymbol(question, scope)) {
        return placesWithText(placesOf(known->uses, question), Place::Kind::use);
    }
    FoundName found = findName(question.sources, question.name, scope);
    std::erase_if(found.all, [&](const BytePlace& place) {
        return std::ranges::find(found.definitions, place) != found.definitions.end();
    });
    return placesWithText(found.all, Place::Kind::use);
}

} // namespace kestrel
