// SPDX-License-Identifier: MIT
// Reads what is written for debuggers as they do, and compares it with the image.
#include "assembler/output/LabelFiles.h"

#include "assembler/output/DbgFile.h"
#include "assembler/output/ImageFile.h"
#include "assembler/run/Assembler.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace nesasm {

namespace {

constexpr const char* Source = R"(	.inesprg 2
	.ineschr 1
twice .macro
.in\@:	lda #\1
	sta $2007
	.endm
	.rsset $0300
buffer	.rs 16
	.bank 0
	.org $8000
start:
	twice 1
	twice 2
.loop:	jmp .loop
a.b:	nop
a_b:	nop
	.incbin "data.bin"
	.bank 3
	.org $E000
reset:	jmp start
	.org $FFFA
	.dw reset,reset,reset
)";

/// One line of a .dbg file: its keyword and its values.
struct Row {
    std::string keyword;
    std::map<std::string, std::string> values;

    unsigned long number(const std::string& key) const {
        return std::stoul(values.at(key), nullptr, 0);
    }
};

std::vector<Row> rowsOf(const std::string& text) {
    std::vector<Row> rows;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        Row row;
        row.keyword = line.substr(0, line.find('\t'));
        static const std::regex pair(R"re(([a-z]+)=("[^"]*"|[^,"]*)(,|$))re");
        const std::string values = line.substr(row.keyword.size() + 1);
        std::size_t length = 0;
        for (std::sregex_iterator match(values.begin(), values.end(), pair), end; match != end;
             ++match) {
            row.values[(*match)[1]] = (*match)[2];
            length += static_cast<std::size_t>(match->length());
        }
        EXPECT_EQ(length, values.size()) << line;
        rows.push_back(row);
    }
    return rows;
}

class LabelFiles : public ::testing::Test {
protected:
    LabelFiles() {
        m_folder.write("data.bin", std::string(8200, 'd'));
        Options options;
        options.input = m_folder.write("game.asm", Source).string();
        options.includeFolders = {m_folder.path().string()};
        options.recordsLines = true;
        m_assembler = std::make_unique<Assembler>(
            options, [&](std::string_view text) { m_messages += text; });
        EXPECT_EQ(m_assembler->run(), Assembler::Result::built) << m_messages;
        m_image = imageFile(m_assembler->image());
    }
    std::string output() const { return (m_folder.path() / "game.nes").string(); }
    std::vector<Row> rows() const { return rowsOf(dbgFile(m_assembler->program(), output()).text); }

    kestrel::test::TemporaryFolder m_folder;
    std::string m_messages;
    std::unique_ptr<Assembler> m_assembler;
    std::vector<std::uint8_t> m_image;
};

TEST_F(LabelFiles, DbgCountsItsRowsAndRefersToRowsThatAreThere) {
    std::map<std::string, std::set<unsigned long>> ids;
    const std::vector<Row> all = rows();
    ASSERT_GE(all.size(), 2U);
    EXPECT_EQ(all[0].keyword, "version");
    EXPECT_EQ(all[0].values.at("major"), "2");
    EXPECT_EQ(all[1].keyword, "info");
    for (const Row& row : all) {
        if (row.values.contains("id")) {
            EXPECT_TRUE(ids[row.keyword].insert(row.number("id")).second) << row.keyword;
        }
    }
    for (const char* kind :
         {"csym", "file", "lib", "line", "mod", "scope", "seg", "span", "sym", "type"}) {
        EXPECT_EQ(all[1].number(kind), ids[kind].size()) << kind;
    }
    const std::map<std::string, std::string> references{{"file", "file"},  {"seg", "seg"},
                                                        {"mod", "mod"},    {"scope", "scope"},
                                                        {"parent", "sym"}, {"def", "line"}};
    for (const Row& row : all) {
        for (const auto& [key, kind] : references) {
            if (row.keyword != "info" && row.values.contains(key)) {
                EXPECT_TRUE(ids[kind].contains(row.number(key))) << row.keyword << " " << key;
            }
        }
        if (row.keyword == "line" && row.values.contains("span")) {
            std::istringstream spans(row.values.at("span"));
            for (std::string span; std::getline(spans, span, '+');) {
                EXPECT_TRUE(ids["span"].contains(std::stoul(span)));
            }
        }
    }
}

TEST_F(LabelFiles, DbgLeadsFromASourceLineToItsBytes) {
    const std::vector<Row> all = rows();
    std::map<unsigned long, const Row*> spans;
    std::map<unsigned long, const Row*> segments;
    for (const Row& row : all) {
        if (row.keyword == "span") {
            spans[row.number("id")] = &row;
        }
        if (row.keyword == "seg") {
            segments[row.number("id")] = &row;
        }
    }
    const auto bytesOfLine = [&](unsigned long line, bool inMacro) {
        std::vector<int> bytes;
        for (const Row& row : all) {
            if (row.keyword != "line" || row.number("line") != line ||
                !row.values.contains("span") ||
                (row.values.contains("type") && row.number("type") == 2) != inMacro) {
                continue;
            }
            std::istringstream list(row.values.at("span"));
            for (std::string id; std::getline(list, id, '+');) {
                const Row& span = *spans.at(std::stoul(id));
                const Row& segment = *segments.at(span.number("seg"));
                EXPECT_LE(span.number("start") + span.number("size"), segment.number("size"));
                const unsigned long first = segment.number("ooffs") + span.number("start");
                for (unsigned long i = first; i < first + span.number("size"); ++i) {
                    bytes.push_back(m_image.at(i));
                }
            }
        }
        return bytes;
    };
    EXPECT_EQ(bytesOfLine(4, true), (std::vector<int>{0xA9, 1, 0xA9, 2})) << "the macro's own line";
    EXPECT_EQ(bytesOfLine(12, false), (std::vector<int>{0xA9, 1, 0x8D, 7, 0x20})) << "its call";
    EXPECT_EQ(bytesOfLine(14, false), (std::vector<int>{0x4C, 0x0A, 0x80}));
    EXPECT_EQ(bytesOfLine(17, false), std::vector<int>(8200, 'd')) << "data in two banks";
    EXPECT_EQ(bytesOfLine(20, false), (std::vector<int>{0x4C, 0x00, 0x80}));
}

TEST_F(LabelFiles, DbgNamesTheSourceAsSeenFromItsOwnFolder) {
    for (const Row& row : rows()) {
        if (row.keyword == "file") {
            EXPECT_EQ(row.values.at("name"), "\"game.asm\"");
            EXPECT_EQ(row.number("size"), std::string(Source).size());
        }
    }
}

TEST_F(LabelFiles, DbgGivesEachLabelItsPlace) {
    std::map<std::string, const Row*> symbols;
    const std::vector<Row> all = rows();
    for (const Row& row : all) {
        if (row.keyword == "sym") {
            symbols[row.values.at("name")] = &row;
        }
    }
    ASSERT_TRUE(symbols.contains("\"start\""));
    EXPECT_EQ(symbols.at("\"start\"")->number("val"), 0x8000U);
    EXPECT_EQ(symbols.at("\"start\"")->values.at("type"), "lab");
    EXPECT_EQ(symbols.at("\"@loop\"")->number("parent"), symbols.at("\"start\"")->number("id"));
    EXPECT_EQ(symbols.at("\"buffer\"")->number("size"), 16U);
    EXPECT_FALSE(symbols.at("\"buffer\"")->values.contains("seg"));
}

TEST_F(LabelFiles, MlbRowsAreOnesThatTheImporterTakes) {
    const std::regex form("(NesPrgRom|NesInternalRam|NesWorkRam|NesSaveRam|NesMemory|NesChrRom):"
                          "[0-9A-F]+(-[0-9A-F]+)?:[@_a-zA-Z]+[@_a-zA-Z0-9]*(:[^:]*)?");
    std::istringstream lines(mlbFile(m_assembler->program(), output()).text);
    std::set<std::string> names;
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        EXPECT_TRUE(std::regex_match(line, form)) << line;
        names.insert(line.substr(line.find(':') + 1));
    }
    EXPECT_TRUE(names.contains("0300-030F:buffer:written by NESasm"));
    EXPECT_TRUE(names.contains("0000:start:also start@in00001"));
    EXPECT_TRUE(names.contains("000A:start@loop"));
    EXPECT_TRUE(names.contains("000D:a_b")) << "the dot is none that the importer takes";
    EXPECT_TRUE(names.contains("000E:a_b_2")) << "a name stands once only";
    EXPECT_TRUE(names.contains("6000:reset"));
    EXPECT_EQ(count, names.size());
}

TEST_F(LabelFiles, NlFilesHoldEachAddressOnceInTheFileOfItsBank) {
    const std::regex form(R"(\$[0-9A-F]{4}(/[0-9A-F]+)?#[^#]+#[^#]*)");
    std::map<std::string, std::string> texts;
    for (const SideFile& file : nlFiles(m_assembler->program(), output())) {
        std::set<std::string> addresses;
        std::istringstream lines(file.text);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_TRUE(std::regex_match(line, form)) << line;
            EXPECT_LE(line.size(), 512U);
            EXPECT_TRUE(addresses.insert(line.substr(0, 5)).second) << line;
        }
        texts[file.path.substr(output().size())] = file.text;
    }
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_NE(texts[".ram.nl"].find("$0300/10#buffer#written by NESasm\n"), std::string::npos);
    EXPECT_NE(texts[".0.nl"].find("$8000#start#written by NESasm; also start@in00001\n"),
              std::string::npos);
    EXPECT_NE(texts[".1.nl"].find("$E000#reset#written by NESasm\n"), std::string::npos);
}

TEST(LabelFileNames, TheMarkStaysBesideANameThatFillsItsLine) {
    kestrel::test::TemporaryFolder folder;
    Options options;
    options.input =
        folder.write("game.asm", " .org $8000\n" + std::string(600, 'n') + ":\n nop\n").string();
    Assembler assembler(options, [](std::string_view) {});
    ASSERT_EQ(assembler.run(), Assembler::Result::built);
    const std::string line = nlFiles(assembler.program(), "game.nes").at(1).text;
    EXPECT_LE(line.size(), 513U) << "512 characters and the line's end";
    EXPECT_TRUE(line.ends_with("nnn#written by NESasm\n")) << line;
}

TEST(LabelFileNames, EndingsAreReplacedInTheNameOnly) {
    EXPECT_EQ(withEnding("out/game.nes", ".mlb"), "out/game.mlb");
    EXPECT_EQ(withEnding("out.d/game", ".mlb"), "out.d/game.mlb");
    EXPECT_EQ(withEnding("game.old.nes", ".dbg"), "game.old.dbg");
    EXPECT_EQ(withEnding(".nes", ".mlb"), ".nes.mlb");
    EXPECT_EQ(withEnding("", ".mlb"), ".mlb");
}

} // namespace

} // namespace nesasm
