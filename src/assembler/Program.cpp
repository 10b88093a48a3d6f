#include "assembler/Program.h"

#include "assembler/Assembler.h"
#include "assembler/CommandLine.h"
#include "assembler/ImageFile.h"
#include "assembler/Text.h"

#include <new>
#include <string>

namespace nesasm {

namespace {

constexpr std::string_view kVersionLine = "NESasm " KESTREL_VERSION "\n";

bool wantsColours(CommandLine::Colours colours, const Surroundings& surroundings) {
    if (!surroundings.isTerminal || colours == CommandLine::Colours::Never)
        return false;
    return colours == CommandLine::Colours::Always || !surroundings.refusesColours;
}

int build(const CommandLine& line, const TextSink& sink) {
    Assembler assembler(line.options, sink);
    const Assembler::Result result = assembler.run();
    FileIdentity identity;
    if (identify(line.output, identity) && assembler.hasRead(identity)) {
        sink(printable("error: the output '" + line.output +
                       "' is one of the files that are read: it is left alone") +
             "\n");
        return kWrongUse;
    }
    if (result != Assembler::Result::Built) {
        removeOldImage(line.output);
        return result == Assembler::Result::Errors ? kSourceErrors : kWrongUse;
    }
    if (const std::string problem = writeImageFile(line.output, imageFile(assembler.image()));
        !problem.empty()) {
        removeOldImage(line.output);
        sink(printable("error: the output '" + line.output + "' cannot be written: " + problem) +
             "\n");
        return kWrongUse;
    }
    sink(summaryLine(line.output, assembler.image()));
    if (line.isVerbose)
        sink(bankLines(assembler.image()));
    return kBuilt;
}

} // namespace

int runProgram(std::span<const std::string_view> arguments, const Surroundings& surroundings,
               const TextSink& sink) {
    CommandLine line;
    if (const std::string problem = readCommandLine(arguments, line); !problem.empty()) {
        sink(printable("error: " + problem) + "\nNESasm --help lists the options.\n");
        return kWrongUse;
    }
    if (line.wish != CommandLine::Wish::Assemble) {
        sink(line.wish == CommandLine::Wish::Help ? helpText() : std::string(kVersionLine));
        return kBuilt;
    }
    line.options.includeList = surroundings.includeList;
    line.options.colours = wantsColours(line.colours, surroundings);
    try {
        return build(line, sink);
    } catch (const std::bad_alloc&) {
        removeOldImage(line.output);
        sink("error: there is not enough memory for this program\n");
        return kWrongUse;
    }
}

} // namespace nesasm
