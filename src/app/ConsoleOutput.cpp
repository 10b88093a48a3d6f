// SPDX-License-Identifier: MIT
#include "app/ConsoleOutput.h"

#include "widgets/FixedFont.h"

#include <QElapsedTimer>
#include <QScrollBar>
#include <QTextCursor>
#include <QVBoxLayout>

#include <utility>

namespace kestrel {

namespace {

/// While it lives, text may be added at the end of `view`; then caret and selection are what the
/// user left them at. Otherwise Qt would extend a selection that touches the end.
class CaretKeeper {
public:
    explicit CaretKeeper(QPlainTextEdit& view)
        : m_view(view)
        , m_anchor(view.textCursor().anchor())
        , m_position(view.textCursor().position()) {}
    CaretKeeper(const CaretKeeper&) = delete;
    CaretKeeper& operator=(const CaretKeeper&) = delete;
    ~CaretKeeper() {
        QTextCursor caret = m_view.textCursor();
        if (caret.anchor() != m_anchor || caret.position() != m_position) {
            caret.setPosition(m_anchor);
            caret.setPosition(m_position, QTextCursor::KeepAnchor);
            m_view.setTextCursor(caret);
        }
    }

private:
    QPlainTextEdit& m_view;
    int m_anchor;
    int m_position;
};

/// Small enough that one slice is inserted well within a frame, long lines included.
constexpr qsizetype SliceLength = 16384;
/// How long text is inserted before the window gets its turn again.
constexpr qint64 MillisecondsPerTurn = 8;

} // namespace

ConsoleOutput::ConsoleOutput(QWidget* parent)
    : QWidget(parent)
    , m_console(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("consoleOutput"));
    setAccessibleName(tr("Console"));
    m_console->setObjectName(QStringLiteral("console"));
    m_console->setAccessibleName(tr("Console text"));
    m_console->setReadOnly(true);
    m_console->setUndoRedoEnabled(false);
    m_console->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_console->setFont(fixedFont());
    m_console->setTabStopDistance(8.0 *
                                  m_console->fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    m_console->setFrameShape(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_console);
    setFocusProxy(m_console);
    // The end is followed however the text comes to be longer than the view: by more text, by being
    // shown for the first time, or by a window that gets smaller.
    const QScrollBar* bar = m_console->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this,
            [this, bar](int value) { m_followsEnd = value >= bar->maximum(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this](int /*minimum*/, int maximum) {
        if (m_followsEnd && m_console) {
            m_console->verticalScrollBar()->setValue(maximum);
        }
    });
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &ConsoleOutput::showSlices);
}

QPlainTextEdit* ConsoleOutput::console() const {
    return m_console;
}

void ConsoleOutput::append(QString text) {
    if (!m_console) {
        return;
    }
    const bool alone = m_waiting.isEmpty();
    m_waiting.add(std::move(text));
    if (alone) {
        showSlices();
    }
}

void ConsoleOutput::clear() {
    m_timer.stop();
    m_waiting.clear();
    if (m_console) {
        m_console->clear();
        m_followsEnd = true; // nothing is left in which one could have scrolled up
    }
}

bool ConsoleOutput::isBusy() const {
    return !m_waiting.isEmpty();
}

void ConsoleOutput::showSlices() {
    if (!m_console) {
        m_waiting.clear();
        m_timer.stop();
        return;
    }
    QScrollBar* bar = m_console->verticalScrollBar();
    const int place = bar->value();
    const bool followsEnd = m_followsEnd;
    {
        const CaretKeeper caretStays(*m_console);
        QElapsedTimer clock;
        clock.start();
        QTextCursor cursor(m_console->document());
        cursor.movePosition(QTextCursor::End);
        while (!m_waiting.isEmpty() && clock.elapsed() < MillisecondsPerTurn) {
            cursor.insertText(m_waiting.takeSlice(SliceLength));
        }
    }
    bar->setValue(followsEnd ? bar->maximum() : place);
    if (m_waiting.isEmpty()) {
        m_timer.stop();
    } else if (!m_timer.isActive()) {
        m_timer.start();
    }
}

} // namespace kestrel
