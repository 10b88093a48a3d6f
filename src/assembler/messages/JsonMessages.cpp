// SPDX-License-Identifier: MIT
#include "assembler/messages/JsonMessages.h"

#include "assembler/messages/MessageParts.h"
#include "assembler/text/Json.h"
#include "assembler/text/Text.h"

namespace nesasm {

namespace {

JsonObject objectOf(std::string_view type, std::string_view text) {
    JsonObject object;
    // As people read it: on one line, without tabs.
    object.addText("type", type).addText("text", printable(text));
    return object;
}

/// What to do about it: what follows the first semicolon in a message.
void addHint(std::string_view text, JsonObject& object) {
    constexpr std::string_view Separator = "; ";
    const std::size_t semicolon = text.find(Separator);
    if (semicolon != std::string_view::npos) {
        object.addText("hint", printable(text.substr(semicolon + Separator.size())));
    }
}

void addPlace(const Position& position, const Origins& origins, JsonObject& object) {
    if (position.origin == NoOrigin) {
        return;
    }
    object.addText("file", origins[position.origin].file);
    if (position.number != 0) {
        object.addNumber("line", position.number).addNumber("column", columnOf(position));
        if (const auto end = endColumnOf(position)) {
            object.addNumber("endColumn", *end);
        }
    }
}

std::string stepObject(const Step& step, const Origins& origins) {
    JsonObject object;
    if (step.origin == nullptr) {
        return object.addText("kind", "omitted").addNumber("count", step.omitted).json();
    }
    const Origin& origin = *step.origin;
    switch (origin.kind) {
    case Origin::Kind::file:
        object.addText("kind", "include");
        break;
    case Origin::Kind::macro:
        object.addText("kind", "macro").addText("macro", origin.macro);
        break;
    case Origin::Kind::repeat:
        object.addText("kind", "repetition");
        break;
    }
    return object.addText("file", origins[origin.parent].file)
        .addNumber("line", origin.callLine)
        .json();
}

} // namespace

std::string jsonMessage(const Message& message, const Origins& origins) {
    JsonObject object = objectOf("message", message.text);
    object.addText("severity", message.severity == Severity::error ? "error" : "warning");
    if (message.warning) {
        object.addText("warning", rowOf(*message.warning).name);
    }
    addHint(message.text, object);
    addPlace(message.position, origins, object);
    if (message.position.line != nullptr) {
        const Excerpt excerpt = excerptAt(message.position);
        const std::string_view dots = excerpt.isCutAtStart ? "..." : "";
        const std::size_t before = countCharacters(excerpt.text.substr(0, excerpt.column));
        object.addText("source", std::string(dots).append(excerpt.text))
            .addNumber("sourceColumn", dots.size() + before + 1);
    }
    std::string way;
    for (const Step& step : wayTo(message.position, origins)) {
        way += (way.empty() ? "[" : ",") + stepObject(step, origins);
    }
    if (!way.empty()) {
        object.addJson("way", way + "]");
    }
    return object.json() + "\n";
}

std::string jsonRemark(std::string_view severity, std::string_view text) {
    JsonObject object = objectOf("message", text);
    object.addText("severity", severity);
    addHint(text, object);
    return object.json() + "\n";
}

std::string jsonCount(std::string_view text, std::size_t errors, std::size_t warnings) {
    return objectOf("count", text)
               .addNumber("errors", errors)
               .addNumber("warnings", warnings)
               .json() +
           "\n";
}

} // namespace nesasm
