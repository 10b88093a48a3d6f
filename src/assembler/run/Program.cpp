// SPDX-License-Identifier: MIT
#include "assembler/run/Program.h"

#include "assembler/output/ImageFile.h"
#include "assembler/output/ImageSummary.h"
#include "assembler/output/Listing.h"
#include "assembler/output/StaleLabels.h"
#include "assembler/run/Assembler.h"
#include "assembler/run/CommandLine.h"
#include "assembler/run/SideFiles.h"

#include <algorithm>
#include <new>
#include <string>

namespace nesasm {

namespace {

constexpr std::string_view VersionLine = "NESasm " KESTREL_VERSION "\n";

MessageForm formOf(const CommandLine& line, const Surroundings& surroundings) {
    if (line.wantsJson) {
        return MessageForm::json;
    }
    if (!surroundings.isTerminal || line.colours == CommandLine::Colours::never) {
        return MessageForm::plain;
    }
    const bool isColoured =
        line.colours == CommandLine::Colours::always || !surroundings.refusesColours;
    return isColoured ? MessageForm::coloured : MessageForm::plain;
}

std::string unwritable(MessageForm form, const std::string& path, const std::string& problem) {
    return errorText(form, "the output '" + path + "' cannot be written: " + problem);
}

/// Reports it and returns false when `path` is one of the files read.
bool isFree(const std::string& path, const Assembler& assembler, const CommandLine& line,
            const TextSink& sink) {
    const auto identity = identify(path);
    const bool isMap = !line.sourceMap.empty() && identity == identify(line.sourceMap);
    if (!identity || (!assembler.hasRead(*identity) && !isMap)) {
        return true;
    }
    sink(errorText(line.options.form,
                   "the output '" + path + "' is also an input file: it was not overwritten"));
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
bool writeSideFiles(const CommandLine& line, const SourceNames& names, const Assembler& assembler,
                    const TextSink& sink) {
    // The command line alone has been seen to.
    if (!assembler.labelFormats().empty()) {
        if (const Problem problem = sharedOutput(line, assembler.labelFormats())) {
            sink(errorText(line.options.form, *problem));
            return false;
        }
    }
    const FinishedProgram program = assembler.program();
    const std::vector<SideFile> labels =
        labelFiles(program, line.output, labelFormats(line, assembler), names);
    std::vector<SideFile> files = labels;
    if (!line.listing.empty()) {
        files.push_back({line.listing, listingText(program, line.listsExpansions)});
    }
    const bool isWritten = std::ranges::all_of(files, [&](const SideFile& file) {
        if (!isFree(file.path, assembler, line, sink)) {
            return false;
        }
        const Problem problem = writeImageFile(file.path, {file.text.begin(), file.text.end()});
        if (problem) {
            sink(unwritable(line.options.form, file.path, *problem));
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

int build(const CommandLine& line, const SourceNames& names, const TextSink& sink) {
    const MessageForm form = line.options.form;
    Assembler assembler(line.options, sink);
    const Assembler::Result result = assembler.run();
    if (!isFree(line.output, assembler, line, sink)) {
        return WrongUse;
    }
    if (result != Assembler::Result::built) {
        removeOldImage(line.output);
        return result == Assembler::Result::errors ? SourceErrors : WrongUse;
    }
    if (!writeSideFiles(line, names, assembler, sink)) {
        removeOldImage(line.output);
        return WrongUse;
    }
    if (const Problem problem = writeImageFile(line.output, imageFile(assembler.image()))) {
        removeOldImage(line.output);
        sink(unwritable(form, line.output, *problem));
        return WrongUse;
    }
    const bool isJson = form == MessageForm::json;
    sink(summaryLine(line.output, assembler.image(), isJson));
    if (line.isVerbose) {
        sink(bankLines(assembler.image(), isJson));
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
    sink(errorText(line.options.form, problem));
    sink(noteText(line.options.form, "NESasm --help lists the options."));
    removeRefusedImage(line);
    return WrongUse;
}

int readMapAndBuild(const CommandLine& line, const TextSink& sink) {
    SourceNames names;
    if (!line.sourceMap.empty()) {
        if (const Problem problem = names.read(line.sourceMap)) {
            sink(errorText(line.options.form,
                           "the source map '" + line.sourceMap + "' cannot be read: " + *problem));
            removeRefusedImage(line);
            return WrongUse;
        }
    }
    return build(line, names, sink);
}

int buildOrRefuse(const CommandLine& line, const Problem& problem, const TextSink& sink) {
    try {
        return problem ? refuse(line, *problem, sink) : readMapAndBuild(line, sink);
    } catch (const std::bad_alloc&) {
        if (!problem) {
            removeOldImage(line.output);
        }
        sink(errorText(line.options.form, "there is not enough memory for this program"));
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
    line.options.form = formOf(line, surroundings);
    return buildOrRefuse(line, problem, sink);
}

} // namespace nesasm
