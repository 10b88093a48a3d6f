// SPDX-License-Identifier: MIT
#include "facts/ListingLines.h"

#include <algorithm>
#include <sstream>

namespace kestrel::test {

namespace {

// Where the columns of a row begin.
constexpr std::size_t Mark = 6;
constexpr std::size_t Bank = 7;
constexpr std::size_t Address = 11;
constexpr std::size_t Bytes = 17;
constexpr std::size_t Cycles = 30;
constexpr std::size_t Text = 34;

std::string part(const std::string& row, std::size_t begin, std::size_t end) {
    return begin < row.size() ? row.substr(begin, end - begin) : std::string();
}

/// The bytes that the row shows.
std::uint32_t countBytes(const std::string& row) {
    std::istringstream words(part(row, Bytes, Cycles));
    std::uint32_t count = 0;
    for (std::string word; words >> word;) {
        ++count;
    }
    return count;
}

void addCycles(const std::string& row, ListedLine& line) {
    const std::string cycles = part(row, Cycles, Text);
    if (cycles.find_first_not_of(' ') == std::string::npos) {
        return;
    }
    line.cycles += static_cast<std::uint32_t>(std::stoul(cycles));
    ++line.cycleCounts;
    line.mayBeMore += cycles.find('+') != std::string::npos ? 1 : 0;
}

} // namespace

std::map<std::pair<std::string, std::uint32_t>, ListedLine> readListing(std::string_view listing) {
    std::map<std::pair<std::string, std::uint32_t>, ListedLine> lines;
    ListedLine* line = nullptr;
    std::uint32_t shown = 0; // bytes of the rows since the last number
    std::string file;
    std::istringstream rows{std::string(listing)};
    for (std::string row; std::getline(rows, row) && row.rfind("Symbols:", 0) != 0;) {
        if (row.rfind("--- ", 0) == 0) {
            file = row.substr(4, row.find(", included at ") - 4);
            file = file.substr(file.rfind('/') + 1);
            continue;
        }
        const bool isNumbered = part(row, 0, Mark).find_first_not_of(' ') != std::string::npos;
        const bool isExpansion = part(row, Mark, Mark + 1) == "+";
        if (isNumbered) {
            shown = 0;
        }
        if (isNumbered && !isExpansion) {
            line = &lines[{file, static_cast<std::uint32_t>(std::stoul(row))}];
            line->text = part(row, Text, row.size());
        }
        if (line == nullptr) {
            continue;
        }
        if (const auto more = row.find("... "); !isNumbered && more == Mark + 1) {
            line->bytes += static_cast<std::uint32_t>(std::stoul(row.substr(more + 4))) - shown;
            continue;
        }
        const std::uint32_t bytes = countBytes(row);
        if (isNumbered && part(row, Bank + 3, Address) == ":" &&
            (!isExpansion || (line->bytes == 0 && bytes != 0))) {
            line->hasPlace = true;
            line->address =
                static_cast<std::uint32_t>(std::stoul(part(row, Address, Bytes), nullptr, 16));
            const std::string bank = part(row, Bank, Address - 1);
            line->bank = bank == "   " ? 0 : static_cast<std::uint32_t>(std::stoul(bank));
        }
        line->bytes += bytes;
        shown += bytes;
        addCycles(row, *line);
    }
    return lines;
}

} // namespace kestrel::test
