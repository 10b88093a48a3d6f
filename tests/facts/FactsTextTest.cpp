// SPDX-License-Identifier: MIT
#include "facts/FactsText.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrel {

namespace {

constexpr std::string_view Good = "kestrel-facts\t1\n"
                                  "area\tprg\t0\t0\t8192\t0-10,20-8192\t\n"
                                  "area\tzeroPage\t0\t0\t256\t\t16-17\n"
                                  "file\t/p/tmp/a\\tb\\\\c\\n.asm\t12\t18446744073709551615\n"
                                  "line\t3\t49170\t1\t1\t3\t4\t5\n"
                                  "line\t9\t16\t4294967295\t2\t2\t0\t0\n"
                                  "file\tinc.asm\t0\t0\n"
                                  "symbol\tlabel\tmain\t\t49170\t1\t3\n"
                                  "definition\t0\t3\t1\n"
                                  "use\t1\t2\t9\n"
                                  "use\t1\t4\t1\n"
                                  "symbol\tconstant\t.x\tmain\t-2\t-1\t0\n"
                                  "end\n";

std::string replaced(std::string_view what, std::string_view by) {
    std::string text(Good);
    text.replace(text.find(what), what.size(), by);
    return text;
}

} // namespace

TEST(FactsText, ReadsAllFacts) {
    const auto facts = readFacts(Good);
    ASSERT_TRUE(facts.has_value());
    ASSERT_EQ(facts->areas.size(), 2U);
    EXPECT_EQ(facts->areas[0].kind, MemoryArea::Kind::prg);
    EXPECT_EQ(facts->areas[0].whole, (ByteRange{0, 8192}));
    EXPECT_EQ(facts->areas[0].used, (std::vector<ByteRange>{{0, 10}, {20, 8192}}));
    EXPECT_EQ(facts->areas[1].kind, MemoryArea::Kind::zeroPage);
    EXPECT_EQ(facts->areas[1].named, (std::vector<ByteRange>{{16, 17}}));
    ASSERT_EQ(facts->files.size(), 2U);
    EXPECT_EQ(facts->files[0].path, "/p/tmp/a\tb\\c\n.asm");
    EXPECT_EQ(facts->files[0].size, 12U);
    EXPECT_EQ(facts->files[0].hash, 18446744073709551615U);
    ASSERT_EQ(facts->files[0].lines.size(), 2U);
    EXPECT_EQ(facts->files[0].lines[0], (LineFacts{.line = 3,
                                                   .address = 49170,
                                                   .bank = 1,
                                                   .times = 1,
                                                   .bytes = 3,
                                                   .leastCycles = 4,
                                                   .mostCycles = 5}));
    EXPECT_TRUE(facts->files[0].lines[1].isInMemory());
    ASSERT_EQ(facts->symbols.size(), 2U);
    EXPECT_EQ(facts->symbols[0].name, ".x"); // by name
    EXPECT_EQ(facts->symbols[0].scope, "main");
    EXPECT_EQ(facts->symbols[0].value, -2);
    EXPECT_EQ(facts->symbols[1].kind, SymbolFacts::Kind::label);
    EXPECT_EQ(facts->symbols[1].definitions, (std::vector<FactPlace>{{0, 3, 1}}));
    EXPECT_EQ(facts->symbols[1].uses, (std::vector<FactPlace>{{1, 2, 9}, {1, 4, 1}}));
}

TEST(FactsText, ReadsAnEmptyProgram) {
    EXPECT_EQ(readFacts("kestrel-facts\t1\nend\n"), ProgramFacts{});
}

TEST(FactsText, RefusesOtherVersions) {
    EXPECT_FALSE(readFacts(replaced("kestrel-facts\t1", "kestrel-facts\t2")));
    EXPECT_FALSE(readFacts(replaced("kestrel-facts\t1", "kestrel-facts")));
    EXPECT_FALSE(readFacts(""));
}

TEST(FactsText, RefusesWhatWasCutOffAnywhere) {
    for (std::size_t length = 0; length + 1 < Good.size(); ++length) {
        EXPECT_FALSE(readFacts(Good.substr(0, length))) << length;
    }
    EXPECT_FALSE(readFacts(std::string(Good) + "line\t20\t0\t0\t1\t0\t0\t0\n"));
}

TEST(FactsText, RefusesDamagedLines) {
    for (const auto& [what, by] : std::initializer_list<std::pair<const char*, const char*>>{
             {"0-10,20-8192", "0-10,10-8192"},                 // they touch
             {"0-10,20-8192", "20-30,0-10"},                   // out of order
             {"0-10,20-8192", "0-8193"},                       // beyond the end
             {"0-10,20-8192", "5-5"},                          // empty
             {"0-10,20-8192", "0-"},                           // half
             {"0-10,20-8192", "0-10,"},                        // nothing behind the comma
             {"\t0\t0\t8192", "\t0\t8192\t0"},                 // an area turned round
             {"area\tprg", "area\tprog"},                      // no such kind
             {"area\tprg\t0", "area\tprg\t0\t0"},              // a field too many
             {"line\t3\t", "line\t3\t\t"},                     // an empty number
             {"line\t3\t49170\t1\t1", "line\t3\t49170\t1\t0"}, // assembled no times
             {"3\t4\t5\n", "3\t6\t5\n"},                       // more at least than at most
             {"3\t4\t5\n", "3\t4\t5x\n"},                      // no number
             {"3\t4\t5\n", "3\t4\n"},                          // a field too few
             {"3\t4\t5\n", "3\t4\t4294967296\n"},              // too large
             {"line\t9", "line\t3"},                           // twice
             {"line\t9", "line\t-9"},                          // negative
             {"a\\tb", "a\\xb"},                               // no such escape
             {".asm\t12", ".asm\\\t12"},                       // half an escape
             {"definition\t0", "definition\t2"},               // no such file
             {"use\t1\t2\t9", "use\t1\t0\t9"},                 // no such line
             {"use\t1\t2\t9", "use\t1\t2\t0"},                 // no such column
             {"symbol\tlabel\tmain", "symbol\tlabel\t"},       // no name
             {"symbol\tlabel", "symbol\tplace"},               // no such kind
             {"symbol\tconstant", "unknown\tconstant"},
             {"end\n", "\nend\n"},
             {"area\tprg", "line\t1\t0\t0\t1\t0\t0\t0\narea\tprg"}, // a line of no file
             {"area\tprg", "use\t0\t1\t1\narea\tprg"},              // a place of no symbol
         }) {
        EXPECT_FALSE(readFacts(replaced(what, by))) << what << " -> " << by;
    }
}

} // namespace kestrel
