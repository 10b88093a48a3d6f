// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/ScreenLines.h"

#include <QPlainTextEdit>
#include <QPointer>

#include <vector>

namespace kestrel {

class LineNumberRulerView;

/// A text view that can have a ruler with line numbers at its left.
class LineNumberedTextView : public QPlainTextEdit, public ScreenLines {
    Q_OBJECT

public:
    explicit LineNumberedTextView(QWidget* parent = nullptr);

    /// The attached ruler, owned by this view; null before the set-up.
    LineNumberRulerView* lineNumberView() const;
    void setLineNumberView(LineNumberRulerView* ruler);

    /// Attaches a ruler. A view that was given no font gets the system's at 16 pixels.
    void lnv_setUpLineNumberView();

    /// Lets the ruler be drawn anew.
    void reload();

    std::vector<ScreenLine> visibleScreenLines() const override;

protected:
    /// The number of a line when it is the first one in sight; the lines below continue from it.
    virtual int startNumber(const QTextBlock& firstVisible) const;

    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    Q_SLOT void lnv_framDidChange();
    Q_SLOT void lnv_textDidChange();
    void placeRuler();
    void followView(const QRect& rect, int dy);

    QPointer<LineNumberRulerView> m_lineNumberView;
};

} // namespace kestrel
