#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

/// A JSON object or value whose members keep the order in which they were written.
using Dictionary = nlohmann::ordered_json;

/// The deepest nesting of objects, and of arrays, that a document may have: a project tree uses one
/// object and one array a level, so a tree of 1,000 levels is the deepest that is read or written.
inline constexpr int MaximumNesting = 1000;

/// Parses one JSON document. Nothing when `text` is no JSON or is nested deeper than
/// MaximumNesting.
std::optional<Dictionary> parseJson(std::string_view text);

/// Writes `value` as UTF-8 JSON: compact when `indent` is negative, else pretty-printed. Nothing
/// when a string in it is not UTF-8 or it is nested deeper than MaximumNesting (it could not be
/// read again).
std::optional<std::string> serialiseJson(const Dictionary& value, int indent = -1);

/// The string member `key` of `object`; nothing when `object` is no object, the member is missing
/// or is no string.
std::optional<std::string> stringMember(const Dictionary& object, const char* key);

} // namespace kestrel
