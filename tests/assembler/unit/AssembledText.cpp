// SPDX-License-Identifier: MIT
#include "assembler/unit/AssembledText.h"

#include "assembler/output/ImageFile.h"
#include "assembler/run/Assembler.h"
#include "support/TemporaryFolder.h"

namespace nesasm::test {

std::vector<int> Assembled::bytes(std::size_t count) const {
    if (file.size() < 16 + count) {
        return {};
    }
    return {file.begin() + 16, file.begin() + 16 + static_cast<std::ptrdiff_t>(count)};
}

Assembled assembled(std::string_view source, Options options) {
    const kestrel::test::TemporaryFolder folder;
    options.input = folder.write("game.asm", source).string();
    Assembled result;
    Assembler assembler(options, [&](std::string_view text) { result.messages += text; });
    result.isBuilt = assembler.run() == Assembler::Result::built;
    if (result.isBuilt) {
        result.file = imageFile(assembler.image());
    }
    return result;
}

} // namespace nesasm::test
