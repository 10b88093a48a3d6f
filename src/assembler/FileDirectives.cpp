#include "assembler/FileDirectives.h"

#include "assembler/Characters.h"
#include "assembler/PcxReader.h"
#include "assembler/Text.h"

#include <utility>
#include <vector>

namespace nesasm {

namespace {

constexpr std::size_t kDeepestInclude = 64;
constexpr std::size_t kMostNamesInRing = 8;
constexpr std::size_t kTileSize = 16;

} // namespace

FileDirectives::FileDirectives(Assembly& assembly, ExpressionParser& parser)
    : m_assembly(assembly)
    , m_parser(parser) {}

void FileDirectives::run(Directive directive, const char* p) {
    p = skipBlanks(p);
    if (directive == Directive::Include)
        include(p);
    else if (directive == Directive::IncBin)
        binary(p);
    else
        tiles(p);
}

std::string FileDirectives::openInput(const std::string& name) {
    const auto found = m_assembly.finder.findInput(name);
    if (!found)
        return "there is no such file";
    std::string problem;
    bool wasRead = false;
    const SourceFile* const file = m_assembly.files.source(found->path, problem, wasRead);
    if (file == nullptr)
        return problem;
    const std::string_view kept = m_assembly.arena.keepLine(name);
    enter(*file, kept, false);
    m_assembly.headerPosition = {file->text().data(), 1, 0, m_assembly.sources.top().origin, 0};
    if (found->caseDiffers)
        m_assembly.diagnostics.warning(Warning::FileCase,
                                       {nullptr, 0, 0, m_assembly.sources.top().origin, 0},
                                       "the file is spelled '" + found->path + "' on the disk");
    return {};
}

std::optional<std::string_view> FileDirectives::fileName(const char*& p) {
    const char* const start = p;
    if (*p != '"') {
        m_assembly.error(p, "a file name in double quotes was expected, but " + foundText(p) +
                                " was found");
        return std::nullopt;
    }
    for (++p; *p != '"'; ++p) {
        if (isLineEnd(*p)) {
            m_assembly.error(start, "this file name has no closing '\"'");
            return std::nullopt;
        }
    }
    const std::string_view name(start + 1, static_cast<std::size_t>(p - start - 1));
    ++p;
    if (!name.empty())
        return name;
    m_assembly.error(start, "the file name is empty");
    return std::nullopt;
}

std::optional<std::string> FileDirectives::find(std::string_view name, const char* at,
                                                bool isSource) {
    const std::string folder = folderOf(m_assembly.sources.top().passage.file->path());
    const auto found = m_assembly.finder.find(name, folder, isSource);
    if (!found) {
        missing(name,
                "there is no such file in any of the folders searched; is the name right, and does "
                "the file lie beside the source or in a folder given with -I?",
                at);
        return std::nullopt;
    }
    if (found->caseDiffers)
        m_assembly.warn(
            Warning::FileCase, at,
            "the file is spelled '" + found->path.substr(found->path.rfind('/') + 1) +
                "' on the disk: the build fails where letter case counts; spell it so here");
    return found->path;
}

void FileDirectives::missing(std::string_view name, const std::string& why, const char* at) {
    m_assembly.isIncomplete = true;
    m_assembly.error(at, "the file '" + std::string(name) + "' cannot be read: " + why);
}

void FileDirectives::include(const char* p) {
    const char* const at = p;
    const auto name = fileName(p);
    if (!name || !m_assembly.expectEnd(p) || isTooDeep(*name, at))
        return;
    const auto path = find(*name, at, true);
    if (!path)
        return;
    std::string problem;
    bool wasRead = false;
    const SourceFile* const file = m_assembly.files.source(*path, problem, wasRead);
    if (file == nullptr)
        missing(*name, problem, at);
    else
        enter(*file, *name, wasRead);
}

bool FileDirectives::isTooDeep(std::string_view name, const char* at) {
    std::vector<std::string_view> names;
    for (std::size_t i = 0; i < m_assembly.sources.depth(); ++i)
        if (m_assembly.sources.at(i).kind == Origin::Kind::File)
            names.push_back(m_assembly.sources.at(i).passage.fileName);
    if (names.size() <= kDeepestInclude)
        return false;
    std::string text =
        "files are included more than " + std::to_string(kDeepestInclude) + " deep: ";
    // From the last time that this file was entered: that is the ring, if it is one.
    std::size_t first = names.size();
    while (first != 0 && names[first - 1] != name)
        --first;
    const bool isRing = first != 0;
    if (!isRing || names.size() - first + 1 > kMostNamesInRing)
        first = names.size() - kMostNamesInRing + 1;
    else
        --first;
    for (; first < names.size(); ++first)
        text.append(names[first]).append(" -> ");
    m_assembly.diagnostics.fatal(m_assembly.at(at), text.append(name));
    return true;
}

void FileDirectives::enter(const SourceFile& file, std::string_view name, bool wasRead) {
    Origin origin;
    if (!m_assembly.sources.empty()) {
        if (m_assembly.line.isShortLived)
            name = m_assembly.arena.keepLine(name);
        origin.parent = m_assembly.line.origin;
        origin.callLine = m_assembly.line.number;
        m_assembly.origins[origin.parent].kept = true;
    }
    origin.file = name;
    origin.source = &file;
    const OriginId id = m_assembly.origins.add(origin);
    Frame& frame = m_assembly.sources.push(Origin::Kind::File, {file.text(), 1, &file, name}, id);
    frame.countsAsWork = wasRead;
    frame.conditionals = m_assembly.conditionals.depth();
    frame.label = std::exchange(m_assembly.sizedLabel, 0);
    frame.totalBefore = m_assembly.sizedFrom;
}

void FileDirectives::binary(const char* p) {
    const char* const at = p;
    const auto name = fileName(p);
    if (!name)
        return;
    std::int32_t offset = 0;
    std::optional<std::int32_t> length;
    const char* numbers[2]{p, p};
    for (int i = 0; i < 2; ++i) {
        p = skipBlanks(p);
        if (*p != ',')
            break;
        numbers[i] = skipBlanks(++p);
        const auto value = m_parser.parseKnown(
            p, i == 0 ? "the offset of .incbin" : "the length of .incbin", 0, INT32_MAX);
        if (!value)
            return;
        if (i == 0)
            offset = *value;
        else
            length = value;
    }
    if (!m_assembly.expectEnd(p))
        return;
    const auto path = find(*name, at, false);
    if (!path)
        return;
    FileContents contents;
    if (const std::string problem = m_assembly.files.data(*path, contents); !problem.empty()) {
        missing(*name, problem, at);
        return;
    }
    const std::string size = quoted(*name) + " holds " + counted(contents.size, "byte");
    if (static_cast<std::size_t>(offset) > contents.size) {
        m_assembly.error(numbers[0], "the offset lies beyond the file's end: " + size);
        return;
    }
    const std::size_t left = contents.size - static_cast<std::size_t>(offset);
    if (length && static_cast<std::size_t>(*length) > left) {
        m_assembly.error(numbers[1], "the length goes beyond the file's end: " + size);
        return;
    }
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(contents.bytes.get()) + offset;
    const std::size_t count = length ? static_cast<std::size_t>(*length) : left;
    if (count % kTileSize != 0 && name->size() > 4 &&
        equalsIgnoringCase(name->substr(name->size() - 4), ".chr"))
        m_assembly.warn(Warning::OddChrSize, at,
                        "these " + counted(count, "byte") + " of " + quoted(*name) +
                            " are no whole tiles: a tile takes 16 bytes, and 8 KiB of tiles 8192");
    put(bytes, count, at);
}

void FileDirectives::tiles(const char* p) {
    const char* const at = p;
    const auto name = fileName(p);
    if (!name || !m_assembly.expectEnd(p))
        return;
    const auto path = find(*name, at, false);
    if (!path)
        return;
    FileContents contents;
    if (const std::string problem = m_assembly.files.data(*path, contents); !problem.empty()) {
        missing(*name, problem, at);
        return;
    }
    std::vector<std::uint8_t> bytes;
    if (const std::string problem = readPcxTiles(contents.view(), bytes); !problem.empty())
        m_assembly.error(at, "the picture '" + std::string(*name) + "' cannot be used: " + problem);
    else
        put(bytes.data(), bytes.size(), at);
}

void FileDirectives::put(const std::uint8_t* bytes, std::size_t count, const char* at) {
    if (m_assembly.image.isRam())
        m_assembly.reportExcess(count, at);
    else if (!m_assembly.image.emitAcrossBanks(bytes, count))
        m_assembly.error(at, "these " + counted(count, "byte") +
                                 " go beyond the last bank, number " +
                                 std::to_string(kBankCount - 1));
}

} // namespace nesasm
