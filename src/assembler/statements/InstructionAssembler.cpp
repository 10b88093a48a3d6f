// SPDX-License-Identifier: MIT
#include "assembler/statements/InstructionAssembler.h"

#include "assembler/text/FoundText.h"
#include "assembler/text/Text.h"

#include <array>
#include <utility>

namespace nesasm {

namespace {

constexpr Field fieldOf(Mode mode) {
    switch (mode) {
    case Mode::immediate:
        return Field::immediate;
    case Mode::zeroPage:
    case Mode::zeroPageX:
    case Mode::zeroPageY:
    case Mode::indirectX:
    case Mode::indirectY:
        return Field::zeroPage;
    case Mode::indirect:
        return Field::jumpIndirect;
    case Mode::relative:
        return Field::relative;
    case Mode::implied:
    case Mode::accumulator:
    case Mode::absolute:
    case Mode::absoluteX:
    case Mode::absoluteY:
        break;
    }
    return Field::absolute;
}

/// Behind a `<` that is ignored, or `p`.
Cursor skipLowMark(Cursor p) {
    p.skipBlanks();
    return *p == '<' ? p + 1 : p;
}

bool isRegister(Cursor p, char name) {
    return lowered(*p) == name && !isWordPart(p[1]);
}

} // namespace

InstructionAssembler::InstructionAssembler(const Statement& statement, ExpressionParser& parser,
                                           FieldWriter& fields, const OperandHints& hints,
                                           ImageWriter& writer, Reporter& reporter)
    : m_statement(statement)
    , m_parser(parser)
    , m_fields(fields)
    , m_hints(hints)
    , m_writer(writer)
    , m_reporter(reporter) {}

void InstructionAssembler::assemble(const Instruction& instruction, Cursor start, Cursor p) {
    p.skipBlanks();
    const Cursor operand = p;
    if (instruction.has(Mode::implied) && !p.isAtStatementEnd()) {
        reportMode(instruction, Shape::plain, operand);
        return;
    }
    const auto shape = readOperand(instruction, p);
    if (!shape) {
        return;
    }
    if (!m_reporter.expectEnd(p)) {
        return;
    }
    const auto mode = modeOf(instruction, *shape);
    if (!mode) {
        reportMode(instruction, *shape, operand.isAtStatementEnd() ? start : operand);
        return;
    }
    emit(instruction, *mode, start, operand);
}

std::optional<InstructionAssembler::Shape>
InstructionAssembler::readOperand(const Instruction& instruction, Cursor& p) {
    switch (*p) {
    case '#':
        ++p;
        if (!m_parser.parse(p, ExpressionParser::Prefix::lowHigh)) {
            return std::nullopt;
        }
        if (*p == ',') {
            fail(p, "an immediate value cannot be indexed; " + std::string(instruction.name) +
                        " can be written: " + modesText(instruction));
            return std::nullopt;
        }
        return Shape::immediate;
    case '<': {
        ++p;
        if (!m_parser.parse(p)) {
            return std::nullopt;
        }
        const auto index = readIndex(p);
        if (!index) {
            return std::nullopt;
        }
        return *index == Index::none ? Shape::zeroPage
               : *index == Index::x  ? Shape::zeroPageX
                                     : Shape::zeroPageY;
    }
    case '[':
        return readBracket(p);
    case '(':
        return readParenthesis(p);
    default:
        break;
    }
    if (p.isAtStatementEnd()) {
        return Shape::none;
    }
    if (isRegister(p, 'a') && instruction.has(Mode::accumulator) &&
        (p + 1).afterBlanks().isAtStatementEnd()) {
        ++p;
        return Shape::accumulator;
    }
    if (!m_parser.parse(p)) {
        return std::nullopt;
    }
    const auto index = readIndex(p);
    if (!index) {
        return std::nullopt;
    }
    return *index == Index::none ? Shape::plain
           : *index == Index::x  ? Shape::plainX
                                 : Shape::plainY;
}

/// [e], [e,x] or [e],y
std::optional<InstructionAssembler::Shape> InstructionAssembler::readBracket(Cursor& p) {
    p = skipLowMark(p + 1);
    if (!m_parser.parse(p)) {
        return std::nullopt;
    }
    if (*p == ',') {
        return insideIndex(p, ']');
    }
    if (*p != ']') {
        fail(p, "expected ']', found " + foundText(p));
        return std::nullopt;
    }
    ++p;
    const Cursor comma = p.afterBlanks();
    const auto index = readIndex(p);
    if (!index) {
        return std::nullopt;
    }
    if (*index == Index::x) {
        fail(comma, "there is no addressing mode [n],x; [n,x] and [n],y exist");
        return std::nullopt;
    }
    return *index == Index::y ? Shape::indirectY : Shape::indirect;
}

/// (e), (e,x), (e),y, or an expression that begins with a parenthesis
std::optional<InstructionAssembler::Shape> InstructionAssembler::readParenthesis(Cursor& p) {
    p = skipLowMark(p + 1);
    if (!m_parser.parse(p)) {
        return std::nullopt;
    }
    if (*p == ',') {
        return insideIndex(p, ')');
    }
    if (*p != ')') {
        fail(p, "expected ')', found " + foundText(p));
        return std::nullopt;
    }
    p = (p + 1).afterBlanks();
    const bool closesLast = *p == ',' || p.isAtStatementEnd();
    if (!closesLast && !m_parser.parseRest(p)) {
        return std::nullopt;
    }
    const auto index = readIndex(p);
    if (!index) {
        return std::nullopt;
    }
    switch (*index) {
    case Index::x:
        return Shape::plainX;
    case Index::y:
        return closesLast ? Shape::parenthesisY : Shape::plainY;
    case Index::none:
        break;
    }
    return closesLast ? Shape::parenthesis : Shape::plain;
}

/// The rest of (e,x) or [e,x], at the comma
std::optional<InstructionAssembler::Shape> InstructionAssembler::insideIndex(Cursor& p,
                                                                             char closing) {
    const Cursor comma = p;
    const auto index = readIndex(p);
    if (!index) {
        return std::nullopt;
    }
    p.skipBlanks();
    if (*index == Index::y) {
        fail(comma, "only x can be the index inside the brackets; y comes after them, as in [n],y");
        return std::nullopt;
    }
    if (*p != closing) {
        fail(p, "expected '" + std::string(1, closing) + "', found " + foundText(p));
        return std::nullopt;
    }
    ++p;
    return Shape::indirectX;
}

/// ",x" or ",y" or nothing; nullopt when something else stands after a comma
std::optional<InstructionAssembler::Index> InstructionAssembler::readIndex(Cursor& p) {
    const Cursor comma = p.afterBlanks();
    if (*comma != ',') {
        return Index::none;
    }
    const Cursor letter = (comma + 1).afterBlanks();
    const bool isX = isRegister(letter, 'x');
    if (!isX && !isRegister(letter, 'y')) {
        fail(letter, "expected X or Y after the comma, found " + foundText(letter));
        return std::nullopt;
    }
    p = letter + 1;
    return isX ? Index::x : Index::y;
}

std::optional<Mode> InstructionAssembler::modeOf(const Instruction& instruction,
                                                 Shape shape) const {
    const auto present = [&](Mode mode) -> std::optional<Mode> {
        return instruction.has(mode) ? std::optional(mode) : std::nullopt;
    };
    switch (shape) {
    case Shape::none:
        return instruction.has(Mode::accumulator) ? Mode::accumulator : present(Mode::implied);
    case Shape::accumulator:
        return present(Mode::accumulator);
    case Shape::immediate:
        return present(Mode::immediate);
    case Shape::zeroPage:
        return present(Mode::zeroPage);
    case Shape::zeroPageX:
        return present(Mode::zeroPageX);
    case Shape::zeroPageY:
        return present(Mode::zeroPageY);
    case Shape::parenthesis:
        if (instruction.has(Mode::indirect)) {
            return Mode::indirect;
        }
        [[fallthrough]];
    case Shape::plain:
        return instruction.has(Mode::relative) ? Mode::relative : present(Mode::absolute);
    case Shape::plainX:
        return present(Mode::absoluteX);
    case Shape::plainY:
        return present(Mode::absoluteY);
    case Shape::parenthesisY:
        return present(modeOfParenthesisY(instruction));
    case Shape::indirect:
        return present(Mode::indirect);
    case Shape::indirectX:
        return present(Mode::indirectX);
    case Shape::indirectY:
        return present(Mode::indirectY);
    }
    return std::nullopt;
}

/// (e),y is indirect only when e is known by now to lie in the zero page.
Mode InstructionAssembler::modeOfParenthesisY(const Instruction& instruction) const {
    if (!instruction.has(Mode::indirectY)) {
        return Mode::absoluteY;
    }
    const Evaluation value = m_parser.peek();
    return value.status == Evaluation::Status::known && value.value < 0x100 ? Mode::indirectY
                                                                            : Mode::absoluteY;
}

void InstructionAssembler::emit(const Instruction& instruction, Mode mode, Cursor start,
                                Cursor operand) {
    const auto opcode = static_cast<std::uint8_t>(instruction.opcode(mode));
    if (mode == Mode::implied || mode == Mode::accumulator) {
        m_writer.emit(&opcode, 1, start);
        return;
    }
    if (m_hints.areWanted()) {
        m_hints.look(instruction, mode, m_parser.operations(), m_reporter.at(operand));
    }
    m_fields.write({fieldOf(mode), operand, m_statement.address + 2, opcode, true});
}

/// How an operand of that shape is written; n is any expression.
std::string_view InstructionAssembler::shapeText(Shape shape) {
    static constexpr std::array<std::string_view, 14> Texts{"",      "A",   "#n",    "<n",   "<n,x",
                                                            "<n,y",  "n",   "n,x",   "n,y",  "(n)",
                                                            "(n),y", "[n]", "[n,x]", "[n],y"};
    return Texts[static_cast<std::size_t>(shape)];
}

void InstructionAssembler::reportMode(const Instruction& instruction, Shape shape, Cursor operand) {
    const std::string name(instruction.name);
    std::string text;
    if (shape == Shape::none) {
        text = name + " needs an operand";
    } else if (instruction.has(Mode::implied)) {
        text = name + " takes no operand";
    } else {
        text = name + " does not have the addressing mode " + quoted(shapeText(shape));
    }
    text += "; it can be written: " + modesText(instruction);
    if (shape != Shape::none && instruction.has(Mode::implied)) {
        text += commentRemedy(operand);
    }
    if ((shape == Shape::plainX && instruction.has(Mode::zeroPageX)) ||
        (shape == Shape::plainY && instruction.has(Mode::zeroPageY))) {
        text += "; an address in the zero page needs a < before it";
    } else if (shape == Shape::immediate && !instruction.has(Mode::implied)) {
        text += "; with a # it is a value, but " + name + " needs an address";
    }
    fail(operand, std::move(text));
}

bool InstructionAssembler::fail(Cursor at, std::string text) {
    m_reporter.error(at, std::move(text));
    return false;
}

} // namespace nesasm
