// SPDX-License-Identifier: MIT
#include "editors/code/SourceMarks.h"

#include "editors/code/CodeEditorTextView.h"
#include "editors/code/LinePieces.h"

#include <QHelpEvent>
#include <QStringList>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>
#include <array>

namespace kestrel {

namespace {

using Kind = SourceMark::Kind;

/// How marks of a kind look, with colours that can be told from both usual backgrounds.
struct Look {
    QTextCharFormat::UnderlineStyle style;
    QRgb onLight;
    QRgb onDark;
};

constexpr std::array Looks = {
    Look{QTextCharFormat::WaveUnderline, 0xFFC62828, 0xFFFF8A80},
    Look{QTextCharFormat::DashUnderline, 0xFF8A5A00, 0xFFFFD54F},
    Look{QTextCharFormat::DotLine, 0xFF1565C0, 0xFF82B1FF},
};

QTextCharFormat formatOf(Kind kind, const QPalette& palette) {
    const Look& look = Looks.at(static_cast<std::size_t>(kind));
    const bool isDark = palette.base().color().lightness() < 128;
    QTextCharFormat format;
    format.setUnderlineStyle(look.style);
    format.setUnderlineColor(QColor::fromRgb(isDark ? look.onDark : look.onLight));
    return format;
}

QString lineText(const QTextBlock& block) {
    QTextBlock piece = firstPiece(block);
    QString text = piece.text();
    for (piece = piece.next(); continuesLine(piece); piece = piece.next()) {
        text += piece.text();
    }
    return text;
}

QString sentence(const SourceMark& mark) {
    switch (mark.kind) {
    case Kind::error:
        return SourceMarks::tr("Error: %1").arg(mark.text);
    case Kind::warning:
        return SourceMarks::tr("Warning: %1").arg(mark.text);
    case Kind::note:
        break;
    }
    return SourceMarks::tr("Note: %1").arg(mark.text);
}

} // namespace

SourceMarks::SourceMarks(CodeEditorTextView& view, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_viewport(view.viewport()) {
    connect(view.document(), &QTextDocument::contentsChange, this,
            [this](int position, int /*removed*/, int added) { followChange(position, added); });
    connect(&view, &QPlainTextEdit::cursorPositionChanged, this, &SourceMarks::describe);
    view.installEventFilter(this);
    m_viewport->installEventFilter(this);
}

void SourceMarks::add(const std::vector<SourceMark>& marks) {
    for (const SourceMark& mark : marks) {
        if (m_marks.size() == Limit) {
            break;
        }
        if (mark.place.line > m_view.lineCount()) {
            continue; // the text has become shorter since
        }
        QTextCursor word(m_view.document());
        word.setPosition(positionOf(m_view, mark.place));
        const QTextBlock block = word.block();
        // The end of a line has no word: what is before it is underlined.
        if (word.atBlockEnd() && !word.atBlockStart()) {
            word.movePosition(QTextCursor::PreviousCharacter);
        }
        word.setPosition(endOfWord(block, word.position()), QTextCursor::KeepAnchor);
        m_marks.push_back({mark, word, lineText(block)});
    }
    show();
}

void SourceMarks::clear() {
    m_marks.clear();
    show();
}

std::vector<SourceMark> SourceMarks::marks() const {
    std::vector<SourceMark> marks;
    marks.reserve(m_marks.size());
    for (const Shown& shown : m_marks) {
        marks.push_back(shown.mark);
        marks.back().place.line = m_view.lineAt(shown.word.selectionStart()) + 1;
    }
    return marks;
}

std::optional<SourcePlace> SourceMarks::placeOf(std::size_t id) const {
    for (const Shown& shown : m_marks) {
        if (shown.mark.id == id) {
            // Its line is what it was, so only the line's number may be another one.
            return SourcePlace{m_view.lineAt(shown.word.selectionStart()) + 1,
                               shown.mark.place.column};
        }
    }
    return std::nullopt;
}

QString SourceMarks::textAt(int position, bool wholeLine) const {
    QStringList texts;
    for (const Shown& shown : m_marks) {
        const int start = shown.word.selectionStart();
        const bool isThere = wholeLine ? m_view.lineAt(start) == m_view.lineAt(position)
                                       : position >= start && position <= shown.word.selectionEnd();
        if (isThere) {
            texts << sentence(shown.mark);
        }
    }
    texts.removeDuplicates();
    return texts.join(u'\n');
}

/// Drops the marks of the lines that were changed.
void SourceMarks::followChange(int position, int added) {
    if (m_marks.empty()) {
        return;
    }
    const QTextDocument& document = *m_view.document();
    const QTextBlock last =
        document.findBlock(std::min(position + added, document.characterCount() - 1));
    const int from = firstPiece(document.findBlock(position)).position();
    const QTextBlock lastOfLine = lastPiece(last);
    const int to = lastOfLine.position() + lastOfLine.length();
    const auto isEdited = [&](const Shown& shown) {
        const int place = shown.word.selectionStart();
        return place >= from && place < to && lineText(shown.word.block()) != shown.line;
    };
    if (std::erase_if(m_marks, isEdited) > 0) {
        show();
    }
}

void SourceMarks::show() {
    QList<QTextEdit::ExtraSelection> selections;
    for (const Shown& shown : m_marks) {
        selections.append({shown.word, formatOf(shown.mark.kind, m_view.palette())});
    }
    m_view.setExtraSelections(selections);
    describe();
}

void SourceMarks::describe() {
    const QString text = m_marks.empty() ? QString() : textAt(m_view.textCursor().position(), true);
    if (m_view.accessibleDescription() != text) {
        m_view.setAccessibleDescription(text);
    }
}

bool SourceMarks::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_view && event->type() == QEvent::PaletteChange) {
        show();
    } else if (watched == m_viewport && event->type() == QEvent::ToolTip && !m_marks.empty()) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString text = textAt(m_view.cursorForPosition(help->pos()).position(), false);
        if (text.isEmpty()) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(),
                               QStringLiteral("<qt>%1</qt>")
                                   .arg(text.toHtmlEscaped().replace(u'\n', QLatin1String("<br>"))),
                               &m_view);
        }
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace kestrel
