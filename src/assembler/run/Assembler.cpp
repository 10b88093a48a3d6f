// SPDX-License-Identifier: MIT
#include "assembler/run/Assembler.h"

#include "assembler/expressions/ExpressionParser.h"
#include "assembler/expressions/FieldWriter.h"
#include "assembler/expressions/OperandHints.h"
#include "assembler/reading/FileFinder.h"
#include "assembler/reading/FileStore.h"
#include "assembler/state/Frames.h"
#include "assembler/state/ImageWriter.h"
#include "assembler/state/Names.h"
#include "assembler/state/Reporter.h"
#include "assembler/state/Statement.h"
#include "assembler/statements/Directives.h"
#include "assembler/statements/LineAssembler.h"
#include "assembler/statements/Resolver.h"
#include "assembler/statements/StatementAssembler.h"
#include "assembler/text/Arena.h"
#include "assembler/text/Text.h"

#include <utility>

namespace nesasm {

/// The parts of one run, each made of those before it that it needs.
struct Assembler::Run {
    Run(const Options& options, TextSink sink)
        : diagnostics(origins, std::move(sink), options.largestErrorCount, options.form,
                      options.warnings)
        , finder(options.includeFolders, options.includeList)
        , sources(options.mostWork)
        , records(arena, origins, options.recordsLines)
        , names(statement.line, symbols, arena, options.takesNotes ? &notes : nullptr) {}

    Arena arena;
    Origins origins;
    Diagnostics diagnostics;
    FileFinder finder;
    FileStore files;
    SymbolTable symbols;
    Deferred deferred;
    SourceStack sources;
    Conditionals conditionals;
    LineRecords records;
    ProgramNotes notes{origins};

    Statement statement;
    Reporter reporter{statement.line, diagnostics, origins, arena};
    Names names;
    ImageWriter writer{reporter};
    Image& image = writer.image();
    Frames frames{sources, origins, conditionals, diagnostics, statement, arena};

    ExpressionParser parser{statement, names, reporter, deferred};
    FieldWriter fields{parser, writer, reporter, deferred};
    OperandHints hints{diagnostics, symbols, image};

    Definitions definitions{statement, parser, names, image, reporter, deferred, origins};
    DataDirectives data{statement, parser, fields, writer, reporter};
    PlaceDirectives places{parser, writer, reporter};
    FileDirectives included{finder, files, parser, frames, writer, reporter};
    MacroDirectives macros{
        Directives::vocabulary(), parser, names, frames, records, reporter, arena};
    FlowDirectives flow{parser, names, conditionals, sources, reporter, deferred};
    ListingDirectives listing{records, reporter};
    LabelDirectives labels{records, reporter};
    Directives directives{
        Directives::Parts{definitions, data, places, included, macros, flow, listing, labels}};
    InstructionAssembler instructions{statement, parser, fields, hints, writer, reporter};
    StatementAssembler statements{names, reporter, instructions, directives, definitions, macros};
    LineAssembler lines{statement, frames,     conditionals, names,  writer,
                        records,   statements, directives,   macros, flow};
    Resolver resolver{symbols, deferred, image, origins, hints, reporter};
};

Assembler::Assembler(Options options, TextSink sink)
    : m_options(std::move(options))
    , m_sink(std::move(sink))
    , m_run(std::make_unique<Run>(m_options, m_sink)) {}

Assembler::~Assembler() = default;

Assembler::Result Assembler::run() {
    const Result result = assemble();
    if (!m_run->labels.needsLines()) {
        return result;
    }
    m_options.recordsLines = true;
    m_run = std::make_unique<Run>(m_options, m_sink);
    return assemble();
}

Assembler::Result Assembler::assemble() {
    for (const auto& [name, value] : m_options.definitions) {
        m_run->names.predefine(name, value);
    }
    if (const Problem problem = m_run->included.openInput(m_options.input)) {
        m_sink(errorText(m_options.form,
                         "the input '" + m_options.input + "' cannot be read: " + *problem));
        return Result::unreadable;
    }
    m_run->lines.run();
    if (m_run->labels.needsLines()) {
        return Result::built;
    }
    m_run->image.finish();
    if (!m_run->diagnostics.limitReached()) {
        m_run->resolver.run();
        m_run->resolver.reportUnused(m_run->definitions.definitions());
        m_run->writer.reportPlaces();
        checkHeader();
    }
    m_run->diagnostics.finish();
    return m_run->diagnostics.errorCount() == 0 ? Result::built : Result::errors;
}

void Assembler::checkHeader() {
    const Header& header = m_run->image.header;
    const std::uint32_t announced = header.prg * 2 + header.chr;
    const std::uint32_t present = m_run->image.bankCount();
    if (m_run->diagnostics.errorCount() != 0) {
        return;
    }
    if (announced == present) {
        checkVectors();
        return;
    }
    const Position& place = m_run->image.header.position;
    if (place.order == 0) {
        m_run->diagnostics.warning(
            Warning::unusedBankGap, place,
            "the header announces no banks, but the file holds " + counted(present, "bank") +
                " of 8 KiB; .inesprg (program, 16 KiB each) and .ineschr (tiles, 8 KiB each) "
                "belong at the start of the source");
        return;
    }
    m_run->diagnostics.warning(Warning::unusedBankGap, place,
                               "the header announces " + counted(announced, "bank") +
                                   " of 8 KiB (.inesprg " + std::to_string(header.prg) +
                                   ", .ineschr " + std::to_string(header.chr) +
                                   "), but the file holds " + std::to_string(present) +
                                   (present < announced ? "; is a .bank missing?"
                                                        : "; .inesprg or .ineschr must be larger"));
}

/// A program whose last bank is empty has no vectors: they went into another bank.
void Assembler::checkVectors() {
    const std::uint32_t prgBanks = m_run->image.header.prg * 2;
    if (prgBanks == 0 || m_run->image.bytesWritten(prgBanks - 1) != 0) {
        return;
    }
    const std::string last = std::to_string(prgBanks - 1);
    m_run->diagnostics.warning(
        Warning::unusedBankGap, m_run->image.header.position,
        "nothing was written to bank " + last +
            ", the last of the program, where the vectors belong: .org never changes the bank; is "
            "a .bank " +
            last + " missing?");
}

const Image& Assembler::image() const {
    return m_run->image;
}

FinishedProgram Assembler::program() const {
    return {m_run->image, m_run->symbols, m_run->origins, m_run->records.all(), m_run->notes};
}

const LabelFormats& Assembler::labelFormats() const {
    return m_run->labels.formats();
}

bool Assembler::hasRead(const FileIdentity& identity) const {
    return m_run->files.hasRead(identity);
}

} // namespace nesasm
