// SPDX-License-Identifier: MIT
#include "assembler/language/Functions.h"

#include "assembler/text/Text.h"

#include <array>

namespace nesasm {

namespace {

struct FunctionName {
    std::string_view name;
    Function function;
};

constexpr std::array<FunctionName, 5> FunctionNames{{{"low", Function::low},
                                                     {"high", Function::high},
                                                     {"bank", Function::bank},
                                                     {"page", Function::page},
                                                     {"sizeof", Function::sizeOf}}};

} // namespace

std::optional<Function> findFunction(std::string_view name) {
    for (const FunctionName& row : FunctionNames) {
        if (equalsIgnoringCase(row.name, name)) {
            return row.function;
        }
    }
    return std::nullopt;
}

} // namespace nesasm
