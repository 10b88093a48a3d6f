// SPDX-License-Identifier: MIT
#include "assembler/statements/InstructionAssembler.h"

#include "assembler/statements/FieldWriter.h"
#include "assembler/text/Characters.h"
#include "assembler/text/Text.h"

#include <array>
#include <utility>

namespace nesasm {

namespace {

constexpr Field fieldOf(Mode mode) {
    switch (mode) {
    case Mode::Immediate:
        return Field::Immediate;
    case Mode::ZeroPage:
    case Mode::ZeroPageX:
    case Mode::ZeroPageY:
    case Mode::IndirectX:
    case Mode::IndirectY:
        return Field::ZeroPage;
    case Mode::Indirect:
        return Field::JumpIndirect;
    case Mode::Relative:
        return Field::Relative;
    default:
        return Field::Absolute;
    }
}

/// Behind a `<` that is ignored, or `p`.
const char* skipLowMark(const char* p) {
    p = skipBlanks(p);
    return *p == '<' ? p + 1 : p;
}

bool isRegister(const char* p, char name) {
    return lowered(*p) == name && !isWordPart(p[1]);
}

} // namespace

InstructionAssembler::InstructionAssembler(Assembly& assembly, ExpressionParser& parser)
    : m_assembly(assembly)
    , m_parser(parser)
    , m_hints(assembly) {}

void InstructionAssembler::assemble(const Instruction& instruction, const char* start,
                                    const char* p) {
    p = skipBlanks(p);
    const char* const operand = p;
    if (instruction.has(Mode::Implied) && !endsStatement(*p)) {
        reportMode(instruction, Shape::Plain, operand);
        return;
    }
    const auto shape = readOperand(instruction, p);
    if (!shape)
        return;
    if (!m_assembly.expectEnd(p))
        return;
    const auto mode = modeOf(instruction, *shape);
    if (!mode) {
        reportMode(instruction, *shape, endsStatement(*operand) ? start : operand);
        return;
    }
    emit(instruction, *mode, start, operand);
}

std::optional<InstructionAssembler::Shape>
InstructionAssembler::readOperand(const Instruction& instruction, const char*& p) {
    switch (*p) {
    case '#':
        ++p;
        if (!m_parser.parse(p, ExpressionParser::Prefix::LowHigh))
            return std::nullopt;
        if (*p == ',') {
            fail(p, "behind an immediate value there is no index; " +
                        std::string(instruction.name) +
                        " can be written: " + modesText(instruction));
            return std::nullopt;
        }
        return Shape::Immediate;
    case '<': {
        ++p;
        if (!m_parser.parse(p))
            return std::nullopt;
        const auto index = readIndex(p);
        if (!index)
            return std::nullopt;
        return *index == Index::None ? Shape::ZeroPage
               : *index == Index::X  ? Shape::ZeroPageX
                                     : Shape::ZeroPageY;
    }
    case '[':
        return readBracket(p);
    case '(':
        return readParenthesis(p);
    default:
        break;
    }
    if (endsStatement(*p))
        return Shape::None;
    if (isRegister(p, 'a') && instruction.has(Mode::Accumulator) &&
        endsStatement(*skipBlanks(p + 1))) {
        ++p;
        return Shape::Accumulator;
    }
    if (!m_parser.parse(p))
        return std::nullopt;
    const auto index = readIndex(p);
    if (!index)
        return std::nullopt;
    return *index == Index::None ? Shape::Plain
           : *index == Index::X  ? Shape::PlainX
                                 : Shape::PlainY;
}

/// [e], [e,x] or [e],y
std::optional<InstructionAssembler::Shape> InstructionAssembler::readBracket(const char*& p) {
    p = skipLowMark(p + 1);
    if (!m_parser.parse(p))
        return std::nullopt;
    if (*p == ',')
        return insideIndex(p, ']');
    if (*p != ']') {
        fail(p, "a ']' was expected, but " + foundText(p) + " was found");
        return std::nullopt;
    }
    ++p;
    const char* const comma = skipBlanks(p);
    const auto index = readIndex(p);
    if (!index)
        return std::nullopt;
    if (*index == Index::X) {
        fail(comma, "there is no addressing mode [n],x; [n,x] and [n],y exist");
        return std::nullopt;
    }
    return *index == Index::Y ? Shape::IndirectY : Shape::Indirect;
}

/// (e), (e,x), (e),y, or an expression that begins with a parenthesis
std::optional<InstructionAssembler::Shape> InstructionAssembler::readParenthesis(const char*& p) {
    p = skipLowMark(p + 1);
    if (!m_parser.parse(p))
        return std::nullopt;
    if (*p == ',')
        return insideIndex(p, ')');
    if (*p != ')') {
        fail(p, "a ')' was expected, but " + foundText(p) + " was found");
        return std::nullopt;
    }
    p = skipBlanks(p + 1);
    const bool closesLast = *p == ',' || endsStatement(*p);
    if (!closesLast && !m_parser.parseRest(p))
        return std::nullopt;
    const auto index = readIndex(p);
    if (!index)
        return std::nullopt;
    switch (*index) {
    case Index::X:
        return Shape::PlainX;
    case Index::Y:
        return closesLast ? Shape::ParenthesisY : Shape::PlainY;
    case Index::None:
        break;
    }
    return closesLast ? Shape::Parenthesis : Shape::Plain;
}

/// The rest of (e,x) or [e,x], at the comma
std::optional<InstructionAssembler::Shape> InstructionAssembler::insideIndex(const char*& p,
                                                                             char closing) {
    const char* const comma = p;
    const auto index = readIndex(p);
    if (!index)
        return std::nullopt;
    p = skipBlanks(p);
    if (*index == Index::Y) {
        fail(comma,
             "inside the brackets only x can be the index; y stands behind them, as in [n],y");
        return std::nullopt;
    }
    if (*p != closing) {
        fail(p, "a '" + std::string(1, closing) + "' was expected, but " + foundText(p) +
                    " was found");
        return std::nullopt;
    }
    ++p;
    return Shape::IndirectX;
}

/// ",x" or ",y" or nothing; nullopt when something else stands behind a comma
std::optional<InstructionAssembler::Index> InstructionAssembler::readIndex(const char*& p) {
    const char* const comma = skipBlanks(p);
    if (*comma != ',')
        return Index::None;
    const char* const letter = skipBlanks(comma + 1);
    const bool isX = isRegister(letter, 'x');
    if (!isX && !isRegister(letter, 'y')) {
        fail(letter,
             "behind the comma x or y was expected, but " + foundText(letter) + " was found");
        return std::nullopt;
    }
    p = letter + 1;
    return isX ? Index::X : Index::Y;
}

std::optional<Mode> InstructionAssembler::modeOf(const Instruction& instruction,
                                                 Shape shape) const {
    const auto present = [&](Mode mode) -> std::optional<Mode> {
        return instruction.has(mode) ? std::optional(mode) : std::nullopt;
    };
    switch (shape) {
    case Shape::None:
        return instruction.has(Mode::Accumulator) ? Mode::Accumulator : present(Mode::Implied);
    case Shape::Accumulator:
        return present(Mode::Accumulator);
    case Shape::Immediate:
        return present(Mode::Immediate);
    case Shape::ZeroPage:
        return present(Mode::ZeroPage);
    case Shape::ZeroPageX:
        return present(Mode::ZeroPageX);
    case Shape::ZeroPageY:
        return present(Mode::ZeroPageY);
    case Shape::Parenthesis:
        if (instruction.has(Mode::Indirect))
            return Mode::Indirect;
        [[fallthrough]];
    case Shape::Plain:
        return instruction.has(Mode::Relative) ? Mode::Relative : present(Mode::Absolute);
    case Shape::PlainX:
        return present(Mode::AbsoluteX);
    case Shape::PlainY:
        return present(Mode::AbsoluteY);
    case Shape::ParenthesisY:
        return present(modeOfParenthesisY(instruction));
    case Shape::Indirect:
        return present(Mode::Indirect);
    case Shape::IndirectX:
        return present(Mode::IndirectX);
    case Shape::IndirectY:
        return present(Mode::IndirectY);
    }
    return std::nullopt;
}

/// (e),y is indirect only when e is known by now to lie in the zero page.
Mode InstructionAssembler::modeOfParenthesisY(const Instruction& instruction) const {
    if (!instruction.has(Mode::IndirectY))
        return Mode::AbsoluteY;
    const Evaluation value = evaluate(m_parser.operations(), m_assembly.symbols);
    return value.status == Evaluation::Status::Known && value.value < 0x100 ? Mode::IndirectY
                                                                            : Mode::AbsoluteY;
}

void InstructionAssembler::emit(const Instruction& instruction, Mode mode, const char* start,
                                const char* operand) {
    const auto opcode = static_cast<std::uint8_t>(instruction.opcode(mode));
    if (mode == Mode::Implied || mode == Mode::Accumulator) {
        m_assembly.emit(&opcode, 1, start);
        return;
    }
    if (m_hints.areWanted())
        m_hints.look(instruction, mode, m_parser.operations(), operand);
    emitField(m_assembly, m_parser, {fieldOf(mode), operand, m_assembly.here + 2, opcode, true});
}

/// How an operand of that shape is written; n is any expression.
std::string_view InstructionAssembler::shapeText(Shape shape) {
    static constexpr std::array<std::string_view, 14> kTexts{
        "",    "A",   "#n",  "<n",    "<n,x", "<n,y",  "n",
        "n,x", "n,y", "(n)", "(n),y", "[n]",  "[n,x]", "[n],y"};
    return kTexts[static_cast<std::size_t>(shape)];
}

void InstructionAssembler::reportMode(const Instruction& instruction, Shape shape,
                                      const char* operand) {
    const std::string name(instruction.name);
    std::string text;
    if (shape == Shape::None)
        text = name + " needs an operand";
    else if (instruction.has(Mode::Implied))
        text = name + " takes no operand";
    else
        text = name + " does not have the addressing mode " + quoted(shapeText(shape));
    text += "; it can be written: " + modesText(instruction);
    if (shape != Shape::None && instruction.has(Mode::Implied))
        text += commentRemedy(operand);
    if ((shape == Shape::PlainX && instruction.has(Mode::ZeroPageX)) ||
        (shape == Shape::PlainY && instruction.has(Mode::ZeroPageY)))
        text += "; an address in the zero page needs a < before it";
    else if (shape == Shape::Immediate && !instruction.has(Mode::Implied))
        text += "; with a # it is a value, but " + name + " needs an address";
    fail(operand, std::move(text));
}

bool InstructionAssembler::fail(const char* at, std::string text) {
    m_assembly.error(at, std::move(text));
    return false;
}

} // namespace nesasm
