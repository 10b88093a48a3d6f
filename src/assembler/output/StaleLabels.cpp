// SPDX-License-Identifier: MIT
#include "assembler/output/StaleLabels.h"

#include "assembler/output/DbgFile.h"
#include "assembler/output/ImageFile.h"
#include "assembler/reading/FileReader.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unistd.h>

namespace nesasm {

namespace {

/// Room for the longest first line that is looked at.
constexpr std::size_t LongestFirstLine = 1U << 14U;

/// The first line of the file at `path`, "" when it is too long or cannot be read.
std::string firstLine(const std::string& path) {
    DataFile file;
    if (file.open(path)) {
        return {};
    }
    std::string text(std::min(file.size(), LongestFirstLine), '\0');
    std::size_t got = 0;
    if (file.read(0, text.data(), text.size(), got)) {
        return {};
    }
    const std::size_t end = text.find('\n');
    return end < got ? text.substr(0, end) : std::string();
}

/// True when the first line of the file begins so, and has the mark as its comment or as the
/// beginning of that.
bool hasMarkedComment(const std::string& path, std::string_view begin, char separator) {
    const std::string line = firstLine(path);
    const std::size_t mark = line.find(separator + std::string(LabelMark));
    if (mark == std::string::npos || !line.starts_with(begin)) {
        return false;
    }
    const std::size_t end = mark + 1 + LabelMark.size();
    return end == line.size() || line[end] == ';';
}

bool isOwnMlb(const std::string& path) {
    return hasMarkedComment(path, "Nes", ':');
}

bool isOwnNl(const std::string& path) {
    return hasMarkedComment(path, "$", '#');
}

bool isOwnDbg(const std::string& path) {
    if (!isDbgStart(firstLine(path))) {
        return false;
    }
    FileContents contents;
    return !readFile(path, contents) && isOwnDbgText(contents.view());
}

} // namespace

void removeStaleLabels(const std::string& output, const std::vector<SideFile>& written,
                       const std::function<bool(const std::string&)>& isRead) {
    const auto isWritten = [&](const std::string& path) {
        return std::any_of(written.begin(), written.end(),
                           [&](const SideFile& file) { return file.path == path; });
    };
    const auto remove = [&](const std::string& path) {
        if (!isRead(path)) {
            unlink(writtenPath(path).c_str());
        }
    };
    const std::string mlb = withEnding(output, ".mlb");
    if (!isWritten(mlb) && isOwnMlb(mlb)) {
        remove(mlb);
    }
    const std::string dbg = withEnding(output, ".dbg");
    if (!isWritten(dbg) && isOwnDbg(dbg)) {
        remove(dbg);
    }
    // The first one is that of RAM. It is there whenever one of the others is, and goes last.
    const std::string ram = nlPaths(output, 0).front();
    if (!isWritten(ram) && !isOwnNl(ram)) {
        return;
    }
    std::vector<std::string> paths = nlPaths(output, MostNlBanks);
    std::reverse(paths.begin(), paths.end());
    for (const std::string& path : paths) {
        if (!isWritten(path) && isOwnNl(path)) {
            remove(path);
        }
    }
}

} // namespace nesasm
