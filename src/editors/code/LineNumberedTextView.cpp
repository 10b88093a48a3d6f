// SPDX-License-Identifier: MIT
#include "editors/code/LineNumberedTextView.h"

#include "editors/code/LineNumberRulerView.h"
#include "editors/code/LinePieces.h"

#include <QEvent>
#include <QFontDatabase>
#include <QTextBlock>
#include <QTextLayout>

namespace kestrel {

namespace {

constexpr int FallbackFontSize = 16;

/// The first line of a layout that reaches below `y`.
int firstLineBelow(const QTextLayout& layout, qreal y) {
    int low = 0;
    int high = layout.lineCount();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        const QTextLine line = layout.lineAt(middle);
        if (line.y() + line.height() > y) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    return low;
}

} // namespace

LineNumberedTextView::LineNumberedTextView(QWidget* parent)
    : QPlainTextEdit(parent) {}

LineNumberRulerView* LineNumberedTextView::lineNumberView() const {
    return m_lineNumberView;
}

void LineNumberedTextView::setLineNumberView(LineNumberRulerView* ruler) {
    m_lineNumberView = ruler;
    if (ruler != nullptr) {
        ruler->show(); // a child that comes after its parent was shown stays hidden otherwise
    }
    placeRuler();
}

void LineNumberedTextView::lnv_setUpLineNumberView() {
    if (!testAttribute(Qt::WA_SetFont)) {
        QFont fallback = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        fallback.setPixelSize(FallbackFontSize);
        setFont(fallback);
    }
    if (m_lineNumberView == nullptr) {
        setLineNumberView(new LineNumberRulerView(*this, *this));
        connect(this, &QPlainTextEdit::textChanged, this, &LineNumberedTextView::lnv_textDidChange);
        connect(this, &QPlainTextEdit::updateRequest, this, &LineNumberedTextView::followView);
    }
}

void LineNumberedTextView::reload() {
    if (m_lineNumberView) {
        m_lineNumberView->update();
    }
}

void LineNumberedTextView::lnv_framDidChange() {
    reload();
}

void LineNumberedTextView::lnv_textDidChange() {
    // Most keys change no number and no line's place.
    if (m_lineNumberView) {
        m_lineNumberView->showChanges();
    }
}

std::vector<ScreenLine> LineNumberedTextView::visibleScreenLines() const {
    std::vector<ScreenLine> lines;
    QTextBlock block = firstVisibleBlock();
    const qreal bottom = viewport()->height();
    qreal top = blockBoundingGeometry(block).translated(contentOffset()).top();
    int number = startNumber(block);
    bool beginsLine = !continuesLine(block);
    while (block.isValid() && top < bottom) {
        const qreal height = blockBoundingRect(block).height(); // lays the block out
        const QTextLayout& layout = *block.layout();
        for (int i = firstLineBelow(layout, -top); i < layout.lineCount(); ++i) {
            const qreal lineTop = top + layout.lineAt(i).y();
            if (lineTop >= bottom) {
                break;
            }
            lines.push_back({i == 0 && beginsLine ? std::optional(number) : std::nullopt, lineTop});
        }
        top += height;
        block = block.next();
        beginsLine = !continuesLine(block);
        number += beginsLine ? 1 : 0;
    }
    return lines;
}

int LineNumberedTextView::startNumber(const QTextBlock& firstVisible) const {
    return firstVisible.blockNumber() + 1;
}

void LineNumberedTextView::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    placeRuler();
    lnv_framDidChange();
}

void LineNumberedTextView::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        placeRuler();
        reload();
        break;
    default:
        break;
    }
}

/// The ruler is in the left margin beside the viewport.
void LineNumberedTextView::placeRuler() {
    if (!m_lineNumberView) {
        return;
    }
    setViewportMargins(LineNumberRulerView::Thickness, 0, 0, 0);
    const QRect view = viewport()->geometry();
    m_lineNumberView->setGeometry(view.left() - LineNumberRulerView::Thickness, view.top(),
                                  LineNumberRulerView::Thickness, view.height());
}

/// The text view is to be painted anew in `rect`, or was scrolled by `dy`.
void LineNumberedTextView::followView(const QRect& rect, int dy) {
    if (dy != 0) {
        reload();
    } else if (m_lineNumberView) {
        m_lineNumberView->update(0, rect.top(), LineNumberRulerView::Thickness, rect.height());
    }
}

} // namespace kestrel
