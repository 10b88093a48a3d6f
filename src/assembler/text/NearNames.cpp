// SPDX-License-Identifier: MIT
#include "assembler/text/NearNames.h"

#include "assembler/text/Characters.h"
#include "assembler/text/Text.h"

#include <algorithm>

namespace nesasm {

namespace {

constexpr std::size_t LongestName = 40;
constexpr std::size_t LargestDistance = 3;

} // namespace

std::size_t editDistance(std::string_view a, std::string_view b, std::size_t limit) {
    const std::size_t longer = std::max(a.size(), b.size());
    const std::size_t shorter = std::min(a.size(), b.size());
    if (longer - shorter > limit || longer > LongestName) {
        return limit + 1;
    }
    // Three rows of the table of distances between the beginnings of both texts.
    using Row = std::array<std::size_t, LongestName + 1>;
    Row before{};
    Row last{};
    Row row{};
    for (std::size_t j = 0; j <= b.size(); ++j) {
        last[j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        std::size_t least = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool same = lowered(a[i - 1]) == lowered(b[j - 1]);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && lowered(a[i - 1]) == lowered(b[j - 2]) &&
                lowered(a[i - 2]) == lowered(b[j - 1])) {
                row[j] = std::min(row[j], before[j - 2] + 1);
            }
            least = std::min(least, row[j]);
        }
        if (least > limit) {
            return limit + 1;
        }
        before = last;
        last = row;
    }
    return last[b.size()];
}

NearNames::NearNames(std::string_view wanted)
    : m_wanted(wanted)
    , m_limit(std::clamp<std::size_t>(wanted.size() / 4, 1, LargestDistance)) {}

void NearNames::consider(std::string_view candidate, std::string_view shown) {
    const std::size_t distance = editDistance(m_wanted, candidate, m_limit);
    if (distance > m_limit || distance >= std::max(m_wanted.size(), candidate.size())) {
        return;
    }
    // After those with the same distance: the first ones found stay.
    std::size_t place = m_count;
    for (; place > 0 && m_names[place - 1].distance > distance; --place) {
        m_names[place] = m_names[place - 1];
    }
    m_names[place] = {shown.empty() ? candidate : shown, distance};
    m_count = std::min(m_count + 1, MostNames);
}

std::string NearNames::question() const {
    std::string text;
    for (std::size_t i = 0; i < m_count && m_names[i].distance == m_names[0].distance; ++i) {
        text.append(i == 0 ? "; did you mean " : " or ").append(quoted(m_names[i].text));
    }
    return text.append(text.empty() ? "" : "?");
}

} // namespace nesasm
