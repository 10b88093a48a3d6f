// SPDX-License-Identifier: MIT
#include "assembler/run/Program.h"

#include "assembler/output/ImageFile.h"
#include "assembler/output/Listing.h"
#include "assembler/output/StaleLabels.h"
#include "assembler/run/Assembler.h"
#include "assembler/run/CommandLine.h"
#include "assembler/run/SideFiles.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <new>
#include <string>

namespace nesasm {

namespace {

constexpr std::string_view VersionLine = "NESasm " KESTREL_VERSION "\n";

bool wantsColours(CommandLine::Colours colours, const Surroundings& surroundings) {
    if (!surroundings.isTerminal || colours == CommandLine::Colours::never) {
        return false;
    }
    return colours == CommandLine::Colours::always || !surroundings.refusesColours;
}

std::string unwritable(const std::string& path, const std::string& problem) {
    return printable("error: the output '" + path + "' cannot be written: " + problem) + "\n";
}

/// Reports it and returns false when `path` is one of the files read.
bool isFree(const std::string& path, const Assembler& assembler, const TextSink& sink) {
    const auto identity = identify(path);
    if (!identity || !assembler.hasRead(*identity)) {
        return true;
    }
    sink(printable("error: the output '" + path +
                   "' is also an input file: it was not overwritten") +
         "\n");
    return false;
}

/// The formats that the command line or the source asks for.
LabelFormats labelFormats(const CommandLine& line, const Assembler& assembler) {
    LabelFormats formats = line.labels;
    for (const LabelFormat format : assembler.labelFormats()) {
        addTo(formats, format);
    }
    return formats;
}

/// Writes the files beside the image, and removes those that are not wanted any more. False when
/// one could not be written; that was reported.
bool writeSideFiles(const CommandLine& line, const Assembler& assembler, const TextSink& sink) {
    // The command line alone has been seen to.
    if (!assembler.labelFormats().empty()) {
        if (const Problem problem = sharedOutput(line, assembler.labelFormats())) {
            sink(printable("error: " + *problem) + "\n");
            return false;
        }
    }
    const FinishedProgram program = assembler.program();
    const std::vector<SideFile> labels =
        labelFiles(program, line.output, labelFormats(line, assembler));
    std::vector<SideFile> files = labels;
    if (!line.listing.empty()) {
        files.push_back({line.listing, listingText(program, line.listsExpansions)});
    }
    const bool isWritten = std::ranges::all_of(files, [&](const SideFile& file) {
        if (!isFree(file.path, assembler, sink)) {
            return false;
        }
        const Problem problem = writeImageFile(file.path, {file.text.begin(), file.text.end()});
        if (problem) {
            sink(unwritable(file.path, *problem));
        }
        return !problem;
    });
    if (isWritten) {
        removeStaleLabels(line.output, labels, [&](const std::string& path) {
            const auto identity = identify(path);
            return identity && assembler.hasRead(*identity);
        });
    }
    return isWritten;
}

int build(const CommandLine& line, const TextSink& sink) {
    Assembler assembler(line.options, sink);
    const Assembler::Result result = assembler.run();
    if (!isFree(line.output, assembler, sink)) {
        return WrongUse;
    }
    if (result != Assembler::Result::built) {
        removeOldImage(line.output);
        return result == Assembler::Result::errors ? SourceErrors : WrongUse;
    }
    if (!writeSideFiles(line, assembler, sink)) {
        removeOldImage(line.output);
        return WrongUse;
    }
    if (const Problem problem = writeImageFile(line.output, imageFile(assembler.image()))) {
        removeOldImage(line.output);
        sink(unwritable(line.output, *problem));
        return WrongUse;
    }
    sink(summaryLine(line.output, assembler.image()));
    if (line.isVerbose) {
        sink(bankLines(assembler.image()));
    }
    return Built;
}

/// Removes an older image at the output of a call that is refused, unless the call would read it.
void removeRefusedImage(const CommandLine& line) {
    if (line.output.empty()) {
        return;
    }
    if (!line.options.input.empty()) {
        // Only the sources tell which files are read; what they say does not matter here.
        Assembler assembler(line.options, [](std::string_view) {});
        assembler.run();
        const auto identity = identify(line.output);
        if (identity && assembler.hasRead(*identity)) {
            return;
        }
    }
    removeOldImage(line.output);
}

int refuse(const CommandLine& line, const std::string& problem, const TextSink& sink) {
    sink(printable("error: " + problem) + "\nNESasm --help lists the options.\n");
    removeRefusedImage(line);
    return WrongUse;
}

int buildOrRefuse(const CommandLine& line, const Problem& problem, const TextSink& sink) {
    try {
        return problem ? refuse(line, *problem, sink) : build(line, sink);
    } catch (const std::bad_alloc&) {
        if (!problem) {
            removeOldImage(line.output);
        }
        sink("error: there is not enough memory for this program\n");
        return WrongUse;
    }
}

} // namespace

int runProgram(std::span<const std::string_view> arguments, const Surroundings& surroundings,
               const TextSink& sink) {
    CommandLine line;
    Problem problem = readCommandLine(arguments, line);
    if (!problem && line.wish == CommandLine::Wish::assemble) {
        problem = sharedOutput(line);
    }
    if (!problem && line.wish != CommandLine::Wish::assemble) {
        sink(line.wish == CommandLine::Wish::help ? helpText() : std::string(VersionLine));
        return Built;
    }
    line.options.includeList = surroundings.includeList;
    line.options.colours = wantsColours(line.colours, surroundings);
    return buildOrRefuse(line, problem, sink);
}

} // namespace nesasm
