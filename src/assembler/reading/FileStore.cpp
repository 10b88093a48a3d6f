// SPDX-License-Identifier: MIT
#include "assembler/reading/FileStore.h"

#include <algorithm>
#include <utility>

namespace nesasm {

FileStore::Source FileStore::source(const std::string& path) {
    const auto known = std::find_if(m_sources.begin(), m_sources.end(),
                                    [&](const auto& file) { return file->path() == path; });
    if (known != m_sources.end()) {
        return {known->get(), true, {}};
    }
    FileContents contents;
    if (Problem problem = data(path, contents)) {
        return {nullptr, false, std::move(problem)};
    }
    m_sources.push_back(std::make_unique<SourceFile>(path, std::move(contents)));
    return {m_sources.back().get(), false, {}};
}

Problem FileStore::data(const std::string& path, FileContents& contents) {
    Problem problem = readFile(path, contents);
    if (!problem) {
        remember(contents.identity);
    }
    return problem;
}

Problem FileStore::open(const std::string& path, DataFile& file) {
    Problem problem = file.open(path);
    if (!problem) {
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
