// SPDX-License-Identifier: MIT
#include "assembler/values/Expression.h"

#include "assembler/unit/AssembledText.h"

#include <gtest/gtest.h>

#include <string>

namespace nesasm {

namespace {

/// The value of an expression, through an assertion that holds for it alone.
void expectValue(const std::string& expression, const std::string& value) {
    const auto result =
        test::assembled("value = " + expression + "\n .assert value = " + value + "\n");
    EXPECT_TRUE(result.isBuilt) << expression << " is not " << value << "\n" << result.messages;
    const auto other =
        test::assembled("value = " + expression + "\n .assert value = " + value + " + 1\n");
    EXPECT_FALSE(other.isBuilt) << "the assertion cannot fail";
}

TEST(Expression, OperatorsBindInTheOrderOfTheTable) {
    expectValue("1 + 2 * 3", "7");
    expectValue("-2 * 3", "-6");
    expectValue("1 << 2 + 1", "8");
    expectValue("7 & 3 = 3", "1");
    expectValue("1 | 6 ^ 4", "3");
    expectValue("8 - 4 - 2", "2");
    expectValue("1 || 0 && 0", "1");
    expectValue("(1 + 2) * 3", "9");
    expectValue("5 % 3 * 2", "4");
    expectValue("1 < 2 == 1", "1");
}

TEST(Expression, IsComputedIn64BitsAndTheResultWrapped) {
    expectValue("$7FFFFFFF * 2 / 2", "$7FFFFFFF");
    expectValue("$FFFFFFFF", "-1");
    expectValue("1 << 31", "-2147483648");
    expectValue("$FFFFFFFF * $FFFFFFFF * $FFFFFFFF", "-1");
}

TEST(Expression, DivisionTruncatesAndRightShiftKeepsTheSign) {
    expectValue("-7 / 2", "-3");
    expectValue("-7 % 2", "-1");
    expectValue("-7 >> 1", "-4");
    expectValue("($80000000 << 31 << 1) / -1", "0");
}

TEST(Expression, WrongArithmeticIsAnError) {
    for (const char* const wrong : {"1 / 0", "1 % 0", "1 << 32", "1 << -1", "1 >> 32", "$100000000",
                                    "4294967296", "%111111111111111111111111111111111"}) {
        const auto result = test::assembled(std::string("v = ") + wrong + "\n");
        EXPECT_FALSE(result.isBuilt) << wrong;
        EXPECT_NE(result.messages.find("1 error\n"), std::string::npos) << result.messages;
    }
}

TEST(Expression, UnknownSymbolsAreNamed) {
    SymbolTable symbols;
    const SymbolId id = symbols.intern("later", 0, nullptr);
    const Operation operations[]{
        {OpCode::literal, 0, 1, 0}, {OpCode::value, 0, id, 4}, {OpCode::add, 0, 0, 2}};
    Evaluation result = evaluate(operations, symbols);
    EXPECT_EQ(result.status, Evaluation::Status::unknown);
    EXPECT_EQ(result.symbol, id);
    EXPECT_EQ(result.column, 4U);
    symbols[id].isKnown = true;
    symbols[id].value = 41;
    symbols[id].bank = 3;
    result = evaluate(operations, symbols);
    EXPECT_EQ(result.status, Evaluation::Status::known);
    EXPECT_EQ(result.value, 42);
    EXPECT_EQ(result.bank, 3);
}

TEST(Expression, DeepNestingIsAnErrorAndLongChainsAreNot) {
    const auto parentheses = test::assembled("v = " + std::string(100000, '(') + "\n");
    EXPECT_NE(parentheses.messages.find("nested more than 100 deep"), std::string::npos);
    const auto signs = test::assembled("v = " + std::string(100000, '-') + "1\n");
    EXPECT_NE(signs.messages.find("nested more than 100 deep"), std::string::npos);
    std::string sum = "v = 0";
    for (int i = 0; i < 100000; ++i) {
        sum += "+1";
    }
    EXPECT_TRUE(test::assembled(sum + "\n .assert v = 100000\n").isBuilt);
}

TEST(Expression, ALongChainOfForwardSymbolsIsResolved) {
    std::string source = " .org $8000\n .dw s0\n";
    for (int i = 0; i < 50000; ++i) {
        source += "s" + std::to_string(i) + " = s" + std::to_string(i + 1) + "\n";
    }
    source += "s50000:\n";
    EXPECT_EQ(test::assembled(source).bytes(2), (std::vector<int>{0x02, 0x80}));
}

TEST(Expression, SymbolsDefinedByEachOtherAreAnError) {
    const auto result = test::assembled("a1 = b1\nb1 = c1\nc1 = a1\n");
    EXPECT_FALSE(result.isBuilt);
    EXPECT_NE(result.messages.find("is defined in terms of itself"), std::string::npos)
        << result.messages;
}

} // namespace

} // namespace nesasm
