// SPDX-License-Identifier: MIT
#include "assembler/reading/FileStore.h"

#include <algorithm>
#include <utility>

namespace nesasm {

const SourceFile* FileStore::source(const std::string& path, std::string& problem, bool& wasRead) {
    const auto known = std::find_if(m_sources.begin(), m_sources.end(),
                                    [&](const auto& file) { return file->path() == path; });
    wasRead = known != m_sources.end();
    if (wasRead) {
        return known->get();
    }
    FileContents contents;
    problem = data(path, contents);
    if (!problem.empty()) {
        return nullptr;
    }
    m_sources.push_back(std::make_unique<SourceFile>(path, std::move(contents)));
    return m_sources.back().get();
}

std::string FileStore::data(const std::string& path, FileContents& contents) {
    std::string problem = readFile(path, contents);
    if (problem.empty()) {
        remember(contents.identity);
    }
    return problem;
}

std::string FileStore::open(const std::string& path, DataFile& file) {
    std::string problem = file.open(path);
    if (problem.empty()) {
        remember(file.identity());
    }
    return problem;
}

void FileStore::remember(const FileIdentity& identity) {
    if (!hasRead(identity)) {
        m_identities.push_back(identity);
    }
}

bool FileStore::hasRead(const FileIdentity& identity) const {
    return std::find(m_identities.begin(), m_identities.end(), identity) != m_identities.end();
}

} // namespace nesasm
