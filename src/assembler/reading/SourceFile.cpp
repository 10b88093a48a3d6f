// SPDX-License-Identifier: MIT
#include "assembler/reading/SourceFile.h"

#include <utility>

namespace nesasm {

SourceFile::SourceFile(std::string path, FileContents contents)
    : m_path(std::move(path))
    , m_contents(std::move(contents))
    , m_text(m_contents.view()) {
    if (m_text.starts_with("\xEF\xBB\xBF")) {
        m_text.remove_prefix(3);
    }
    m_hasCarriageReturns = m_text.find('\r') != std::string_view::npos;
}

} // namespace nesasm
