// SPDX-License-Identifier: MIT
#include "assembler/messages/TextMessages.h"

#include "assembler/messages/MessageParts.h"
#include "assembler/text/Text.h"

namespace nesasm {

namespace {

constexpr std::string_view Bold = "\x1b[1m";
constexpr std::string_view Red = "\x1b[1;31m";
constexpr std::string_view Yellow = "\x1b[1;33m";
constexpr std::string_view Plain = "\x1b[0m";

std::string headline(const Message& message, const Origins& origins, bool isColoured) {
    std::string text;
    const Position& position = message.position;
    if (position.origin != NoOrigin) {
        text = printable(origins[position.origin].file) + ":";
        if (position.number != 0) {
            text +=
                std::to_string(position.number) + ":" + std::to_string(columnOf(position)) + ":";
        }
        text += ' ';
    }
    const bool isError = message.severity == Severity::error;
    if (isColoured) {
        text.insert(0, Bold).append(isError ? Red : Yellow);
    }
    text += isError ? "error: " : "warning: ";
    if (isColoured) {
        text.append(Plain).append(Bold);
    }
    text += printable(message.text);
    if (message.warning) {
        text.append(" [").append(rowOf(*message.warning).name).append("]");
    }
    if (isColoured) {
        text += Plain;
    }
    return text += '\n';
}

/// The source line, and a caret below the place.
std::string quote(const Position& position) {
    const Excerpt excerpt = excerptAt(position);
    const std::string_view dots = excerpt.isCutAtStart ? "..." : "";
    std::string text(dots);
    text += printable(excerpt.text, true);
    text.append("\n").append(dots.size(), ' ');
    for (std::string_view before = excerpt.text.substr(0, excerpt.column); !before.empty();
         before.remove_prefix(characterLength(before))) {
        text += before.front() == '\t' ? '\t' : ' ';
    }
    return text.append("^\n");
}

std::string stepText(const Step& step, const Origins& origins) {
    if (step.origin == nullptr) {
        return "  ... " + std::to_string(step.omitted) + " more ...\n";
    }
    const Origin& origin = *step.origin;
    std::string text;
    switch (origin.kind) {
    case Origin::Kind::file:
        text = "  included at ";
        break;
    case Origin::Kind::macro:
        text = "  in macro " + printable(origin.macro) + " called at ";
        break;
    case Origin::Kind::repeat:
        text = "  in the repetition begun at ";
        break;
    }
    return text + printable(origins[origin.parent].file) + ":" + std::to_string(origin.callLine) +
           "\n";
}

} // namespace

std::string textMessage(const Message& message, const Origins& origins, bool isColoured) {
    std::string text = headline(message, origins, isColoured);
    if (message.position.line != nullptr) {
        text += quote(message.position);
    }
    for (const Step& step : wayTo(message.position, origins)) {
        text += stepText(step, origins);
    }
    return text;
}

} // namespace nesasm
