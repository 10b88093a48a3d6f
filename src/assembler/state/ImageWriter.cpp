// SPDX-License-Identifier: MIT
#include "assembler/state/ImageWriter.h"

#include "assembler/text/Text.h"

#include <string>
#include <utility>

namespace nesasm {

void ImageWriter::reportExcess(std::size_t excess, Cursor place) {
    if (!m_image.isRam()) {
        if (!m_overflows.empty() && m_overflows.back().bank == m_image.bank() &&
            !m_overflows.back().isOver) {
            m_overflows.back().excess += excess;
        } else {
            m_overflows.push_back({m_reporter.keep(place), m_image.bank(), excess, false});
        }
        return;
    }
    if (std::exchange(m_reportedSection, true)) {
        return;
    }
    const std::string name = m_image.section() == Section::bss ? ".bss" : ".zp";
    m_reporter.error(
        place,
        name + " only reserves RAM: code and data belong in .code or .data (use .ds to reserve)");
}

void ImageWriter::selectSection(Section section) {
    m_reportedSection = false;
    m_image.selectSection(section);
}

bool ImageWriter::setAddress(std::uint32_t address) {
    if (!m_overflows.empty()) {
        m_overflows.back().isOver = true;
    }
    return m_image.setAddress(address);
}

void ImageWriter::noteOverwriting() {
    const Image::Overwritten bytes = m_image.takeOverwritten();
    if (!m_reporter.diagnostics().isOn(Warning::overwrite)) {
        return;
    }
    if (!m_overwritings.empty()) {
        Image::Overwritten& last = m_overwritings.back().bytes;
        if (last.bank == bytes.bank && last.offset + last.count == bytes.offset) {
            last.count += bytes.count;
            return;
        }
    }
    m_overwritings.push_back({m_reporter.keep(m_reporter.line().begin.afterBlanks()), bytes});
}

void ImageWriter::reportPlaces() {
    Diagnostics& diagnostics = m_reporter.diagnostics();
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

} // namespace nesasm
