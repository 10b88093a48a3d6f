#pragma once

#include <optional>
#include <string>

namespace kestrel {

/// What a builder reports when a request failed.
struct BuildError {
    std::string domain;                     ///< "" for the builder's own errors
    int code = 0;                           ///< 100 for the builder's own errors
    std::optional<std::string> description; ///< a sentence for a person, when there is one

    bool operator==(const BuildError&) const = default;
};

} // namespace kestrel
