// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/LineRecords.h"
#include "assembler/state/Reporter.h"

namespace nesasm {

/// .list and .nolist: which lines the listing shows.
class ListingDirectives {
public:
    ListingDirectives(LineRecords& records, Reporter& reporter)
        : m_records(records)
        , m_reporter(reporter) {}

    // `p` is at the end of the statement.
    void show(Cursor p) { turn(true, p); }
    void hide(Cursor p) { turn(false, p); }

private:
    void turn(bool on, Cursor p) {
        m_records.list(on);
        m_reporter.expectEnd(p);
    }

    LineRecords& m_records;
    Reporter& m_reporter;
};

} // namespace nesasm
