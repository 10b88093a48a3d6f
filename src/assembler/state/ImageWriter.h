// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/state/Reporter.h"
#include "assembler/values/Image.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace nesasm {

/// Owns the image, puts the bytes of statements into it, and reports those that do not fit or that
/// go over others.
class ImageWriter {
public:
    explicit ImageWriter(Reporter& reporter)
        : m_reporter(reporter) {}

    Image& image() { return m_image; }
    const Image& image() const { return m_image; }

    /// Puts bytes at the present place, for what stands at `place` in the line.
    void emit(const std::uint8_t* bytes, std::size_t count, Cursor place) {
        if (const std::size_t excess = m_image.emit(bytes, count); excess != 0) {
            reportExcess(excess, place);
        }
    }
    /// Notes that `excess` bytes did not fit into the bank or section.
    void reportExcess(std::size_t excess, Cursor place);

    void selectSection(Section section);
    /// As Image::setAddress; what does not fit from now on is another overflow.
    bool setAddress(std::uint32_t address);

    /// Notes bytes that the present statement wrote over others.
    void noteOverwriting();

    /// Says how much each full bank overflowed and what was written twice. To be called when the
    /// source has ended.
    void reportPlaces();

private:
    struct Overflow {
        Position position;
        std::uint32_t bank;
        std::size_t excess;
        bool isOver; ///< the place has been moved away from the end
    };
    /// Bytes in a row that were written over others.
    struct Overwriting {
        Position position;
        Image::Overwritten bytes;
    };

    Image m_image;
    Reporter& m_reporter;
    std::vector<Overflow> m_overflows;
    std::vector<Overwriting> m_overwritings;
    bool m_reportedSection = false; ///< that bytes cannot be in the present section
};

} // namespace nesasm
