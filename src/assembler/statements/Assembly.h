// SPDX-License-Identifier: MIT
#pragma once

#include "assembler/messages/Diagnostics.h"
#include "assembler/reading/Conditionals.h"
#include "assembler/reading/FileFinder.h"
#include "assembler/reading/FileStore.h"
#include "assembler/reading/LineRecords.h"
#include "assembler/reading/Origins.h"
#include "assembler/reading/SourceStack.h"
#include "assembler/statements/Options.h"
#include "assembler/text/Arena.h"
#include "assembler/text/Cursor.h"
#include "assembler/values/Deferred.h"
#include "assembler/values/Image.h"
#include "assembler/values/SymbolTable.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace nesasm {

/// A macro: its body, and where it was defined.
struct Macro {
    std::string_view name;
    Passage body;
};

/// Where a symbol was defined.
struct Definition {
    SymbolId symbol = 0;
    Position position;
};

/// The state of one run: the parts that the statements work on, and the present statement.
struct Assembly {
    Assembly(const Options& options, TextSink sink);

    Arena arena;
    Origins origins;
    Diagnostics diagnostics;
    FileFinder finder;
    FileStore files;
    SymbolTable symbols;
    SourceStack sources;
    Conditionals conditionals;
    Image image;
    Deferred deferred;
    LineRecords records{arena, origins}; ///< while `recordsLines`
    std::vector<Macro> macros;
    std::vector<Definition> definitions; ///< only when unused symbols are to be reported
    std::uint32_t expansions = 0;
    bool recordsLines = false;
    /// A macro is named like a directive or an instruction, so every such word has to be looked up.
    bool macroHidesKeyword = false;
    /// A file or the end of a macro is missing: names that are not known are no news.
    bool isIncomplete = false;
    std::int32_t reserveCounter = 0;   ///< of .rs
    bool sectionErrorReported = false; ///< since the present section was entered
    Position headerPosition;           ///< of a header directive, or else of the first line

    Line line;              ///< the present one
    SymbolId scope = 0;     ///< the label that local names belong to
    std::uint32_t here = 0; ///< the address of the present statement
    /// The label on the present line, whose size is measured; 0 for none.
    SymbolId sizedLabel = 0;
    std::uint64_t sizedFrom = 0;

    /// The place `p` in the present line, for a message that is made now.
    Position at(Cursor p) const;
    /// The place `p` in the present line, for later: the line's text is kept.
    Position keep(Cursor p);

    void error(Cursor p, std::string text) { diagnostics.error(at(p), std::move(text)); }
    void error(Cursor p, const std::function<std::string()>& text) {
        diagnostics.error(at(p), text);
    }
    void warn(Warning warning, Cursor p, std::string text) {
        diagnostics.warning(warning, at(p), std::move(text));
    }

    /// The symbol of this name, made when it is new, in the present scope.
    SymbolId intern(std::string_view name) {
        return symbols.intern(name, scope, line.isShortLived ? &arena : nullptr);
    }

    /// A symbol of this name was meant to be defined, but that was an error, which is reported: it
    /// is not reported again where the symbol is used.
    void markBroken(std::string_view name);

    /// Reports what stands at `p` unless the statement ends there. True when it does. `remedy` is
    /// added to the message: a part of a sentence that begins with ";".
    bool expectEnd(Cursor p, std::string_view remedy = {});

    /// Puts bytes into the image at the present place; what does not fit is reported.
    void emit(const std::uint8_t* bytes, std::size_t count, Cursor p) {
        if (const std::size_t excess = image.emit(bytes, count); excess != 0) {
            reportExcess(excess, p);
        }
    }
    /// Notes that `excess` bytes did not fit into the bank or section.
    void reportExcess(std::size_t excess, Cursor p);

    /// Notes that .org has moved the place: what does not fit from now on is another overflow.
    void noteMove();

    /// Notes bytes that the present statement wrote over others.
    void noteOverwriting();

    /// Says how much each full bank overflowed and what was written twice. To be called when the
    /// source has ended.
    void reportPlaces();

private:
    struct Overflow {
        Position position;
        std::uint32_t bank;
        std::size_t excess;
        bool isOver; ///< the place has been moved away from the end
    };
    std::vector<Overflow> m_overflows;
    /// Bytes in a row that were written over others.
    struct Overwriting {
        Position position;
        Image::Overwritten bytes;
    };
    std::vector<Overwriting> m_overwritings;
};

/// Advice for somebody who begins a comment at `p` as other languages do, "" for anything else.
const char* commentRemedy(Cursor p);

/// What stands at `p`, for a message: "'x'", or "the end of the line".
std::string foundText(Cursor p);

} // namespace nesasm
