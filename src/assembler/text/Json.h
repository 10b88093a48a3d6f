// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nesasm {

/// A JSON object on one line (RFC 8259), made member by member. Names are plain ASCII.
class JsonObject {
public:
    /// Bytes that are no text become U+FFFD, as do control characters but the tab.
    JsonObject& addText(std::string_view name, std::string_view text);
    JsonObject& addNumber(std::string_view name, std::uint64_t number);
    /// A member whose value is JSON already.
    JsonObject& addJson(std::string_view name, std::string_view json);

    std::string json() const { return m_members.empty() ? "{}" : m_members + '}'; }

private:
    std::string m_members; ///< with the opening brace
};

} // namespace nesasm
