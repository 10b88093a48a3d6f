// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace kestrel {

/// An error as it is handed to a completion handler: a domain and a code for programs, and a
/// sentence for people where there is one. All texts are UTF-8.
struct ErrorValue {
    std::string domain;
    int code = 0;
    std::optional<std::string> description;

    /// The sentence to show: the description, or a general one that names domain and code.
    std::string localizedDescription() const;

    bool operator==(const ErrorValue&) const = default;
};

} // namespace kestrel
