// SPDX-License-Identifier: MIT
#include "assembler/GoldenFolder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace kestrel::test {

namespace fs = std::filesystem;

namespace {

/// Files beside a source from this size on are shared; smaller ones show with their case what it is
/// about.
constexpr std::uintmax_t LongFile = 64;

bool isOfACase(const fs::path& path) {
    static const std::set<std::string> endings{".asm", ".hex", ".out", ".status", ".run"};
    return endings.contains(path.extension().string());
}

/// The source of the case that a file or folder beside it belongs to, there or not.
fs::path sourceOf(const fs::directory_entry& entry) {
    fs::path source = entry.path();
    if (entry.is_directory() && source.extension() != ".files") {
        return source += ".asm";
    }
    return source.replace_extension(".asm");
}

/// True when there is a case of this source: its own, or one that its .run file names.
bool isCase(fs::path source) {
    return fs::is_regular_file(source) || fs::is_regular_file(source.replace_extension(".run"));
}

} // namespace

GoldenFolder::GoldenFolder(fs::path path)
    : m_path(std::move(path)) {}

/// The folders that hold at least one file of a case.
std::vector<fs::path> GoldenFolder::topics() const {
    std::vector<fs::path> topics;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_path)) {
        if (entry.is_directory() && entry.path().filename() != "shared" &&
            std::any_of(fs::directory_iterator(entry.path()), fs::directory_iterator(),
                        [](const fs::directory_entry& file) { return isOfACase(file.path()); })) {
            topics.push_back(entry.path());
        }
    }
    return topics;
}

std::vector<GoldenCase> GoldenFolder::cases() const {
    std::set<fs::path> sources;
    for (const fs::path& topic : topics()) {
        for (const fs::directory_entry& file : fs::directory_iterator(topic)) {
            if (file.is_regular_file() && isOfACase(file.path()) && isCase(sourceOf(file))) {
                sources.insert(sourceOf(file));
            }
        }
    }
    std::vector<GoldenCase> cases(sources.begin(), sources.end());
    std::sort(cases.begin(), cases.end(),
              [](const GoldenCase& a, const GoldenCase& b) { return a.name() < b.name(); });
    return cases;
}

std::vector<std::string> GoldenFolder::orphans() const {
    std::set<std::string> orphans;
    for (const fs::path& topic : topics()) {
        for (const fs::directory_entry& entry : fs::directory_iterator(topic)) {
            const bool known = entry.is_directory() || isOfACase(entry.path());
            if (!known || !isCase(sourceOf(entry))) {
                orphans.insert(fs::relative(entry.path(), m_path).string());
            }
        }
    }
    std::map<std::string, int> uses;
    for (const GoldenCase& golden : cases()) {
        for (const std::string& name : golden.sharedInputs()) {
            ++uses[name];
        }
    }
    if (fs::is_directory(m_path / "shared")) {
        for (const fs::directory_entry& entry : fs::directory_iterator(m_path / "shared")) {
            if (uses[entry.path().filename().string()] < 2) {
                orphans.insert(fs::relative(entry.path(), m_path).string());
            }
        }
    }
    return {orphans.begin(), orphans.end()};
}

std::vector<std::string> GoldenFolder::equalInputs() const {
    std::map<std::string, std::set<std::string>> namesOf;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_path)) {
        const fs::path name = fs::relative(entry.path(), m_path);
        const auto depth = std::distance(name.begin(), name.end());
        const bool isSource = depth == 2 && entry.path().extension() == ".asm";
        const bool isBeside = depth > 2 && (++name.begin())->extension() != ".files";
        const bool isShared = *name.begin() == "shared";
        if (entry.is_regular_file() &&
            (isSource || isShared || (isBeside && entry.file_size() >= LongFile))) {
            std::ifstream stream(entry.path(), std::ios::binary);
            const std::istreambuf_iterator<char> begin(stream);
            namesOf[std::string(begin, {})].insert(name.string());
        }
    }
    std::vector<std::string> equal;
    for (const auto& [content, names] : namesOf) {
        if (names.size() > 1) {
            std::string text;
            for (const std::string& name : names) {
                text += (text.empty() ? "" : " = ") + name;
            }
            equal.push_back(text);
        }
    }
    return equal;
}

} // namespace kestrel::test
