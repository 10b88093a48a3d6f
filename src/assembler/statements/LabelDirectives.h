// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/LabelFormats.h"
#include "assembler/reading/LineRecords.h"
#include "assembler/state/Reporter.h"

namespace nesasm {

/// .labels: which label files the source wants beside the image.
class LabelDirectives {
public:
    LabelDirectives(const LineRecords& records, Reporter& reporter)
        : m_records(records)
        , m_reporter(reporter) {}

    /// `p` is at the operand.
    void labels(Cursor p);

    const LabelFormats& formats() const { return m_formats; }
    /// A format needs the lines of the run, and they were not recorded: the run has been stopped,
    /// and another one that records them is to begin from the start.
    bool needsLines() const { return m_needsLines; }

private:
    bool format(Cursor& p);
    void wishForLines();

    const LineRecords& m_records;
    Reporter& m_reporter;
    LabelFormats m_formats;
    bool m_needsLines = false;
};

} // namespace nesasm
