// SPDX-License-Identifier: MIT
#include "assembler/output/DebugLabels.h"

#include "assembler/output/ImageFile.h"

#include <map>
#include <set>
#include <utility>

namespace nesasm {

namespace {

/// Where the places of the NES's memory lie (source: nesdev wiki, "CPU memory map").
constexpr std::uint32_t RamEnd = 0x0800;
constexpr std::uint32_t WorkRam = 0x6000;
constexpr std::uint32_t PrgRom = 0x8000;
constexpr std::uint32_t AddressEnd = 0x10000;

bool isNameable(const Symbol& symbol) {
    if (!symbol.isKnown || symbol.isBroken || symbol.name.empty()) {
        return false;
    }
    const bool isPlace = symbol.isLabel || symbol.isReserved || symbol.isAddress;
    const auto value = static_cast<std::uint32_t>(symbol.value);
    return isPlace && value < AddressEnd && !symbol.isAtBankEnd;
}

void locate(const Symbol& symbol, std::uint32_t prgBanks, DebugLabel& label) {
    using Memory = DebugLabel::Memory;
    const std::uint32_t address = label.address;
    const bool isInBank = symbol.isLabel && symbol.bank >= 0;
    const std::uint32_t bank = isInBank ? static_cast<std::uint32_t>(symbol.bank) : 0;
    const std::uint32_t bankOffset = bank * BankSize + (address & (BankSize - 1));
    if (isInBank && bank >= prgBanks) {
        label.memory = Memory::chrRom;
        label.offset = bankOffset - prgBanks * BankSize;
    } else if (address < RamEnd) {
        label.memory = Memory::internalRam;
        label.offset = address;
    } else if (address >= WorkRam && address < PrgRom) {
        label.memory = Memory::workRam;
        label.offset = address - WorkRam;
    } else if (isInBank && address >= PrgRom) {
        label.memory = Memory::prgRom;
        label.offset = bankOffset;
    } else {
        label.memory = Memory::other;
        label.offset = address;
    }
    const bool isRam = label.memory == Memory::internalRam || label.memory == Memory::workRam;
    if (isRam && symbol.size != None && symbol.size > 1 && address + symbol.size <= AddressEnd) {
        label.size = symbol.size;
    }
}

} // namespace

std::string debugName(const SymbolTable& symbols, SymbolId id) {
    const Symbol& symbol = symbols[id];
    std::string name;
    std::string_view own = symbol.name;
    if (own.starts_with('.')) {
        name = symbol.scope == 0 ? std::string() : debugName(symbols, symbol.scope);
        name += '@';
        own.remove_prefix(1);
    }
    for (const char c : own) {
        name += c == '.' ? '_' : c;
    }
    return name;
}

std::vector<DebugLabel> debugLabels(const FinishedProgram& program) {
    const SymbolTable& symbols = program.symbols;
    const std::uint32_t prgBanks = prgBankCount(program.image);
    std::vector<DebugLabel> labels;
    std::set<std::string> names;
    std::map<std::pair<DebugLabel::Memory, std::uint32_t>, std::size_t> places;
    // Labels and variables first: a constant of the same value is less likely what is meant.
    for (const bool isConstantsTurn : {false, true}) {
        for (SymbolId id = 1; id < symbols.size(); ++id) {
            const Symbol& symbol = symbols[id];
            const bool isConstant = !symbol.isLabel && !symbol.isReserved;
            if (!isNameable(symbol) || isConstant != isConstantsTurn) {
                continue;
            }
            DebugLabel label;
            label.symbol = id;
            label.address = static_cast<std::uint32_t>(symbol.value);
            locate(symbol, prgBanks, label);
            const std::string plain = debugName(symbols, id);
            label.name = plain;
            for (unsigned number = 2; !names.insert(label.name).second; ++number) {
                label.name = plain + "_" + std::to_string(number);
            }
            const auto [place, isNew] =
                places.emplace(std::pair(label.memory, label.offset), labels.size());
            if (isNew) {
                labels.push_back(std::move(label));
            } else {
                labels[place->second].also.push_back(std::move(label.name));
            }
        }
    }
    return labels;
}

} // namespace nesasm
