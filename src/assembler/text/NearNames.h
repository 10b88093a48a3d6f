// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace nesasm {

/// Collects the known names that are nearest to a misspelled one.
class NearNames {
public:
    /// `wanted` is what was written; it must outlive this, as must the candidates.
    explicit NearNames(std::string_view wanted);

    /// Keeps `candidate` when it is among the nearest so far. The question shows `shown` instead
    /// of it unless that is empty.
    void consider(std::string_view candidate, std::string_view shown = {});

    bool isEmpty() const { return m_count == 0; }

    /// "; did you mean 'this' or 'that'?", "" when nothing is near.
    std::string question() const;

private:
    static constexpr std::size_t MostNames = 3;
    struct Name {
        std::string_view text;
        std::size_t distance = 0;
    };

    std::string_view m_wanted;
    std::size_t m_limit;
    std::array<Name, MostNames + 1> m_names;
    std::size_t m_count = 0;
};

/// The least number of letters to be inserted, dropped, changed or swapped with their neighbours
/// that makes one text of the other, letter case aside; more than `limit` when it is more.
std::size_t editDistance(std::string_view a, std::string_view b, std::size_t limit);

} // namespace nesasm
