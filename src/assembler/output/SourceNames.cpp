// SPDX-License-Identifier: MIT
#include "assembler/output/SourceNames.h"

#include "assembler/reading/FileReader.h"
#include "assembler/text/Text.h"

#include <cstdlib>
#include <memory>
#include <string_view>

namespace nesasm {

namespace {

std::string pathFrom(const std::string& folder, std::string_view path) {
    return absolutePath(path.starts_with('/') ? std::string(path) : joinPath(folder, path));
}

} // namespace

std::string absolutePath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> found(
        realpath(path.empty() ? "." : path.c_str(), nullptr), &std::free);
    return found ? std::string(found.get()) : path;
}

Problem SourceNames::read(const std::string& path) {
    FileContents contents;
    if (Problem problem = readFile(path, contents)) {
        return problem;
    }
    const std::string folder = folderOf(path);
    std::string_view rest = contents.view();
    for (std::size_t number = 1; !rest.empty(); ++number) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(line.size() + (line.size() < rest.size() ? 1 : 0));
        const std::size_t tab = line.find('\t');
        if (tab == 0 || tab == std::string_view::npos || tab + 1 == line.size()) {
            return "its line " + std::to_string(number) +
                   " is not a path, a tab and another path; a line names a copy, then the file "
                   "that was copied";
        }
        m_originals[pathFrom(folder, line.substr(0, tab))] = pathFrom(folder, line.substr(tab + 1));
    }
    return {};
}

std::string SourceNames::originalOf(const std::string& path) const {
    const std::string absolute = absolutePath(path);
    const auto original = m_originals.find(absolute);
    return original == m_originals.end() ? absolute : original->second;
}

} // namespace nesasm
