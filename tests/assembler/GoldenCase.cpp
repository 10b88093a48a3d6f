// SPDX-License-Identifier: MIT
#include "assembler/GoldenCase.h"

#include "assembler/HexImage.h"
#include "assembler/ProgramRun.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>
#include <utility>

namespace kestrel::test {

namespace fs = std::filesystem;

namespace {

std::optional<std::string> read(const fs::path& path) {
    std::error_code fault;
    if (!fs::is_regular_file(path, fault)) {
        return std::nullopt;
    }
    std::ifstream stream(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

/// The first line in which two texts differ, with both versions of it.
std::string firstDifference(const std::string& expected, const std::string& got) {
    std::istringstream left(expected);
    std::istringstream right(got);
    std::string a;
    std::string b;
    for (int line = 1;; ++line) {
        const bool more = static_cast<bool>(std::getline(left, a));
        const bool moreGot = static_cast<bool>(std::getline(right, b));
        if (!more && !moreGot) {
            return "they differ in the last line's end only";
        }
        if (!more || !moreGot || a != b) {
            return "line " + std::to_string(line) + "\n  expected: " + (more ? a : "(nothing)") +
                   "\n  got:      " + (moreGot ? b : "(nothing)");
        }
    }
}

/// The text with every time at which a file was changed put as 0.
std::string withoutTimes(const std::string& text) {
    return std::regex_replace(text, std::regex("mtime=0x[0-9A-F]+"), "mtime=0x0");
}

/// Where a file that a case needs lies in its fresh folder: what begins with one of the folders
/// there goes into it, everything else beside the source.
fs::path placeIn(const fs::path& folder, const fs::path& file) {
    const std::string first = file.begin()->string();
    const bool top = first == "elsewhere" || first == "out" || first.starts_with("folder");
    return (top ? folder : folder / "project") / file;
}

} // namespace

GoldenCase::GoldenCase(fs::path source)
    : m_source(std::move(source)) {}

std::string GoldenCase::name() const {
    return (m_source.parent_path().filename() / m_source.stem()).string();
}

fs::path GoldenCase::beside(const char* ending) const {
    fs::path path = m_source;
    return path.replace_extension(ending);
}

std::optional<GoldenCase::Setting> GoldenCase::setting(std::vector<std::string>& problems) const {
    const std::string stem = m_source.stem().string();
    Setting result{
        stem + ".asm", "@/out/" + stem + ".nes", "elsewhere", "@/project", {}, {}, {}, {}};
    std::istringstream lines(read(beside(".run")).value_or(""));
    for (std::string line; std::getline(lines, line);) {
        const std::size_t colon = line.find(": ");
        const std::string key = line.substr(0, colon);
        const std::string value = colon == std::string::npos ? "" : line.substr(colon + 2);
        if (key == "input") {
            result.input = value;
        } else if (key == "output") {
            result.output = value;
        } else if (key == "folder") {
            result.folder = value;
        } else if (key == "include") {
            result.include = value;
        } else if (key == "argument") {
            result.arguments.push_back(value);
        } else if (key == "call") {
            result.call.push_back(value);
        } else if (key == "source" && !value.empty()) {
            result.source = value;
        } else if (const std::size_t equals = value.find(" = ");
                   key == "file" && equals != std::string::npos) {
            result.files.emplace_back(value.substr(0, equals), value.substr(equals + 3));
        } else {
            problems.push_back("the .run file has a line that is not understood: " + line);
            return std::nullopt;
        }
    }
    return result;
}

std::vector<std::string> GoldenCase::sharedInputs() const {
    std::vector<std::string> problems;
    std::vector<std::string> names;
    if (const std::optional<Setting> run = setting(problems)) {
        if (!run->source.empty()) {
            names.push_back(run->source);
        }
        for (const auto& [place, name] : run->files) {
            names.push_back(name);
        }
    }
    return names;
}

bool GoldenCase::prepare(const fs::path& folder, const Setting& run,
                         std::vector<std::string>& problems) const {
    for (const char* name : {"elsewhere", "out", "project"}) {
        fs::create_directory(folder / name);
    }
    const fs::path companions = beside("");
    if (fs::is_directory(companions)) {
        for (const fs::directory_entry& entry : fs::directory_iterator(companions)) {
            fs::copy(entry.path(), placeIn(folder, entry.path().filename()),
                     fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        }
    }
    if (fs::exists(m_source) != run.source.empty()) {
        problems.push_back(run.source.empty()
                               ? "there is no source, neither its own nor a shared one"
                               : "there is a source beside the shared one");
        return false;
    }
    const fs::path shared = m_source.parent_path().parent_path() / "shared";
    std::vector<std::pair<fs::path, fs::path>> files(run.files.begin(), run.files.end());
    for (auto& [place, source] : files) {
        place = placeIn(folder, place);
        source = shared / source;
    }
    files.emplace_back(folder / "project" / m_source.filename(),
                       run.source.empty() ? m_source : shared / run.source);
    for (const auto& [place, source] : files) {
        std::error_code fault;
        fs::create_directories(place.parent_path(), fault);
        if (!fs::copy_file(source, place, fault)) {
            problems.push_back("there is no shared file " + source.filename().string() +
                               ", or another file in its place");
            return false;
        }
    }
    return true;
}

void GoldenCase::compareImage(const std::optional<std::string>& image,
                              std::vector<std::string>& problems) const {
    const std::optional<std::string> text = read(beside(".hex"));
    if (!text) {
        if (image) {
            problems.push_back("an image came out where none is expected:\n" +
                               HexImage::describe(*image));
        }
        return;
    }
    std::string fault;
    const std::optional<std::string> expected = HexImage::parse(*text, fault);
    if (!expected) {
        problems.push_back("the .hex file: " + fault);
    } else if (!image) {
        problems.push_back("no image came out");
    } else if (*image != *expected) {
        problems.push_back("the image differs, expected:\n" + HexImage::describe(*expected) +
                           "got:\n" + HexImage::describe(*image));
    }
}

void GoldenCase::compareFiles(const fs::path& folder, std::vector<std::string>& problems) const {
    std::map<std::string, std::string> expected;
    std::map<std::string, std::string> got;
    const fs::path wanted = beside(".files");
    if (fs::is_directory(wanted)) {
        for (const fs::directory_entry& file : fs::directory_iterator(wanted)) {
            expected[file.path().filename().string()] = read(file.path()).value_or("");
        }
    }
    for (const fs::directory_entry& file : fs::directory_iterator(folder)) {
        const bool isImage = file.path().extension() == ".nes";
        if (file.is_regular_file() && !isImage) {
            got[file.path().filename().string()] =
                replaced(withoutTimes(read(file.path()).value_or("")), folder.string(), "@/out");
        }
    }
    for (const auto& [name, text] : expected) {
        if (!got.contains(name)) {
            problems.push_back("the file " + name + " was not written");
        } else if (got[name] != text) {
            problems.push_back("the file " + name +
                               " differs: " + firstDifference(text, got[name]));
        }
    }
    for (const auto& [name, text] : got) {
        if (!expected.contains(name)) {
            problems.push_back("the file " + name + " is not expected:\n" + text);
        }
    }
}

void GoldenCase::compareOutput(const std::string& output, const std::optional<std::string>& image,
                               std::vector<std::string>& problems) const {
    if (const std::optional<std::string> expected = read(beside(".out"))) {
        if (output != *expected) {
            problems.push_back("the messages differ: " + firstDifference(*expected, output) +
                               "\nall of it:\n" + output);
        }
        return;
    }
    if (!image) {
        if (!output.empty()) {
            problems.push_back("messages where none are expected:\n" + output);
        }
        return;
    }
    const std::string stem = m_source.stem().string();
    // An image and no .out: the closing line alone, behind the warning that these fragments have no
    // fitting header.
    const unsigned flags6 = static_cast<unsigned char>(image->size() > 7 ? (*image)[6] : 0);
    const unsigned flags7 = static_cast<unsigned char>(image->size() > 7 ? (*image)[7] : 0);
    const std::string start = stem + ".nes: " + std::to_string(image->size()) + " bytes, mapper " +
                              std::to_string((flags7 & 0xF0U) | flags6 >> 4U) + ", PRG ";
    std::string rest = output;
    static const std::regex headerWarning(
        "^[^\n]*\\[unused-bank-gap\\]\n[^\n]*\n[\t ]*\\^\n1 warning\n");
    rest = std::regex_replace(rest, headerWarning, "", std::regex_constants::format_first_only);
    if (!rest.starts_with("@/out/" + start) || rest.find('\n') != rest.size() - 1) {
        problems.push_back("expected is one line that starts with \"@/out/" + start + "\", got:\n" +
                           output);
    }
}

std::vector<std::string> GoldenCase::problemsWith(const fs::path& program) const {
    std::vector<std::string> problems;
    const std::optional<Setting> run = setting(problems);
    if (!run) {
        return problems;
    }
    const TemporaryFolder folder;
    if (!prepare(folder.path(), *run, problems)) {
        return problems;
    }
    const auto placed = [&folder](const std::string& text) {
        return replaced(text, "@", folder.path().string());
    };
    const fs::path current = folder.path() / run->folder;
    std::vector<std::string> arguments{"--input", placed(run->input), "--output",
                                       placed(run->output)};
    for (const std::string& argument : run->arguments) {
        arguments.push_back(placed(argument));
    }
    if (!run->call.empty()) {
        arguments.clear();
    }
    for (const std::string& argument : run->call) {
        arguments.push_back(placed(argument));
    }
    const ProgramRun result =
        ProgramRun::of(program, arguments, {"NES_INCLUDE=" + placed(run->include)}, current);
    const std::optional<std::string> image = read(current / placed(run->output));
    const bool wantsImage = fs::is_regular_file(beside(".hex"));
    const std::string wanted = read(beside(".status")).value_or(wantsImage ? "0\n" : "1\n");
    if (std::to_string(result.status) + "\n" != wanted) {
        problems.push_back("exit status " + std::to_string(result.status) + ", expected " + wanted +
                           result.output);
    }
    if (!result.errorOutput.empty()) {
        problems.push_back("standard error is not empty:\n" + result.errorOutput);
    }
    compareImage(image, problems);
    compareOutput(replaced(result.output, folder.path().string(), "@"), image, problems);
    compareFiles(folder.path() / "out", problems);
    return problems;
}

} // namespace kestrel::test
