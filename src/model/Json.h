// SPDX-License-Identifier: MIT
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

/// Parses one JSON document, in time proportional to its size. Nothing when `text` is no JSON or is
/// nested deeper than MaximumNesting. Of several members of one name the last one's value stays, at
/// the place of the first; `repeatedMembers`, when given, tells whether there were any.
std::optional<Dictionary> parseJson(std::string_view text, bool* repeatedMembers = nullptr);

/// Writes `value` as UTF-8 JSON: compact when `indent` is negative, else pretty-printed. Nothing
/// when a string in it is not UTF-8 or it is nested deeper than MaximumNesting (it could not be
/// read again).
std::optional<std::string> serialiseJson(const Dictionary& value, int indent = -1);

/// Appends a member to `object` without looking for one of that name: the caller knows that there
/// is none. Unlike `object[key]` it does not search all members, and it moves the members that are
/// there already instead of copying them when room runs out.
Dictionary& appendMember(Dictionary& object, std::string_view key, Dictionary value);

/// The member `key` of `object`; null when `object` is no object or has no such member.
const Dictionary* member(const Dictionary& object, std::string_view key);

/// Whether `value` is an array whose every element is an object.
bool isArrayOfObjects(const Dictionary& value);

/// Whether `value` is an object whose every member is a string.
bool isObjectOfStrings(const Dictionary& value);

/// The string member `key` of `object`; nothing when `object` is no object, the member is missing
/// or is no string.
std::optional<std::string> stringMember(const Dictionary& object, std::string_view key);

} // namespace kestrel
