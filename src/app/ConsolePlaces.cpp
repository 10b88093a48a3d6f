// SPDX-License-Identifier: MIT
#include "app/ConsolePlaces.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <algorithm>

namespace kestrel {

namespace {

/// How strongly the line of the current problem is tinted, of 255.
constexpr int TintStrength = 60;

/// So many lines shall be in sight below a problem's: what the assembler says of its place.
constexpr int LinesBelow = 6;

/// The beginning of a line, as much as is looked at: a line may be gigabytes long.
QString beginningOf(const QTextBlock& line) {
    if (line.length() <= LongestPlaceText) {
        return line.text();
    }
    QTextCursor cursor(line);
    cursor.setPosition(line.position() + static_cast<int>(LongestPlaceText),
                       QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

std::optional<PlaceText> placeIn(const QTextBlock& line) {
    const QString text = beginningOf(line);
    auto place = problemIn(text);
    return place ? place : originIn(text);
}

} // namespace

ConsolePlaces::ConsolePlaces(QPlainTextEdit& view, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_viewport(view.viewport()) {
    connect(view.document(), &QTextDocument::contentsChange, this, &ConsolePlaces::followChange);
    m_viewport->setMouseTracking(true);
    m_viewport->installEventFilter(this);
    view.installEventFilter(this);
    followChange();
}

void ConsolePlaces::followChange() {
    if (m_view.document()->isEmpty()) {
        m_nextLine = 0;
        m_lines.clear();
        m_shown.reset();
        setHovered(QTextCursor());
        Q_EMIT cleared();
        return;
    }
    readLines(m_view.document()->blockCount() - 1); // the last one may go on
}

void ConsolePlaces::readLastLine() {
    readLines(m_view.document()->blockCount());
}

void ConsolePlaces::readLines(int end) {
    std::vector<Place> problems;
    QTextBlock line = m_view.document()->findBlockByNumber(m_nextLine);
    for (; m_nextLine < end && m_lines.size() < Limit; ++m_nextLine, line = line.next()) {
        if (auto problem = problemIn(beginningOf(line))) {
            m_lines.push_back(m_nextLine);
            problems.push_back(std::move(problem->place));
        }
    }
    m_nextLine = std::max(m_nextLine, end);
    if (!problems.empty()) {
        Q_EMIT found(problems);
    }
}

void ConsolePlaces::showProblem(std::size_t number) {
    if (number >= m_lines.size()) {
        return;
    }
    m_shown = number;
    m_view.setTextCursor(QTextCursor(m_view.document()->findBlockByNumber(m_lines[number])));
    const QRect line = m_view.cursorRect();
    const QRect room = m_viewport->rect();
    if (line.top() < room.top() || line.bottom() + LinesBelow * line.height() > room.bottom()) {
        m_view.centerCursor();
    }
    showSelections();
}

bool ConsolePlaces::choose(const QTextBlock& line) {
    const auto found = line.isValid() ? placeIn(line) : std::nullopt;
    if (!found) {
        return false;
    }
    readLastLine();
    const auto number = std::ranges::lower_bound(m_lines, line.blockNumber());
    const bool isProblem = number != m_lines.end() && *number == line.blockNumber();
    Q_EMIT chosen(found->place,
                  isProblem ? std::optional(static_cast<std::size_t>(number - m_lines.begin()))
                            : std::nullopt);
    return true;
}

/// The line at a place of the view; invalid below the last one.
QTextBlock ConsolePlaces::lineAt(const QPoint& position) const {
    const QTextCursor cursor = m_view.cursorForPosition(position);
    const QRect row = m_view.cursorRect(cursor);
    return position.y() >= row.top() && position.y() <= row.bottom() ? cursor.block()
                                                                     : QTextBlock();
}

void ConsolePlaces::hoverAt(const QPoint& position) {
    const QTextBlock line = lineAt(position);
    const auto found = line.isValid() ? placeIn(line) : std::nullopt;
    QTextCursor place;
    if (found) {
        place = QTextCursor(line);
        place.setPosition(line.position() + static_cast<int>(found->begin));
        place.setPosition(place.position() + static_cast<int>(found->length),
                          QTextCursor::KeepAnchor);
    }
    setHovered(place);
}

void ConsolePlaces::setHovered(const QTextCursor& place) {
    if (place == m_hovered || (place.isNull() && m_hovered.isNull())) {
        return;
    }
    m_hovered = place;
    m_view.viewport()->setCursor(place.isNull() ? Qt::IBeamCursor : Qt::PointingHandCursor);
    m_view.viewport()->setToolTip(
        place.isNull() ? QString() : tr("Double-click, or press Return in the line, to go there"));
    showSelections();
}

void ConsolePlaces::showSelections() {
    QList<QTextEdit::ExtraSelection> selections;
    if (m_shown) {
        QTextEdit::ExtraSelection line;
        line.cursor = QTextCursor(m_view.document()->findBlockByNumber(m_lines[*m_shown]));
        QColor tint = m_view.palette().color(QPalette::Active, QPalette::Highlight);
        tint.setAlpha(TintStrength);
        line.format.setBackground(tint);
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        selections.append(line);
    }
    if (!m_hovered.isNull()) {
        QTextEdit::ExtraSelection place;
        place.cursor = m_hovered;
        place.format.setFontUnderline(true);
        selections.append(place);
    }
    m_view.setExtraSelections(selections);
}

bool ConsolePlaces::eventFilter(QObject* watched, QEvent* event) {
    const bool inViewport = watched == m_viewport;
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (inViewport && mouse->buttons() == Qt::NoButton) {
            hoverAt(mouse->position().toPoint());
        }
        break;
    }
    case QEvent::Leave:
    case QEvent::Wheel:
        if (inViewport) {
            setHovered(QTextCursor());
        }
        break;
    case QEvent::MouseButtonDblClick: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (inViewport && mouse->button() == Qt::LeftButton &&
            choose(lineAt(mouse->position().toPoint()))) {
            return true;
        }
        break;
    }
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (!inViewport && (key == Qt::Key_Return || key == Qt::Key_Enter) &&
            choose(m_view.textCursor().block())) {
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace kestrel
