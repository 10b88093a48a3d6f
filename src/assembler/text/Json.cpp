// SPDX-License-Identifier: MIT
#include "assembler/text/Json.h"

#include "assembler/text/Text.h"

namespace nesasm {

namespace {

std::string jsonString(std::string_view text) {
    std::string result = "\"";
    for (const char c : printable(text, true)) {
        if (c == '\t') {
            result += "\\t";
            continue;
        }
        if (c == '"' || c == '\\') {
            result += '\\';
        }
        result += c;
    }
    return result += '"';
}

} // namespace

JsonObject& JsonObject::addText(std::string_view name, std::string_view text) {
    return addJson(name, jsonString(text));
}

JsonObject& JsonObject::addNumber(std::string_view name, std::uint64_t number) {
    return addJson(name, std::to_string(number));
}

JsonObject& JsonObject::addJson(std::string_view name, std::string_view json) {
    m_members.append(m_members.empty() ? "{" : ",").append("\"").append(name).append("\":");
    m_members += json;
    return *this;
}

} // namespace nesasm
