// SPDX-License-Identifier: MIT
#include "assembler/language/InstructionTable.h"

#include "assembler/unit/AssembledText.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>

namespace nesasm {

namespace {

/// The operation code matrix of MOS Technology's "MCS6500 Microcomputer Family Programming Manual",
/// appendix B, a row for each high digit; "..." marks codes that are not documented.
constexpr std::array<std::array<const char*, 16>, 16> Matrix{{
    {"BRK imp", "ORA izx", "...", "...", "...", "ORA zp", "ASL zp", "...", "PHP imp", "ORA imm",
     "ASL acc", "...", "...", "ORA abs", "ASL abs", "..."},
    {"BPL rel", "ORA izy", "...", "...", "...", "ORA zpx", "ASL zpx", "...", "CLC imp", "ORA aby",
     "...", "...", "...", "ORA abx", "ASL abx", "..."},
    {"JSR abs", "AND izx", "...", "...", "BIT zp", "AND zp", "ROL zp", "...", "PLP imp", "AND imm",
     "ROL acc", "...", "BIT abs", "AND abs", "ROL abs", "..."},
    {"BMI rel", "AND izy", "...", "...", "...", "AND zpx", "ROL zpx", "...", "SEC imp", "AND aby",
     "...", "...", "...", "AND abx", "ROL abx", "..."},
    {"RTI imp", "EOR izx", "...", "...", "...", "EOR zp", "LSR zp", "...", "PHA imp", "EOR imm",
     "LSR acc", "...", "JMP abs", "EOR abs", "LSR abs", "..."},
    {"BVC rel", "EOR izy", "...", "...", "...", "EOR zpx", "LSR zpx", "...", "CLI imp", "EOR aby",
     "...", "...", "...", "EOR abx", "LSR abx", "..."},
    {"RTS imp", "ADC izx", "...", "...", "...", "ADC zp", "ROR zp", "...", "PLA imp", "ADC imm",
     "ROR acc", "...", "JMP ind", "ADC abs", "ROR abs", "..."},
    {"BVS rel", "ADC izy", "...", "...", "...", "ADC zpx", "ROR zpx", "...", "SEI imp", "ADC aby",
     "...", "...", "...", "ADC abx", "ROR abx", "..."},
    {"...", "STA izx", "...", "...", "STY zp", "STA zp", "STX zp", "...", "DEY imp", "...",
     "TXA imp", "...", "STY abs", "STA abs", "STX abs", "..."},
    {"BCC rel", "STA izy", "...", "...", "STY zpx", "STA zpx", "STX zpy", "...", "TYA imp",
     "STA aby", "TXS imp", "...", "...", "STA abx", "...", "..."},
    {"LDY imm", "LDA izx", "LDX imm", "...", "LDY zp", "LDA zp", "LDX zp", "...", "TAY imp",
     "LDA imm", "TAX imp", "...", "LDY abs", "LDA abs", "LDX abs", "..."},
    {"BCS rel", "LDA izy", "...", "...", "LDY zpx", "LDA zpx", "LDX zpy", "...", "CLV imp",
     "LDA aby", "TSX imp", "...", "LDY abx", "LDA abx", "LDX aby", "..."},
    {"CPY imm", "CMP izx", "...", "...", "CPY zp", "CMP zp", "DEC zp", "...", "INY imp", "CMP imm",
     "DEX imp", "...", "CPY abs", "CMP abs", "DEC abs", "..."},
    {"BNE rel", "CMP izy", "...", "...", "...", "CMP zpx", "DEC zpx", "...", "CLD imp", "CMP aby",
     "...", "...", "...", "CMP abx", "DEC abx", "..."},
    {"CPX imm", "SBC izx", "...", "...", "CPX zp", "SBC zp", "INC zp", "...", "INX imp", "SBC imm",
     "NOP imp", "...", "CPX abs", "SBC abs", "INC abs", "..."},
    {"BEQ rel", "SBC izy", "...", "...", "...", "SBC zpx", "INC zpx", "...", "SED imp", "SBC aby",
     "...", "...", "...", "SBC abx", "INC abx", "..."},
}};

struct Writing {
    const char* operand;
    std::vector<int> bytes;
};

/// How each mode is written in a source at $8000, and the bytes behind the opcode.
const std::map<std::string, Writing>& writings() {
    static const std::map<std::string, Writing> table{
        {"imp", {"", {}}},
        {"acc", {" A", {}}},
        {"imm", {" #$12", {0x12}}},
        {"zp", {" <$34", {0x34}}},
        {"zpx", {" <$34,x", {0x34}}},
        {"zpy", {" <$34,y", {0x34}}},
        {"abs", {" $1234", {0x34, 0x12}}},
        {"abx", {" $1234,x", {0x34, 0x12}}},
        {"aby", {" $1234,y", {0x34, 0x12}}},
        {"ind", {" [$1234]", {0x34, 0x12}}},
        {"izx", {" [$56,x]", {0x56}}},
        {"izy", {" [$56],y", {0x56}}},
        {"rel", {" $8012", {0x10}}},
    };
    return table;
}

TEST(InstructionTable, EveryDocumentedInstructionInEveryModeHasItsEncoding) {
    int count = 0;
    for (int opcode = 0; opcode < 256; ++opcode) {
        const std::string entry =
            Matrix[static_cast<std::size_t>(opcode / 16)][static_cast<std::size_t>(opcode % 16)];
        if (entry == "...") {
            continue;
        }
        ++count;
        const Writing& writing = writings().at(entry.substr(4));
        const std::string source = " .org $8000\n " + entry.substr(0, 3) + writing.operand + "\n";
        const auto result = test::assembled(source);
        std::vector<int> expected{opcode};
        expected.insert(expected.end(), writing.bytes.begin(), writing.bytes.end());
        expected.push_back(0xFF); // nothing follows
        EXPECT_EQ(result.bytes(expected.size()), expected) << source << result.messages;
    }
    EXPECT_EQ(count, 151);
}

TEST(InstructionTable, HoldsNoEncodingBeyondTheDocumentedOnes) {
    int count = 0;
    for (const Instruction& instruction : InstructionTable) {
        for (const std::uint16_t opcode : instruction.opcodes) {
            count += opcode != Instruction::NoOpcode ? 1 : 0;
        }
    }
    EXPECT_EQ(count, 151);
}

TEST(InstructionTable, ListsTheModesAsTheyAreWritten) {
    EXPECT_EQ(InstructionTable[0].name, "ADC");
    EXPECT_EQ(modesText(InstructionTable[0]),
              "ADC #n, ADC <n, ADC <n,x, ADC n, ADC n,x, ADC n,y, ADC [n,x], ADC [n],y");
}

} // namespace

} // namespace nesasm
