// SPDX-License-Identifier: MIT
#include "assembler/reading/SourceStack.h"

#include "assembler/text/Characters.h"

#include <cstring>

namespace nesasm {

namespace {

/// What a line counts for beyond its bytes.
constexpr std::uint64_t WorkOfLine = 100;

} // namespace

Frame& SourceStack::push(Origin::Kind kind, const Passage& passage, OriginId origin) {
    if (m_depth == m_frames.size()) {
        m_frames.push_back(std::make_unique<Frame>());
    }
    Frame& frame = *m_frames[m_depth++];
    frame.kind = kind;
    frame.passage = passage;
    frame.cursor = passage.text.data();
    frame.line = passage.firstLine - 1;
    frame.origin = origin;
    frame.repetitions = 0;
    frame.countsAsWork = kind != Origin::Kind::file;
    frame.label = 0;
    return frame;
}

SourceStack::Next SourceStack::next(Line& line) {
    Frame& frame = top();
    const std::string_view text = frame.passage.text;
    if (frame.cursor == text.data() + text.size()) {
        if (frame.repetitions == 0 || text.empty()) {
            return Next::endOfFrame;
        }
        --frame.repetitions;
        frame.cursor = text.data();
        frame.line = frame.passage.firstLine - 1;
    }
    const char* const begin = frame.cursor;
    const char* const textEnd = text.data() + text.size();
    const auto left = static_cast<std::size_t>(textEnd - begin);
    const char* end = nullptr;
    if (frame.passage.file != nullptr && !frame.passage.file->hasCarriageReturns()) {
        end = static_cast<const char*>(std::memchr(begin, '\n', left + 1));
    } else {
        end = Cursor(begin).lineEnd().data();
    }
    frame.cursor = end;
    if (end < textEnd) {
        frame.cursor += end[0] == '\r' && end + 1 < textEnd && end[1] == '\n' ? 2 : 1;
    }
    line = {Cursor(begin), ++frame.line, frame.origin, ++m_order, false};
    const std::string_view content(begin, static_cast<std::size_t>(end - begin));
    if (frame.countsAsWork) {
        m_work += content.size() + WorkOfLine;
        if (m_work > m_mostWork) {
            return Next::tooMuch;
        }
    }
    if (frame.kind == Origin::Kind::macro && content.find('\\') != std::string_view::npos) {
        return expand(frame, content, line);
    }
    return Next::line;
}

SourceStack::Next SourceStack::expand(Frame& frame, std::string_view text, Line& line) {
    frame.buffer.clear();
    const bool fits = expandLine(text, frame.arguments, frame.number, frame.buffer);
    m_work += frame.buffer.size();
    frame.buffer += '\n';
    line.begin = Cursor(frame.buffer.data());
    line.isShortLived = true;
    return fits ? Next::line : Next::tooLong;
}

} // namespace nesasm
