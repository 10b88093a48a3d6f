// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/expressions/ExpressionParser.h"
#include "assembler/expressions/FieldWriter.h"
#include "assembler/expressions/OperandHints.h"
#include "assembler/language/InstructionTable.h"
#include "assembler/state/ImageWriter.h"
#include "assembler/state/Reporter.h"
#include "assembler/state/Statement.h"
#include "assembler/values/Field.h"

namespace nesasm {

/// Reads an instruction's operand, chooses the mode and puts the bytes into the image.
class InstructionAssembler {
public:
    InstructionAssembler(const Statement& statement, ExpressionParser& parser, FieldWriter& fields,
                         const OperandHints& hints, ImageWriter& writer, Reporter& reporter);

    /// `p` is after the mnemonic, which begins at `start`.
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

    const Statement& m_statement;
    ExpressionParser& m_parser;
    FieldWriter& m_fields;
    OperandHints m_hints;
    ImageWriter& m_writer;
    Reporter& m_reporter;
};

} // namespace nesasm
