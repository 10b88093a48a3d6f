// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

/// A JSON value. The members of an object keep their order.
using Dictionary = nlohmann::ordered_json;

/// The deepest nesting of objects, and of arrays, in a document that is read or written. A project
/// tree uses one of each per level, so 1,000 levels.
inline constexpr int MaximumNesting = 1000;

/// Parses one JSON document in linear time. Nothing when `text` is not JSON or is nested deeper
/// than MaximumNesting. A repeated member keeps its first place and its last value;
/// `repeatedMembers`, if not null, is set to whether there were any. `reason` as for giveReason;
/// for a text that is not JSON it holds line and column, which are counted in bytes.
std::optional<Dictionary> parseJson(std::string_view text, bool* repeatedMembers = nullptr,
                                    std::string* reason = nullptr);

/// Writes `value` as JSON in UTF-8: compact when `indent` is negative, else pretty-printed. Nothing
/// when a string in it is not UTF-8 or it is nested deeper than MaximumNesting.
std::optional<std::string> serialiseJson(const Dictionary& value, int indent = -1);

/// Appends a member to `object`, which must have none of that name. Unlike `object[key]` it does
/// not search the members, and moves instead of copies them when it has to grow.
Dictionary& appendMember(Dictionary& object, std::string_view key, Dictionary value);

/// The member `key` of `object`; nullptr when there is none or `object` is not an object.
const Dictionary* member(const Dictionary& object, std::string_view key);

/// Whether `value` is an array whose every element is an object.
bool isArrayOfObjects(const Dictionary& value);

/// Whether `value` is an object whose every member is a string.
bool isObjectOfStrings(const Dictionary& value);

/// The string member `key` of `object`; nothing when there is none, it is not a string, or `object`
/// is not an object.
std::optional<std::string> stringMember(const Dictionary& object, std::string_view key);

} // namespace kestrel
