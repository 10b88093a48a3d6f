// SPDX-License-Identifier: MIT
#include "assembler/run/Assembler.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

/// A folder of this process's own, empty but for the source. It stays, as the process is ended from
/// outside; whoever starts it points TMPDIR at a place that is cleared.
const std::string& sourcePath() {
    static const std::string path = [] {
        const char* base = std::getenv("TMPDIR");
        std::string folder = std::string(base != nullptr ? base : "/tmp") + "/kestrel-fuzz-XXXXXX";
        if (::mkdtemp(folder.data()) == nullptr) {
            std::abort();
        }
        return folder + "/input.asm";
    }();
    return path;
}

} // namespace

/// Assembles the bytes as one source that may include itself. Nothing but crashes, leaks, undefined
/// behaviour, hangs and memory out of proportion is looked for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string& path = sourcePath();
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr || std::fwrite(data, 1, size, file) != size || std::fclose(file) != 0) {
        std::abort();
    }
    nesasm::Options options;
    options.input = path;
    // So much takes a program that is not instrumented a fraction of a second.
    options.mostWork = std::uint64_t{1} << 24U;
    // Both forms of messages, the same one each time that this input is run.
    options.form = size % 2 == 0 ? nesasm::MessageForm::plain : nesasm::MessageForm::json;
    std::size_t shown = 0;
    nesasm::Assembler assembler(options, [&shown](std::string_view text) { shown += text.size(); });
    if (assembler.run() != nesasm::Assembler::Result::built && shown == 0) {
        std::abort(); // a failure without a message
    }
    return 0;
}
