// SPDX-License-Identifier: MIT
#include "assembler/output/LineTotals.h"

#include "assembler/language/Cycles.h"
#include "assembler/output/RecordedBytes.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <vector>

namespace nesasm {

namespace {

/// One time that a statement was assembled.
struct Time {
    const LineRecord* place = nullptr; ///< whose address counts
    std::uint32_t bytes = 0;
    CycleRange cycles;
};

void add(const Time& what, Time& to) {
    if (to.bytes == 0 && what.bytes != 0) {
        to.place = what.place;
    }
    to.bytes += what.bytes;
    to.cycles.least += what.cycles.least;
    to.cycles.most += what.cycles.most;
}

/// Adds up the records one after the other.
class Times {
public:
    explicit Times(const FinishedProgram& program)
        : m_program(program)
        , m_times(program.lines.size()) {
        const RecordedBytes bytes(program);
        for (std::size_t i = 0; i < program.lines.size(); ++i) {
            const LineRecord& record = program.lines[i];
            if (!record.isStatement) {
                continue;
            }
            Time time{&record, record.size, {}};
            if (const auto opcode = bytes.opcodeOf(i)) {
                time.cycles = cycleRange(*opcode);
            }
            m_times[i] = time;
            addToCalls(record.origin, time);
            m_latest[record.origin] = i;
        }
    }

    const Time& operator[](std::size_t index) const { return m_times[index]; }

private:
    /// What a macro makes counts for its call, and for the call of the macro which that is in. The
    /// call is the statement that was assembled last where it stands.
    void addToCalls(OriginId id, const Time& time) {
        for (const Origin* origin = &m_program.origins[id]; origin->kind != Origin::Kind::file;
             origin = &m_program.origins[origin->parent]) {
            const auto call = m_latest.find(origin->parent);
            if (origin->kind == Origin::Kind::macro && call != m_latest.end()) {
                add(time, m_times[call->second]);
            }
        }
    }

    const FinishedProgram& m_program;
    std::vector<Time> m_times; ///< by record
    std::unordered_map<OriginId, std::size_t> m_latest;
};

} // namespace

LineTotals lineTotals(const FinishedProgram& program) {
    const Times times(program);
    LineTotals totals;
    for (std::size_t i = 0; i < program.lines.size(); ++i) {
        const LineRecord& record = program.lines[i];
        if (!record.isStatement || record.file == nullptr || isBlankLine(record)) {
            continue;
        }
        const Time& time = times[i];
        LineTotal& total = totals[record.file][record.number];
        if (total.bytes == 0 && (total.times == 0 || time.bytes != 0)) {
            total.address = time.place->address;
            total.bank = time.place->isRam ? LineTotal::NoBank : time.place->bank;
        }
        total.leastCycles =
            total.times == 0 ? time.cycles.least : std::min(total.leastCycles, time.cycles.least);
        total.mostCycles = std::max(total.mostCycles, time.cycles.most);
        total.bytes += time.bytes;
        ++total.times;
    }
    return totals;
}

} // namespace nesasm
