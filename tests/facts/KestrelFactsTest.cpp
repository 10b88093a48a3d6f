// SPDX-License-Identifier: MIT
// The program kestrel-facts against what NESasm makes of the same sources.
#include "assembler/ProgramRun.h"
#include "facts/FactsText.h"
#include "facts/ListingLines.h"
#include "model/Fingerprint.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <tuple>

namespace kestrel::test {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t BankSize = 0x2000;
constexpr std::size_t HeaderSize = 16;

/// Sources in a folder "tmp", as a build gathers them.
class Sources : public TemporaryFolder {
public:
    /// All files of an example.
    void gather(const std::string& example) {
        fs::create_directory(tmp());
        const fs::path from = fs::path(KESTREL_EXAMPLES) / example;
        for (const auto& entry : fs::recursive_directory_iterator(from)) {
            const std::string name = entry.path().filename();
            if (entry.is_regular_file() && entry.path().parent_path().filename() != ".project" &&
                name != example + ".kst") {
                fs::copy_file(entry.path(), tmp() / name);
            }
        }
    }

    fs::path tmp() const { return path() / "tmp"; }

    ProgramRun run(const char* program, std::vector<std::string> arguments) const {
        return ProgramRun::of(program, arguments, {"NES_INCLUDE=" + tmp().string()}, path());
    }
    ProgramRun facts(const std::string& main) const {
        return run(KESTREL_FACTS, {"--input", (tmp() / main).string()});
    }
    std::optional<ProgramFacts> known(const std::string& main) const {
        const ProgramRun run = facts(main);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.errorOutput, "");
        return readFacts(run.output);
    }
    /// Assembles with further options, whose output it gives.
    std::string assemble(const std::string& main, std::vector<std::string> more) const {
        more.insert(more.end(), {"--input", (tmp() / main).string(), "--output", "game.nes"});
        const ProgramRun run = this->run(KESTREL_NESASM, more);
        EXPECT_EQ(run.status, 0) << run.output;
        return run.output;
    }
    std::string listing(const std::string& main, bool withExpansions) const {
        std::vector<std::string> options{"--listing", "game.lst"};
        if (withExpansions) {
            options.emplace_back("--expand-macros");
        }
        assemble(main, options);
        return contentOf(path() / "game.lst");
    }
};

/// A program with one source, and what is known of it.
class Program : public Sources {
public:
    explicit Program(std::string_view source)
        : file(write("tmp/main.asm", source)) {
        auto read = known("main.asm");
        EXPECT_TRUE(read.has_value());
        facts = read.value_or(ProgramFacts{});
    }

    const LineFacts& line(std::uint32_t number) const {
        static const LineFacts None;
        const FileFacts* const main = facts.fileNamed("main.asm");
        const LineFacts* const line = main != nullptr ? main->line(number) : nullptr;
        EXPECT_NE(line, nullptr) << number;
        return line != nullptr ? *line : None;
    }
    const SymbolFacts& symbol(std::string_view name, std::string_view scope = {}) const {
        static const SymbolFacts None;
        const SymbolFacts* const symbol = facts.symbol(name, scope);
        EXPECT_NE(symbol, nullptr) << name;
        return symbol != nullptr ? *symbol : None;
    }
    const MemoryArea& area(MemoryArea::Kind kind) const {
        static const MemoryArea None;
        const auto found = std::ranges::find(facts.areas, kind, &MemoryArea::kind);
        EXPECT_NE(found, facts.areas.end());
        return found != facts.areas.end() ? *found : None;
    }

    fs::path file;
    ProgramFacts facts;
};

std::vector<FactPlace> places(std::initializer_list<std::pair<unsigned, unsigned>> of) {
    std::vector<FactPlace> result;
    for (const auto& [line, column] : of) {
        result.push_back({0, line, column});
    }
    return result;
}

constexpr std::string_view Header = "  .inesprg 1\n  .ineschr 0\n  .org $8000\n"; // lines 1 to 3
constexpr std::string_view Vectors = "  .bank 1\n  .org $FFFA\n  .dw 0,0,0\n";

std::string program(std::string_view lines) {
    return std::string(Header) + std::string(lines) + std::string(Vectors);
}

/// An example and its main file.
struct Example {
    const char* name;
    const char* main;
};

class ExamplesFacts : public testing::TestWithParam<Example> {
protected:
    void SetUp() override { sources.gather(GetParam().name); }

    Sources sources;
};

bool isNamePart(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '.';
}

/// The names in the statements of a source and where they stand, found without the assembler: each
/// word outside of comments and texts, local ones below the last name at a line's start that is a
/// label.
std::map<std::pair<std::string, std::string>, std::set<std::pair<unsigned, unsigned>>>
namesIn(const std::string& source, const ProgramFacts& facts) {
    std::map<std::pair<std::string, std::string>, std::set<std::pair<unsigned, unsigned>>> names;
    std::istringstream lines(source);
    std::string scope;
    unsigned number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        bool isQuoted = false;
        for (std::size_t i = 0; i < line.size() && (isQuoted || line[i] != ';'); ++i) {
            isQuoted = isQuoted != (line[i] == '"');
            if (isQuoted || !isNamePart(line[i]) || line[i] == '"') {
                continue;
            }
            const std::size_t begin = i;
            while (i < line.size() && isNamePart(line[i])) {
                ++i;
            }
            const bool isNumber = begin > 0 && line[begin - 1] == '$';
            const std::string word = isNumber ? "$" : line.substr(begin, i - begin);
            const SymbolFacts* const symbol = facts.symbol(word, scope);
            if (symbol != nullptr && begin == 0 && !symbol->isLocal() &&
                symbol->kind == SymbolFacts::Kind::label) {
                scope = word;
            }
            names[{word, word.starts_with('.') ? scope : ""}].emplace(number, begin + 1);
            --i;
        }
    }
    return names;
}

std::set<std::string> filesWithTimes(const fs::path& folder) {
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const auto time = entry.last_write_time().time_since_epoch().count();
        files.insert(entry.path().string() + " " + std::to_string(time));
    }
    return files;
}

} // namespace

TEST_P(ExamplesFacts, AgreeWithTheListingOnEveryLine) {
    const auto facts = sources.known(GetParam().main);
    ASSERT_TRUE(facts.has_value());
    const auto plain = readListing(sources.listing(GetParam().main, false));
    const auto expanded = readListing(sources.listing(GetParam().main, true));
    std::size_t compared = 0;
    for (const auto& [place, listed] : plain) {
        SCOPED_TRACE(place.first + ":" + std::to_string(place.second) + ": " + listed.text);
        const FileFacts* const file = facts->fileNamed(place.first);
        ASSERT_NE(file, nullptr);
        const LineFacts* const line = file->line(place.second);
        if (line != nullptr && line->times != 1) {
            continue; // a body's line: not shown with bytes here
        }
        ASSERT_EQ(line != nullptr, listed.hasPlace);
        if (line == nullptr) {
            continue;
        }
        ++compared;
        EXPECT_EQ(line->address, listed.address);
        EXPECT_EQ(line->bank, listed.bank);
        EXPECT_EQ(line->bytes, listed.bytes);
        const ListedLine& whole = expanded.at(place);
        EXPECT_EQ(line->bytes, whole.bytes);
        EXPECT_EQ(line->leastCycles, whole.cycles);
        EXPECT_EQ(line->mostCycles > line->leastCycles, whole.mayBeMore != 0);
        EXPECT_LE(line->mostCycles, whole.cycles + 2 * whole.mayBeMore);
        EXPECT_GE(line->mostCycles, whole.cycles + whole.mayBeMore);
        if (listed.cycleCounts != 0) {
            EXPECT_EQ(line->leastCycles, listed.cycles);
        }
    }
    EXPECT_GT(compared, 100U);
}

TEST_P(ExamplesFacts, CountTheBanksAsTheImageHasThem) {
    const auto facts = sources.known(GetParam().main);
    ASSERT_TRUE(facts.has_value());
    const std::string lines = sources.assemble(GetParam().main, {"-v"});
    const std::string image = contentOf(sources.path() / "game.nes");
    std::uint32_t banks = 0;
    for (const MemoryArea& area : facts->areas) {
        if (!area.isBank()) {
            continue;
        }
        SCOPED_TRACE(area.number);
        EXPECT_EQ(area.number, banks);
        EXPECT_EQ(area.size(), BankSize);
        const std::string said = "bank " + std::to_string(banks) + ": " +
                                 std::to_string(area.usedBytes()) + " of 8192 bytes";
        EXPECT_NE(lines.find(said), std::string::npos) << said << "\n" << lines;
        const bool isTiles = banks >= 2U * static_cast<unsigned char>(image.at(4));
        EXPECT_EQ(area.kind, isTiles ? MemoryArea::Kind::chr : MemoryArea::Kind::prg);
        // What is free has the byte that nothing was written over.
        std::string bytes = image.substr(HeaderSize + std::size_t{banks} * BankSize, BankSize);
        for (const ByteRange& range : area.used) {
            std::fill(bytes.begin() + range.begin, bytes.begin() + range.end, '\xFF');
        }
        EXPECT_EQ(bytes, std::string(BankSize, '\xFF'));
        ++banks;
    }
    EXPECT_EQ(HeaderSize + std::size_t{banks} * BankSize, image.size());
}

TEST_P(ExamplesFacts, HaveThePlacesOfAllNames) {
    const auto facts = sources.known(GetParam().main);
    ASSERT_TRUE(facts.has_value());
    using Key = std::pair<std::string, std::string>;
    std::map<Key, std::set<std::tuple<std::size_t, unsigned, unsigned>>> written;
    for (std::size_t i = 0; i < facts->files.size(); ++i) {
        const std::string source = contentOf(facts->files[i].path);
        EXPECT_EQ(facts->files[i].size, source.size());
        EXPECT_EQ(facts->files[i].hash, fingerprintOf(source).hash);
        for (const auto& [name, found] : namesIn(source, *facts)) {
            for (const auto& [line, column] : found) {
                written[name].emplace(i, line, column);
            }
        }
    }
    std::size_t uses = 0;
    for (const SymbolFacts& symbol : facts->symbols) {
        SCOPED_TRACE(symbol.scope + symbol.name);
        EXPECT_EQ(symbol.definitions.size(), 1U);
        std::set<std::tuple<std::size_t, unsigned, unsigned>> known;
        for (const auto* list : {&symbol.definitions, &symbol.uses}) {
            for (const FactPlace& place : *list) {
                known.emplace(place.file, place.line, place.column);
            }
        }
        EXPECT_EQ(known, (written[{symbol.name, symbol.scope}]));
        uses += symbol.uses.size();
    }
    EXPECT_GT(uses, 100U);
}

INSTANTIATE_TEST_SUITE_P(Examples, ExamplesFacts,
                         testing::Values(Example{"Lanternfall", "lanternfall.asm"},
                                         Example{"Skylark", "skylark.asm"}),
                         [](const auto& example) { return std::string(example.param.name); });

TEST(KestrelFacts, KnowVariablesLabelsConstantsAndMacros) {
    Sources sources;
    sources.gather("Lanternfall");
    const auto facts = sources.known("lanternfall.asm");
    ASSERT_TRUE(facts.has_value());
    const SymbolFacts* const fox = facts->symbol("foxX");
    ASSERT_NE(fox, nullptr);
    EXPECT_EQ(fox->kind, SymbolFacts::Kind::variable);
    EXPECT_EQ(fox->bytes, 1U);
    ASSERT_EQ(fox->definitions.size(), 1U);
    EXPECT_EQ(facts->files[fox->definitions[0].file].name(), "ram.asm");
    EXPECT_TRUE(std::ranges::any_of(fox->uses, [&](const FactPlace& place) {
        return facts->files[place.file].name() == "player.asm";
    }));
    ASSERT_NE(facts->symbol("FILL"), nullptr);
    EXPECT_EQ(facts->symbol("FILL")->kind, SymbolFacts::Kind::macro);
    ASSERT_NE(facts->symbol("SPRITES"), nullptr);
    EXPECT_EQ(facts->symbol("SPRITES")->kind, SymbolFacts::Kind::constant);
    EXPECT_EQ(facts->symbol("SPRITES")->value, 0x200);
}

TEST(KestrelFacts, WriteNothing) {
    Sources sources;
    sources.gather("Lanternfall");
    sources.write("tmp/labels.asm",
                  "  .labels \"mlb\", \"nl\", \"dbg\"\n  .include \"lanternfall.asm\"\n");
    const auto before = filesWithTimes(sources.path());
    ASSERT_TRUE(sources.known("lanternfall.asm").has_value());
    ASSERT_TRUE(sources.known("labels.asm").has_value());
    EXPECT_EQ(filesWithTimes(sources.path()), before);
}

TEST(KestrelFacts, SayNothingOfSourcesWithErrors) {
    Sources sources;
    sources.write("tmp/main.asm", program("  lda missing\n"));
    const ProgramRun run = sources.facts("main.asm");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errorOutput, "");
}

TEST(KestrelFacts, FailWithoutAnInput) {
    Sources sources;
    EXPECT_EQ(sources.facts("missing.asm").status, 2);
    EXPECT_EQ(sources.facts("missing.asm").output, "");
    const ProgramRun wrong = sources.run(KESTREL_FACTS, {"main.asm"});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_EQ(wrong.output, "");
}

TEST(KestrelFacts, AddUpWhatAMacroMakes) {
    const Program known(program("put .macro\n"    // 4
                                "  lda #\\1\n"    // 5
                                "  sta $2000,x\n" // 6
                                "  .endm\n"       // 7
                                "start: put 1\n"  // 8
                                "  put LOW(start)\n"));
    EXPECT_EQ(known.line(8), (LineFacts{.line = 8,
                                        .address = 0x8000,
                                        .bank = 0,
                                        .times = 1,
                                        .bytes = 5,
                                        .leastCycles = 7,
                                        .mostCycles = 7}));
    EXPECT_EQ(known.line(9).address, 0x8005U);
    EXPECT_EQ(known.line(5), (LineFacts{.line = 5,
                                        .address = 0x8000,
                                        .bank = 0,
                                        .times = 2,
                                        .bytes = 4,
                                        .leastCycles = 2,
                                        .mostCycles = 2}));
    EXPECT_EQ(known.line(6).address, 0x8002U);
    EXPECT_EQ(known.symbol("put").definitions, places({{4, 1}}));
    EXPECT_EQ(known.symbol("put").uses, places({{8, 8}, {9, 3}}));
    EXPECT_EQ(known.symbol("start").uses, places({{9, 11}})); // came with an argument
}

TEST(KestrelFacts, TellOfRepetitionsOnTheirOwnLines) {
    const Program known(program("count = 3\n"     // 4
                                "  .rept count\n" // 5
                                "  bne *\n"       // 6
                                "  .endr\n"       // 7
                                "after: nop\n"));
    EXPECT_EQ(known.line(6), (LineFacts{.line = 6,
                                        .address = 0x8000,
                                        .bank = 0,
                                        .times = 3,
                                        .bytes = 6,
                                        .leastCycles = 2,
                                        .mostCycles = 4}));
    EXPECT_EQ(known.line(8).address, 0x8006U);
    EXPECT_EQ(known.symbol("count").uses, places({{5, 9}}));
}

TEST(KestrelFacts, TellOneTimeOfALineThatVaries) {
    const Program known(program("op .macro\n"
                                "  lda \\1\n" // 5
                                "  .endm\n"
                                "  op #1\n"
                                "  op $1234,x\n"));
    EXPECT_EQ(known.line(5).bytes, 5U);
    EXPECT_EQ(known.line(5).leastCycles, 2U);
    EXPECT_EQ(known.line(5).mostCycles, 5U);
}

TEST(KestrelFacts, CountReservedMemory) {
    const Program known(program("SPRITES = $0200\n"
                                "TABLE = $0300\n"
                                "PPU = $2000\n"
                                "LIMIT = $0400\n"
                                "  .rsset $10\n"
                                "a .rs 2\n"
                                "  .rs 1\n"
                                "b .rs 1\n"
                                "  .rsset $12\n"
                                "again .rs 4\n"
                                "  .rsset $01FE\n"
                                "stack .rs 4\n"
                                "  .zp\n"
                                "c: .ds 3\n" // 17
                                "  .bss\n"
                                "  .org $0300\n"
                                "d: .ds 16\n"
                                "  .code\n"
                                "  sta SPRITES\n"
                                "  sta TABLE\n"
                                "  sta PPU\n"
                                "  lda #LIMIT / 256\n"));
    using Ranges = std::vector<ByteRange>;
    const MemoryArea& zeroPage = known.area(MemoryArea::Kind::zeroPage);
    EXPECT_EQ(zeroPage.whole, (ByteRange{0, 0x100}));
    EXPECT_EQ(zeroPage.used, (Ranges{{0, 3}, {0x10, 0x16}}));
    EXPECT_EQ(zeroPage.largestGap(), (ByteRange{0x16, 0x100}));
    const MemoryArea& ram = known.area(MemoryArea::Kind::ram);
    EXPECT_EQ(ram.whole, (ByteRange{0x200, 0x800}));
    EXPECT_EQ(ram.used, (Ranges{{0x200, 0x202}, {0x300, 0x310}}));
    EXPECT_EQ(ram.named, (Ranges{}));
    EXPECT_TRUE(known.line(17).isInMemory());
    EXPECT_EQ(known.line(17).bytes, 3U);
    EXPECT_EQ(known.symbol("c").kind, SymbolFacts::Kind::label);
    EXPECT_EQ(known.symbol("c").bank, -1);
}

TEST(KestrelFacts, NameAddressesThatAreNotReserved) {
    const Program known(program("SPRITES = $0200\n"
                                "NEXT = $0201\n"
                                "LIMIT = $0400\n"
                                "  sta SPRITES\n"
                                "  sta NEXT\n"
                                "  lda #LIMIT / 256\n"));
    const MemoryArea& ram = known.area(MemoryArea::Kind::ram);
    EXPECT_EQ(ram.named, (std::vector<ByteRange>{{0x200, 0x202}}));
    EXPECT_EQ(ram.usedBytes(), 0U);
}

TEST(KestrelFacts, KeepLocalLabelsApart) {
    const Program known(program("one:\n" // 4
                                ".loop: bne .loop\n"
                                "two:\n" // 6
                                ".loop: bne .loop\n"
                                "  .ifdef one\n" // 8
                                "  nop\n"
                                "  .else\n"
                                "  lda #HIGH(one + SIZEOF(two))\n" // 11: not assembled
                                "  .endif\n"));
    EXPECT_EQ(known.symbol(".loop", "one").definitions, places({{5, 1}}));
    EXPECT_EQ(known.symbol(".loop", "one").uses, places({{5, 12}}));
    EXPECT_EQ(known.symbol(".loop", "two").definitions, places({{7, 1}}));
    EXPECT_EQ(known.symbol(".loop", "two").uses, places({{7, 12}}));
    EXPECT_EQ(known.symbol("one").uses, places({{8, 10}}));
    EXPECT_TRUE(known.symbol("two").uses.empty());
}

TEST(KestrelFacts, FindANameTwiceOnALineOfAMacro) {
    const Program known(program("low .macro\n"
                                "here: .db LOW(here), LOW(here + \\1)\n" // 5
                                "  .endm\n"
                                "  low 1\n"));
    EXPECT_EQ(known.symbol("here").definitions, places({{5, 1}}));
    EXPECT_EQ(known.symbol("here").uses, places({{5, 15}, {5, 26}}));
}

TEST(KestrelFacts, FindTheFirstWordWhereANameIsPutTogether) {
    const Program known(program("wait .macro\n" // 4
                                "again\\@: bne again\\@\n"
                                "  .endm\n"
                                "  wait\n"));
    const auto label = std::ranges::find_if(known.facts.symbols, [](const SymbolFacts& symbol) {
        return symbol.name.starts_with("again");
    });
    ASSERT_NE(label, known.facts.symbols.end());
    EXPECT_EQ(label->definitions, places({{5, 1}}));
    EXPECT_EQ(label->uses, places({}));
}

} // namespace kestrel::test
