// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace kestrel {

/// Tells contents apart without keeping them. Not for security: it is easy to make two contents
/// with one fingerprint, but it does not happen by itself.
struct Fingerprint {
    std::uint64_t size = 0;
    std::uint64_t hash = 0; ///< FNV-1a, 64 bits

    bool operator==(const Fingerprint&) const = default;
};

/// Takes time in proportion to the size.
constexpr Fingerprint fingerprintOf(std::string_view content) {
    constexpr std::uint64_t Start = 0xCBF29CE484222325U;
    constexpr std::uint64_t Prime = 0x100000001B3U;
    std::uint64_t hash = Start;
    for (const char character : content) {
        hash = (hash ^ static_cast<unsigned char>(character)) * Prime;
    }
    return {content.size(), hash};
}

} // namespace kestrel
