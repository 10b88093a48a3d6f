// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/FileReader.h"

#include <string>
#include <string_view>

namespace nesasm {

/// A source file's text, kept in memory as long as positions may point into it.
class SourceFile {
public:
    /// `path` is where the file was found.
    SourceFile(std::string path, FileContents contents);

    const std::string& path() const { return m_path; }
    /// The text without a byte-order mark, followed by a line feed.
    std::string_view text() const { return m_text; }
    /// All bytes of the file, the mark too.
    std::string_view bytes() const { return m_contents.view(); }
    bool hasCarriageReturns() const { return m_hasCarriageReturns; }

private:
    std::string m_path;
    FileContents m_contents;
    std::string_view m_text;
    bool m_hasCarriageReturns;
};

} // namespace nesasm
