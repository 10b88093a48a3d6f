// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/reading/FileReader.h"
#include "assembler/reading/SourceFile.h"

#include <memory>
#include <string>
#include <vector>

namespace nesasm {

/// Reads the files of a run and remembers which: sources are kept, data is handed over.
class FileStore {
public:
    /// The source at `path`, owned by the store; nullptr when it cannot be read, with `problem`
    /// set. `wasRead` tells whether it had been read before.
    const SourceFile* source(const std::string& path, std::string& problem, bool& wasRead);

    /// The bytes of the file at `path`; returns "" or the problem.
    std::string data(const std::string& path, FileContents& contents);

    /// Opens the file at `path`, of which a part is wanted; returns "" or the problem.
    std::string open(const std::string& path, DataFile& file);

    /// True when `identity` is one of the files read.
    bool hasRead(const FileIdentity& identity) const;

private:
    void remember(const FileIdentity& identity);

    std::vector<std::unique_ptr<SourceFile>> m_sources;
    std::vector<FileIdentity> m_identities;
};

} // namespace nesasm
