// SPDX-License-Identifier: MIT
#include "assembler/statements/Assembly.h"

#include "assembler/text/Characters.h"
#include "assembler/text/Text.h"

#include <utility>

namespace nesasm {

namespace {

constexpr std::size_t LongestFinding = 24;

} // namespace

Assembly::Assembly(const Options& options, TextSink sink)
    : diagnostics(origins, std::move(sink), options.largestErrorCount, options.colours,
                  options.warnings)
    , finder(options.includeFolders, options.includeList)
    , sources(options.mostWork)
    , recordsLines(options.recordsLines) {}

Position Assembly::at(Cursor p) const {
    return {line.begin.data(), line.number, static_cast<std::uint32_t>(p - line.begin), line.origin,
            line.order};
}

Position Assembly::keep(Cursor p) {
    Position position = at(p);
    origins[line.origin].kept = true;
    if (line.isShortLived) {
        position.line = arena.keepLine(line.begin.upTo(line.begin.lineEnd())).data();
    }
    return position;
}

void Assembly::markBroken(std::string_view name) {
    Symbol& symbol = symbols[intern(name)];
    if (!symbol.isDefined) {
        symbol.isDefined = symbol.isBroken = true;
    }
}

bool Assembly::expectEnd(Cursor p, std::string_view remedy) {
    p.skipBlanks();
    if (p.isAtStatementEnd()) {
        return true;
    }
    const bool isIndex = (lowered(*p) == 'x' || lowered(*p) == 'y') && !isWordPart(p[1]);
    std::string text = "the statement should end here, but " + foundText(p) + " follows";
    if (!remedy.empty()) {
        text += remedy;
    } else if (isIndex) {
        text += "; a comma belongs before an index";
    } else {
        text += *p == ':' ? "; a colon stands only where a label is defined" : commentRemedy(p);
    }
    error(p, std::move(text));
    return false;
}

void Assembly::reportExcess(std::size_t excess, Cursor p) {
    if (!image.isRam()) {
        if (!m_overflows.empty() && m_overflows.back().bank == image.bank() &&
            !m_overflows.back().isOver) {
            m_overflows.back().excess += excess;
        } else {
            m_overflows.push_back({keep(p), image.bank(), excess, false});
        }
        return;
    }
    if (std::exchange(sectionErrorReported, true)) {
        return;
    }
    const std::string name = image.section() == Section::bss ? ".bss" : ".zp";
    error(
        p,
        name +
            " only reserves RAM: code and data belong behind .code or .data (use .ds to reserve)");
}

void Assembly::noteMove() {
    if (!m_overflows.empty()) {
        m_overflows.back().isOver = true;
    }
}

void Assembly::noteOverwriting() {
    const Image::Overwritten bytes = image.takeOverwritten();
    if (!diagnostics.isOn(Warning::overwrite)) {
        return;
    }
    if (!m_overwritings.empty()) {
        Image::Overwritten& last = m_overwritings.back().bytes;
        if (last.bank == bytes.bank && last.offset + last.count == bytes.offset) {
            last.count += bytes.count;
            return;
        }
    }
    m_overwritings.push_back({keep(line.begin.afterBlanks()), bytes});
}

void Assembly::reportPlaces() {
    for (const Overflow& overflow : m_overflows) {
        diagnostics.error(overflow.position,
                          "bank " + std::to_string(overflow.bank) + " is full: it overflows by " +
                              counted(overflow.excess, "byte") +
                              ", beginning here; move something into another .bank");
    }
    for (const Overwriting& each : m_overwritings) {
        diagnostics.warning(Warning::overwrite, each.position,
                            counted(each.bytes.count, "byte") + ", from bank " +
                                std::to_string(each.bytes.bank) + " offset " +
                                hexText(each.bytes.offset) +
                                " on, had been written before: the later bytes win");
    }
}

const char* commentRemedy(Cursor p) {
    const bool isForeign = (*p == '#' && (isBlank(p[1]) || p[1] == '#')) ||
                           (*p == '/' && (p[1] == '/' || p[1] == '*'));
    return isForeign ? "; a comment begins with a ;" : "";
}

std::string foundText(Cursor p) {
    if (p.isAtLineEnd() || *p == ';') {
        return "the end of the statement";
    }
    if (*p == '\'') {
        return "a single quote";
    }
    const std::string_view rest = p.upTo(p.lineEnd());
    const std::string_view found =
        isWordPart(*p) ? p.word() : rest.substr(0, characterLength(rest));
    return found.size() <= LongestFinding
               ? quoted(found)
               : quoted(std::string(found.substr(0, LongestFinding)).append("..."));
}

} // namespace nesasm
