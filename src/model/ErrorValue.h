// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace kestrel {

/// An error for a completion handler: domain and code for programs, an optional description for
/// people. All texts are UTF-8.
struct ErrorValue {
    std::string domain;
    int code = 0;
    std::optional<std::string> description;

    /// The description, or a general sentence with domain and code.
    std::string localizedDescription() const;

    bool operator==(const ErrorValue&) const = default;
};

} // namespace kestrel
