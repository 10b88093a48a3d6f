// SPDX-License-Identifier: MIT
#include "assembler/statements/LabelDirectives.h"

#include "assembler/state/QuotedOperand.h"
#include "assembler/text/FoundText.h"
#include "assembler/text/Text.h"

namespace nesasm {

void LabelDirectives::labels(Cursor p) {
    while (format(p)) {
        p.skipBlanks();
        if (*p != ',') {
            if (!p.isAtStatementEnd()) {
                m_reporter.error(p, "expected a comma or the end of the statement, found " +
                                        foundText(p));
            }
            break;
        }
        p = (p + 1).afterBlanks();
    }
    if (holds(m_formats, LabelFormat::dbg)) {
        wishForLines();
    }
}

/// Reads one name and notes its format.
bool LabelDirectives::format(Cursor& p) {
    const Cursor start = p;
    if (*p != '"') {
        m_reporter.error(p, "expected mlb, nl or dbg in double quotes, found " + foundText(p));
        return false;
    }
    const auto name = readQuotedOperand(QuotedKind::text, p, m_reporter);
    if (!name) {
        return false;
    }
    const auto format = findLabelFormat(name->written);
    if (!format) {
        m_reporter.error(start, ".labels takes mlb, nl or dbg in double quotes, not " +
                                    quoted(name->written));
        return false;
    }
    addTo(m_formats, *format);
    return true;
}

/// After an error there will be no label files, so no further run either.
void LabelDirectives::wishForLines() {
    if (!m_records.isOn() && m_reporter.diagnostics().errorCount() == 0) {
        m_needsLines = true;
        m_reporter.diagnostics().stop();
    }
}

} // namespace nesasm
