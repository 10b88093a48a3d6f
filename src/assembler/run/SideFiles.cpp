// SPDX-License-Identifier: MIT
#include "assembler/run/SideFiles.h"

#include "assembler/output/DbgFile.h"
#include "assembler/output/ImageFile.h"
#include "assembler/output/Listing.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <string_view>
#include <utility>

namespace nesasm {

namespace {

/// PRG has no more banks of 16 KiB: the header counts them in one byte.
constexpr std::uint32_t MostNlBanks = 255;

/// A file that is written, and the option that asks for it.
struct Output {
    std::string_view option;
    std::string path;
};

std::vector<Output> outputs(const CommandLine& line) {
    std::vector<Output> all{{"--output", line.output}};
    if (!line.listing.empty()) {
        all.push_back({"--listing", line.listing});
    }
    for (const CommandLine::Labels format : line.labels) {
        switch (format) {
        case CommandLine::Labels::mlb:
            all.push_back({"--labels mlb", withEnding(line.output, ".mlb")});
            break;
        case CommandLine::Labels::nl:
            for (std::string& path : nlPaths(line.output, MostNlBanks)) {
                all.push_back({"--labels nl", std::move(path)});
            }
            break;
        case CommandLine::Labels::dbg:
            all.push_back({"--labels dbg", withEnding(line.output, ".dbg")});
            break;
        }
    }
    return all;
}

} // namespace

Problem sharedOutput(const CommandLine& line) {
    if (line.listing.empty() && line.labels.empty()) {
        return {};
    }
    std::map<std::string, std::string_view> known;
    for (const Output& each : outputs(line)) {
        const auto [other, isNew] = known.emplace(writtenPath(each.path), each.option);
        if (!isNew) {
            return std::string(other->second) + " and " + std::string(each.option) +
                   " would both write the file '" + each.path + "'";
        }
    }
    return {};
}

std::vector<SideFile> sideFiles(const FinishedProgram& program, const CommandLine& line) {
    std::vector<SideFile> files;
    for (const CommandLine::Labels format : line.labels) {
        switch (format) {
        case CommandLine::Labels::mlb:
            files.push_back(mlbFile(program, line.output));
            break;
        case CommandLine::Labels::nl: {
            std::vector<SideFile> several = nlFiles(program, line.output);
            std::move(several.begin(), several.end(), std::back_inserter(files));
            break;
        }
        case CommandLine::Labels::dbg:
            files.push_back(dbgFile(program, line.output));
            break;
        }
    }
    if (!line.listing.empty()) {
        files.push_back({line.listing, listingText(program, line.listsExpansions)});
    }
    return files;
}

} // namespace nesasm
