// SPDX-License-Identifier: MIT
#include "assembler/run/Assembler.h"

#include "assembler/statements/Assembly.h"
#include "assembler/statements/Resolver.h"
#include "assembler/statements/StatementAssembler.h"
#include "assembler/text/Text.h"

#include <utility>

namespace nesasm {

Assembler::Assembler(Options options, TextSink sink)
    : m_options(std::move(options))
    , m_sink(std::move(sink))
    , m_assembly(std::make_unique<Assembly>(m_options, m_sink)) {}

Assembler::~Assembler() = default;

Assembler::Result Assembler::run() {
    StatementAssembler statements(*m_assembly);
    for (const auto& [name, value] : m_options.definitions) {
        statements.predefine(name, value);
    }
    if (const std::string problem = statements.openInput(m_options.input); !problem.empty()) {
        m_sink(printable("error: the input '" + m_options.input + "' cannot be read: " + problem) +
               "\n");
        return Result::unreadable;
    }
    statements.run();
    m_assembly->image.finish();
    if (!m_assembly->diagnostics.limitReached()) {
        Resolver(*m_assembly).run();
        m_assembly->reportPlaces();
        checkHeader();
    }
    m_assembly->diagnostics.finish();
    return m_assembly->diagnostics.errorCount() == 0 ? Result::built : Result::errors;
}

void Assembler::checkHeader() {
    const Header& header = m_assembly->image.header;
    const std::uint32_t announced = header.prg * 2 + header.chr;
    const std::uint32_t present = m_assembly->image.bankCount();
    if (m_assembly->diagnostics.errorCount() != 0) {
        return;
    }
    if (announced == present) {
        checkVectors();
        return;
    }
    const Position& place = m_assembly->headerPosition;
    if (place.order == 0) {
        m_assembly->diagnostics.warning(
            Warning::unusedBankGap, place,
            "the header announces no banks, but the file holds " + counted(present, "bank") +
                " of 8 KiB; .inesprg (program, 16 KiB each) and .ineschr (tiles, 8 KiB each) "
                "belong at the start of the source");
        return;
    }
    m_assembly->diagnostics.warning(
        Warning::unusedBankGap, place,
        "the header announces " + counted(announced, "bank") + " of 8 KiB (.inesprg " +
            std::to_string(header.prg) + ", .ineschr " + std::to_string(header.chr) +
            "), but the file holds " + std::to_string(present) +
            (present < announced ? "; is a .bank missing?"
                                 : "; .inesprg or .ineschr must be larger"));
}

/// A program whose last bank is empty has no vectors: they went into another bank.
void Assembler::checkVectors() {
    const std::uint32_t prgBanks = m_assembly->image.header.prg * 2;
    if (prgBanks == 0 || m_assembly->image.bytesWritten(prgBanks - 1) != 0) {
        return;
    }
    const std::string last = std::to_string(prgBanks - 1);
    m_assembly->diagnostics.warning(
        Warning::unusedBankGap, m_assembly->headerPosition,
        "nothing was written in bank " + last +
            ", the last of the program, where the vectors belong: .org never changes the bank; is "
            "a .bank " +
            last + " missing?");
}

const Image& Assembler::image() const {
    return m_assembly->image;
}

FinishedProgram Assembler::program() const {
    return {m_assembly->image, m_assembly->symbols, m_assembly->origins, m_assembly->records.all()};
}

bool Assembler::hasRead(const FileIdentity& identity) const {
    return m_assembly->files.hasRead(identity);
}

} // namespace nesasm
