// SPDX-License-Identifier: MIT
// Feeds the assembler programs of several files: sources that include one another, data, pictures.
#include "assembler/run/Assembler.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

/// A line with this mark begins the next file.
constexpr std::string_view Mark = ";;;\n";
constexpr std::array<std::string_view, 6> Names{"input.asm", "one.asm",   "two.inc",
                                                "data.bin",  "tiles.chr", "picture.pcx"};

/// A folder of this process's own, empty but for the files. It stays, as the process is ended from
/// outside; whoever starts it points TMPDIR at a place that is cleared.
const std::string& folder() {
    static const std::string path = [] {
        const char* base = std::getenv("TMPDIR");
        std::string name = std::string(base != nullptr ? base : "/tmp") + "/kestrel-fuzz-XXXXXX";
        if (::mkdtemp(name.data()) == nullptr) {
            std::abort();
        }
        return name + "/";
    }();
    return path;
}

void write(std::string_view name, std::string_view content) {
    std::FILE* file = std::fopen((folder() + std::string(name)).c_str(), "wb");
    if (file == nullptr || std::fwrite(content.data(), 1, content.size(), file) != content.size() ||
        std::fclose(file) != 0) {
        std::abort();
    }
}

} // namespace

/// Splits the bytes into files and assembles the first one, with every warning on. Nothing but
/// crashes, leaks, undefined behaviour, hangs and memory out of proportion is looked for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    for (std::size_t i = 0; i < Names.size(); ++i) {
        const std::size_t end = i + 1 < Names.size() ? rest.find(Mark) : std::string_view::npos;
        write(Names[i], rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + Mark.size());
    }
    nesasm::Options options;
    options.input = folder() + "input.asm";
    options.includeList = folder();
    // So much takes a program that is not instrumented a fraction of a second.
    options.mostWork = std::uint64_t{1} << 24U;
    for (std::size_t i = 0; i < nesasm::WarningCount; ++i) {
        options.warnings.turn(static_cast<nesasm::Warning>(i), true);
    }
    // Both forms of messages, the same one each time that this input is run.
    options.form = size % 2 == 0 ? nesasm::MessageForm::plain : nesasm::MessageForm::json;
    std::size_t shown = 0;
    nesasm::Assembler assembler(options, [&shown](std::string_view text) { shown += text.size(); });
    if (assembler.run() != nesasm::Assembler::Result::built && shown == 0) {
        std::abort(); // a failure without a message
    }
    return 0;
}
