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

Position Assembly::at(const char* p) const {
    return {line.begin, line.number, static_cast<std::uint32_t>(p - line.begin), line.origin,
            line.order};
}

Position Assembly::keep(const char* p) {
    Position position = at(p);
    origins[line.origin].kept = true;
    if (line.isShortLived) {
        const char* const end = lineEnd(line.begin);
        position.line =
            arena.keepLine({line.begin, static_cast<std::size_t>(end - line.begin)}).data();
    }
    return position;
}

void Assembly::markBroken(std::string_view name) {
    Symbol& symbol = symbols[intern(name)];
    if (!symbol.isDefined) {
        symbol.isDefined = symbol.isBroken = true;
    }
}

bool Assembly::expectEnd(const char* p, std::string_view remedy) {
    p = skipBlanks(p);
    if (endsStatement(*p)) {
        return true;
    }
    const bool isIndex = (lowered(*p) == 'x' || lowered(*p) == 'y') && !isWordPart(p[1]);
    std::string text = "expected the end of the statement, found " + foundText(p);
    if (!remedy.empty()) {
        text += remedy;
    } else if (isIndex) {
        text += "; a comma belongs before an index";
    } else {
        text += *p == ':' ? "; only the definition of a label has a colon" : commentRemedy(p);
    }
    error(p, std::move(text));
    return false;
}

void Assembly::reportExcess(std::size_t excess, const char* p) {
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
    error(p,
          name + " only reserves RAM: code and data belong in .code or .data (use .ds to reserve)");
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
    m_overwritings.push_back({keep(skipBlanks(line.begin)), bytes});
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
                            "this overwrites " + counted(each.bytes.count, "byte") +
                                ", from bank " + std::to_string(each.bytes.bank) + " offset " +
                                hexText(each.bytes.offset) + " on: the later bytes win");
    }
}

const char* commentRemedy(const char* p) {
    const bool isForeign = (*p == '#' && (isBlank(p[1]) || p[1] == '#')) ||
                           (*p == '/' && (p[1] == '/' || p[1] == '*'));
    return isForeign ? "; a comment begins with a ;" : "";
}

std::string foundText(const char* p) {
    if (isLineEnd(*p) || *p == ';') {
        return "the end of the statement";
    }
    if (*p == '\'') {
        return "a single quote";
    }
    const char* end = p;
    if (isWordPart(*p)) {
        end = wordEnd(p);
    } else {
        const auto length = static_cast<std::size_t>(lineEnd(p) - p);
        end = p + characterLength({p, length});
    }
    const bool isLong = static_cast<std::size_t>(end - p) > LongestFinding;
    if (!isLong) {
        return quoted({p, static_cast<std::size_t>(end - p)});
    }
    return quoted(std::string(p, LongestFinding).append("..."));
}

} // namespace nesasm
