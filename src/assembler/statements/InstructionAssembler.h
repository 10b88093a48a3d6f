// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/language/InstructionTable.h"
#include "assembler/statements/Assembly.h"
#include "assembler/statements/ExpressionParser.h"
#include "assembler/statements/OperandHints.h"
#include "assembler/values/Field.h"

namespace nesasm {

/// Reads an instruction's operand, chooses the mode and puts the bytes into the image.
class InstructionAssembler {
public:
    InstructionAssembler(Assembly& assembly, ExpressionParser& parser);

    /// `p` is behind the mnemonic, which begins at `start`.
    void assemble(const Instruction& instruction, Cursor start, Cursor p);

private:
    /// How an operand is written.
    enum class Shape {
        none,
        accumulator,
        immediate,
        zeroPage,
        zeroPageX,
        zeroPageY,
        plain,
        plainX,
        plainY,
        parenthesis,
        parenthesisY, ///< (e) and (e),y; (e),x is only grouping
        indirect,
        indirectX,
        indirectY
    };
    enum class Index { none, x, y };

    std::optional<Shape> readOperand(const Instruction& instruction, Cursor& p);
    std::optional<Shape> readBracket(Cursor& p);
    std::optional<Shape> readParenthesis(Cursor& p);
    std::optional<Shape> insideIndex(Cursor& p, char closing);
    std::optional<Index> readIndex(Cursor& p);
    std::optional<Mode> modeOf(const Instruction& instruction, Shape shape) const;
    Mode modeOfParenthesisY(const Instruction& instruction) const;
    void emit(const Instruction& instruction, Mode mode, Cursor start, Cursor operand);
    void reportMode(const Instruction& instruction, Shape shape, Cursor operand);
    static std::string_view shapeText(Shape shape);
    bool fail(Cursor at, std::string text);

    Assembly& m_assembly;
    ExpressionParser& m_parser;
    OperandHints m_hints;
};

} // namespace nesasm
