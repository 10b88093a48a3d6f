// SPDX-License-Identifier: MIT
// kestrel-facts: assembles a program in memory and prints what is known of it; it says nothing
// else.
#include "assembler/output/Facts.h"

#include "assembler/run/Assembler.h"

#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>

namespace {

constexpr int Known = 0;
constexpr int SourceErrors = 1;
constexpr int WrongUse = 2;

int printFacts(std::string_view input) {
    nesasm::Options options;
    options.input = input;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): there is one thread
    if (const char* const list = std::getenv("NES_INCLUDE")) {
        options.includeList = list;
    }
    options.largestErrorCount = 1; // nothing is known after that
    options.recordsLines = true;
    options.takesNotes = true;
    nesasm::Assembler assembler(std::move(options), [](std::string_view) {});
    const nesasm::Assembler::Result result = assembler.run();
    if (result != nesasm::Assembler::Result::built) {
        return result == nesasm::Assembler::Result::errors ? SourceErrors : WrongUse;
    }
    const std::string text = nesasm::factsText(assembler.program());
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return isWritten && std::fflush(stdout) == 0 ? Known : WrongUse;
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3 || std::string_view(arguments[1]) != "--input") {
        return WrongUse;
    }
    try {
        return printFacts(arguments[2]);
    } catch (const std::bad_alloc&) {
        return WrongUse;
    }
}
