// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/output/FinishedProgram.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace nesasm {

/// True when the line holds no statement.
bool isBlankLine(const LineRecord& record);

/// The bytes that each recorded line of a run has in the image in the end.
class RecordedBytes {
public:
    /// nullopt stands for bytes that a later line overwrote.
    using Bytes = std::vector<std::optional<std::uint8_t>>;

    /// `program` must outlive this.
    explicit RecordedBytes(const FinishedProgram& program);

    /// Adds the bytes of the line with this index.
    void append(std::size_t index, Bytes& bytes) const;

    /// The first byte of the line with this index when its statement is an instruction.
    std::optional<std::uint8_t> opcodeOf(std::size_t index) const;

private:
    const FinishedProgram& m_program;
    /// For each byte of each bank the line that wrote it last; empty where nothing was written.
    std::vector<std::vector<std::uint32_t>> m_owners;
};

} // namespace nesasm
