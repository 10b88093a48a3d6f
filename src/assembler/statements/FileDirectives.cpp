// SPDX-License-Identifier: MIT
#include "assembler/statements/FileDirectives.h"

#include "assembler/reading/PcxReader.h"
#include "assembler/state/QuotedOperand.h"
#include "assembler/text/Text.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace nesasm {

namespace {

constexpr std::size_t DeepestInclude = 64;
constexpr std::size_t MostNamesInRing = 8;
constexpr std::size_t TileSize = 16;
/// What looking for a file in a macro, a repetition or a file included again counts for.
constexpr std::uint64_t WorkOfSearch = 8000;
/// What a byte of a data file counts for.
constexpr std::uint64_t WorkOfByte = 4;
/// What a byte of a packed picture counts for beyond being read: it may stand for 63 pixels.
constexpr std::uint64_t WorkOfPackedByte = 16;

/// As many parts of the path as the name has: a folder's case may be what differs.
std::string otherCaseText(const std::string& path, std::string_view name) {
    const auto isSeparator = [](char c) { return c == '/' || c == '\\'; };
    auto parts = 1 + std::count_if(name.begin(), name.end(), isSeparator);
    std::size_t begin = path.size();
    while (parts-- > 0 && begin != 0 && begin != std::string::npos) {
        begin = path.rfind('/', begin - 1);
    }
    const std::size_t first = begin == std::string::npos ? 0 : begin + (path[begin] == '/' ? 1 : 0);
    return "the file is named '" + path.substr(first) +
           "' on the disk: the build fails where letter case matters";
}

} // namespace

FileDirectives::FileDirectives(FileFinder& finder, FileStore& files, ExpressionParser& parser,
                               Frames& frames, ImageWriter& writer, Reporter& reporter)
    : m_finder(finder)
    , m_files(files)
    , m_parser(parser)
    , m_frames(frames)
    , m_writer(writer)
    , m_reporter(reporter) {}

Problem FileDirectives::openInput(const std::string& name) {
    const auto found = m_finder.findInput(name);
    if (!found) {
        return "there is no such file";
    }
    const auto [file, wasRead, problem] = m_files.source(found->path);
    if (problem) {
        return problem;
    }
    enter(*file, name, false);
    m_writer.image().header.position = {file->text().data(), 1, 0, m_frames.sources().top().origin,
                                        0};
    if (found->caseDiffers) {
        m_reporter.diagnostics().warning(Warning::fileCase,
                                         {nullptr, 0, 0, m_frames.sources().top().origin, 0},
                                         otherCaseText(found->path, name));
    }
    return {};
}

std::optional<std::string_view> FileDirectives::fileName(Cursor& p) {
    const Cursor start = p;
    const auto quoted = readQuotedOperand(QuotedKind::fileName, p, m_reporter);
    if (!quoted) {
        return std::nullopt;
    }
    if (quoted->written.empty()) {
        m_reporter.error(start, "the file name is empty");
        return std::nullopt;
    }
    return quoted->written;
}

std::optional<std::string> FileDirectives::find(std::string_view name, Cursor at, bool isSource) {
    if (m_frames.sources().top().countsAsWork && !countWork(WorkOfSearch, at)) {
        return std::nullopt;
    }
    const std::string folder = folderOf(m_frames.sources().top().passage.file->path());
    const auto found = m_finder.find(name, folder, isSource);
    if (!found) {
        const bool isAbsolute = name[0] == '/' || name[0] == '\\';
        missing(name,
                isAbsolute
                    ? "there is no such file"
                    : "there is no such file in any of the folders searched; is the name right, "
                      "and is the file beside the source or in a folder given with -I?",
                at);
        return std::nullopt;
    }
    if (found->caseDiffers) {
        m_reporter.warn(Warning::fileCase, at,
                        otherCaseText(found->path, name) + "; write it the same way here");
    }
    return found->path;
}

bool FileDirectives::countWork(std::uint64_t work, Cursor at) {
    if (m_frames.sources().addWork(work)) {
        return true;
    }
    m_reporter.fatal(at, "files are read too often, or too many bytes of them: look for a "
                         "repetition or a macro that reads one again and again");
    return false;
}

void FileDirectives::missing(std::string_view name, const std::string& why, Cursor at) {
    m_reporter.notePartMissing();
    m_reporter.error(at, "the file '" + std::string(name) + "' cannot be read: " + why);
}

void FileDirectives::include(Cursor p) {
    const Cursor at = p;
    const auto name = fileName(p);
    if (!name || !m_reporter.expectEnd(p) || isTooDeep(*name, at)) {
        return;
    }
    const auto path = find(*name, at, true);
    if (!path) {
        return;
    }
    const auto [file, wasRead, problem] = m_files.source(*path);
    if (problem) {
        missing(*name, *problem, at);
    } else {
        enter(*file, *name, wasRead);
    }
}

bool FileDirectives::isTooDeep(std::string_view name, Cursor at) {
    std::vector<std::string_view> names;
    for (std::size_t i = 0; i < m_frames.sources().depth(); ++i) {
        if (m_frames.sources().at(i).kind == Origin::Kind::file) {
            names.push_back(m_frames.sources().at(i).passage.fileName);
        }
    }
    if (names.size() <= DeepestInclude) {
        return false;
    }
    std::string text = "files are included more than " + std::to_string(DeepestInclude) + " deep: ";
    // From the last time that this file was entered: that is the ring, if it is one.
    std::size_t first = names.size();
    while (first != 0 && names[first - 1] != name) {
        --first;
    }
    const bool isRing = first != 0;
    if (!isRing || names.size() - first + 1 > MostNamesInRing) {
        first = names.size() - MostNamesInRing + 1;
    } else {
        --first;
    }
    for (; first < names.size(); ++first) {
        text.append(names[first]).append(" -> ");
    }
    m_reporter.fatal(at, text.append(name));
    return true;
}

void FileDirectives::enter(const SourceFile& file, std::string_view name, bool wasRead) {
    Origin origin;
    origin.file = name;
    origin.source = &file;
    m_frames.enter(origin, {file.text(), 1, &file, name}).countsAsWork = wasRead;
}

void FileDirectives::binary(Cursor p) {
    const Cursor at = p;
    const auto name = fileName(p);
    if (!name) {
        return;
    }
    std::int32_t offset = 0;
    std::optional<std::int32_t> length;
    Cursor numbers[2]{p, p};
    for (int i = 0; i < 2; ++i) {
        p.skipBlanks();
        if (*p != ',') {
            break;
        }
        numbers[i] = (++p).afterBlanks();
        const auto value = m_parser.parseKnown(
            p, i == 0 ? "the offset of .incbin" : "the length of .incbin", 0, INT32_MAX);
        if (!value) {
            return;
        }
        if (i == 0) {
            offset = *value;
        } else {
            length = value;
        }
    }
    if (!m_reporter.expectEnd(p)) {
        return;
    }
    const auto path = find(*name, at, false);
    if (!path) {
        return;
    }
    DataFile file;
    if (const Problem problem = m_files.open(*path, file)) {
        missing(*name, *problem, at);
        return;
    }
    const std::string size = quoted(*name) + " holds " + counted(file.size(), "byte");
    if (static_cast<std::size_t>(offset) > file.size()) {
        m_reporter.error(numbers[0], "the offset is beyond the end of the file: " + size);
        return;
    }
    const std::size_t left = file.size() - static_cast<std::size_t>(offset);
    if (length && static_cast<std::size_t>(*length) > left) {
        m_reporter.error(numbers[1], "the length goes beyond the end of the file: " + size);
        return;
    }
    const std::size_t count = length ? static_cast<std::size_t>(*length) : left;
    if (count % TileSize != 0 && name->size() > 4 &&
        equalsIgnoringCase(name->substr(name->size() - 4), ".chr")) {
        m_reporter.warn(
            Warning::oddChrSize, at,
            "these " + counted(count, "byte") + " of " + quoted(*name) +
                " are not a whole number of tiles: a tile takes 16 bytes, 8 KiB of tiles 8192");
    }
    putPart(file, static_cast<std::size_t>(offset), count, *name, at);
}

/// Puts `count` bytes of a file from `offset` on; those that no image can hold are not even read.
void FileDirectives::putPart(const DataFile& file, std::size_t offset, std::size_t count,
                             std::string_view name, Cursor at) {
    constexpr std::size_t MostBytes = std::size_t{BankCount} * BankSize;
    if (m_writer.image().isRam()) {
        m_writer.reportExcess(count, at);
        return;
    }
    if (count > MostBytes) {
        reportBeyondLastBank(count, at);
        return;
    }
    if (!countWork(count * WorkOfByte, at)) {
        return;
    }
    const auto bytes = std::make_unique_for_overwrite<std::uint8_t[]>(count);
    std::size_t got = 0;
    if (const Problem problem =
            file.read(offset, reinterpret_cast<char*>(bytes.get()), count, got)) {
        missing(name, *problem, at);
    } else {
        put(bytes.get(), got, at);
    }
}

void FileDirectives::tiles(Cursor p) {
    const Cursor at = p;
    const auto name = fileName(p);
    if (!name || !m_reporter.expectEnd(p)) {
        return;
    }
    const auto path = find(*name, at, false);
    if (!path) {
        return;
    }
    FileContents contents;
    if (const Problem problem = m_files.data(*path, contents)) {
        missing(*name, *problem, at);
        return;
    }
    const std::uint64_t unpacking =
        std::min<std::uint64_t>(contents.size * WorkOfPackedByte, MostPicturePixels);
    if (!countWork(contents.size + unpacking, at)) {
        return;
    }
    std::vector<std::uint8_t> bytes;
    if (const Problem problem = readPcxTiles(contents.view(), bytes)) {
        m_reporter.error(at,
                         "the picture '" + std::string(*name) + "' cannot be used: " + *problem);
    } else {
        put(bytes.data(), bytes.size(), at);
    }
}

void FileDirectives::put(const std::uint8_t* bytes, std::size_t count, Cursor at) {
    if (m_writer.image().isRam()) {
        m_writer.reportExcess(count, at);
    } else if (!m_writer.image().emitAcrossBanks(bytes, count)) {
        reportBeyondLastBank(count, at);
    }
}

void FileDirectives::reportBeyondLastBank(std::size_t count, Cursor at) {
    m_reporter.error(at, "these " + counted(count, "byte") + " go beyond the last bank, number " +
                             std::to_string(BankCount - 1));
}

} // namespace nesasm
