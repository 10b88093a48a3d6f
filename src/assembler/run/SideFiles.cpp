// SPDX-License-Identifier: MIT
#include "assembler/run/SideFiles.h"

#include "assembler/output/DbgFile.h"
#include "assembler/output/ImageFile.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <utility>

namespace nesasm {

namespace {

/// A file that is written, and the option or directive that asks for it.
struct Output {
    std::string option;
    std::string path;
};

/// The label files of a format, as far as they are known beforehand.
std::vector<std::string> labelPaths(LabelFormat format, const std::string& output) {
    switch (format) {
    case LabelFormat::mlb:
        return {withEnding(output, ".mlb")};
    case LabelFormat::nl:
        return nlPaths(output, MostNlBanks);
    case LabelFormat::dbg:
        return {withEnding(output, ".dbg")};
    }
    return {};
}

std::vector<Output> outputs(const CommandLine& line, const LabelFormats& ofSource) {
    std::vector<Output> all{{"--output", line.output}};
    if (!line.listing.empty()) {
        all.push_back({"--listing", line.listing});
    }
    for (const LabelFormat format : line.labels) {
        for (std::string& path : labelPaths(format, line.output)) {
            all.push_back({"--labels " + std::string(nameOf(format)), std::move(path)});
        }
    }
    for (const LabelFormat format : ofSource) {
        if (!holds(line.labels, format)) {
            for (std::string& path : labelPaths(format, line.output)) {
                all.push_back({".labels \"" + std::string(nameOf(format)) + "\"", std::move(path)});
            }
        }
    }
    return all;
}

} // namespace

Problem sharedOutput(const CommandLine& line, const LabelFormats& ofSource) {
    if (line.listing.empty() && line.labels.empty() && ofSource.empty()) {
        return {};
    }
    std::map<std::string, std::string> known;
    for (const Output& each : outputs(line, ofSource)) {
        const auto [other, isNew] = known.emplace(writtenPath(each.path), each.option);
        if (!isNew) {
            return other->second + " and " + each.option + " would both write the file '" +
                   each.path + "'";
        }
    }
    return {};
}

std::vector<SideFile> labelFiles(const FinishedProgram& program, const std::string& output,
                                 const LabelFormats& formats, const SourceNames& names) {
    std::vector<SideFile> files;
    for (const LabelFormat format : formats) {
        switch (format) {
        case LabelFormat::mlb:
            files.push_back(mlbFile(program, output));
            break;
        case LabelFormat::nl: {
            std::vector<SideFile> several = nlFiles(program, output);
            std::move(several.begin(), several.end(), std::back_inserter(files));
            break;
        }
        case LabelFormat::dbg:
            files.push_back(dbgFile(program, output, names));
            break;
        }
    }
    return files;
}

} // namespace nesasm
