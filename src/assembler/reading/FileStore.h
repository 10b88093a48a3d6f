// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/FileReader.h"
#include "assembler/reading/SourceFile.h"
#include "assembler/text/Problem.h"

#include <memory>
#include <string>
#include <vector>

namespace nesasm {

/// Reads the files of a run and remembers which: sources are kept, data is handed over.
class FileStore {
public:
    /// A source, or why it cannot be read.
    struct Source {
        const SourceFile* file = nullptr; ///< owned by the store; nullptr with a problem
        bool wasRead = false;             ///< before
        Problem problem;
    };

    /// The source at `path`.
    Source source(const std::string& path);

    /// Reads the bytes of the file at `path`.
    Problem data(const std::string& path, FileContents& contents);

    /// Opens the file at `path`, of which a part is wanted.
    Problem open(const std::string& path, DataFile& file);

    /// True when `identity` is one of the files read.
    bool hasRead(const FileIdentity& identity) const;

private:
    void remember(const FileIdentity& identity);

    std::vector<std::unique_ptr<SourceFile>> m_sources;
    std::vector<FileIdentity> m_identities;
};

} // namespace nesasm
