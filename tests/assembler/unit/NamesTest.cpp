// SPDX-License-Identifier: MIT
#include "assembler/state/Names.h"

#include <gtest/gtest.h>

#include <string>

namespace nesasm {

namespace {

TEST(Names, GiveLocalSymbolsToTheLastLabel) {
    Arena arena;
    SymbolTable symbols;
    Line line;
    Names names(line, symbols, arena);
    const SymbolId before = names.intern(".loop");
    const SymbolId first = names.intern("first");
    names.openScope(first);
    const SymbolId inFirst = names.intern(".loop");
    EXPECT_NE(before, inFirst);
    EXPECT_EQ(names.find(".loop"), inFirst);
    EXPECT_EQ(names.find("first"), first);
    names.openScope(names.intern("second"));
    EXPECT_EQ(names.find(".loop"), 0U);
}

TEST(Names, OutlastALineThatDoesNotLast) {
    Arena arena;
    SymbolTable symbols;
    Line line;
    Names names(line, symbols, arena);
    line.isShortLived = true;
    std::string text = "label";
    const SymbolId id = names.intern(text);
    text = "XXXXX";
    EXPECT_EQ(symbols[id].name, "label");
}

TEST(Names, BreakOnlySymbolsWithoutADefinition) {
    Arena arena;
    SymbolTable symbols;
    Line line;
    Names names(line, symbols, arena);
    names.markBroken("wrong");
    EXPECT_TRUE(names[names.intern("wrong")].isBroken);
    names.predefine("right", 5);
    names.markBroken("right");
    EXPECT_FALSE(names[names.intern("right")].isBroken);
    EXPECT_EQ(names[names.find("right")].value, 5);
}

} // namespace

} // namespace nesasm
