// SPDX-License-Identifier: MIT
// Feeds the expression parser lines of text and compares what it makes of equal expressions.
#include "assembler/expressions/ExpressionParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace {

/// What reading `text` came to: nothing for an error, else the value and its bank, as far as known.
struct Reading {
    nesasm::Evaluation evaluation;
    std::size_t length = 0;
};

std::optional<Reading> read(const std::string& text) {
    nesasm::Arena arena;
    nesasm::Origins origins;
    nesasm::Diagnostics diagnostics(
        origins, [](std::string_view) {}, 0, nesasm::MessageForm::plain);
    nesasm::SymbolTable symbols;
    nesasm::Deferred deferred;
    nesasm::Statement statement;
    nesasm::Reporter reporter(statement.line, diagnostics, origins, arena);
    nesasm::Names names(statement.line, symbols, arena);
    nesasm::Origin origin;
    origin.file = "fuzz.asm";
    const std::string line = text + "\n";
    statement.line = {nesasm::Cursor(line.c_str()), 1, origins.add(origin), 1, false};
    statement.address = 0x8123;
    nesasm::Symbol& known = symbols[symbols.intern("known", 0, nullptr)];
    known.isDefined = known.isKnown = known.isLabel = true;
    known.value = 0xC0DE;
    known.bank = 3;
    known.size = 2;
    nesasm::ExpressionParser parser(statement, names, reporter, deferred);
    const nesasm::Cursor begin(line.c_str());
    nesasm::Cursor p = begin;
    if (!parser.parse(p)) {
        if (diagnostics.errorCount() == 0) {
            std::abort(); // a failure without a message
        }
        return std::nullopt;
    }
    const auto length = p - begin;
    if (length > text.size()) {
        std::abort(); // read beyond the end of the line
    }
    return Reading{parser.evaluateNow(), length};
}

} // namespace

/// The first line of the bytes is an expression; in parentheses, and added to nothing, it must be
/// the same one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string text(bytes.substr(0, bytes.find_first_of("\r\n")));
    const auto plain = read(text);
    if (!plain) {
        return 0;
    }
    const std::string whole = text.substr(0, plain->length);
    for (const std::string& other : {"(" + whole + ")", "0+(" + whole + ")", "+(" + whole + ")"}) {
        const auto same = read(other);
        if (!same) {
            // One more level of parentheses may be one too many.
            if (whole.size() < 100) {
                std::abort();
            }
            continue;
        }
        if (same->length != other.size() || same->evaluation.status != plain->evaluation.status ||
            (same->evaluation.status == nesasm::Evaluation::Status::known &&
             (same->evaluation.value != plain->evaluation.value ||
              same->evaluation.bank != plain->evaluation.bank))) {
            std::abort();
        }
    }
    return 0;
}
