// SPDX-License-Identifier: MIT
#pragma once

#include "editors/code/LabelFont.h"
#include "editors/code/ScreenLines.h"

#include <QFont>
#include <QString>
#include <QWidget>

#include <map>
#include <vector>

class QAbstractScrollArea;

namespace kestrel {

/// The strip beside a text view that numbers its lines; the further parts of a wrapped line get a
/// dash.
class LineNumberRulerView : public QWidget {
    Q_OBJECT

public:
    /// The ruler's width and the right edge of its labels, in device-independent pixels.
    static constexpr int Thickness = 40;
    static constexpr qreal LabelEdge = 35.0;

    /// A ruler for `textView`, which owns it. Takes the view's font for its own; the labels always
    /// have the view's present one.
    LineNumberRulerView(QAbstractScrollArea& textView, const ScreenLines& lines);

    /// A label and its position in the ruler's coordinates.
    struct Label {
        QString text;
        qreal top = 0;
        /// The text view's font, or a narrower form of it where the text would not fit.
        QFont font;
        qreal width = 0;
        qreal left() const { return LabelEdge - width; }
    };

    /// The labels of all that is visible, from top to bottom.
    std::vector<Label> labels() const;

    /// Paints anew if other labels than those painted last belong here now.
    void showChanges();

    /// Draws all labels.
    void drawHashMarksAndLabels(QPainter& painter) const;

    /// The labels' gray: at least 4.5 : 1 against the background.
    QColor labelColor() const;
    QColor backgroundColor() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    std::vector<Label> labelsOf(const std::vector<ScreenLine>& lines) const;
    std::vector<ScreenLine> reachingInto(const QRect& rect) const;
    void draw(QPainter& painter, const std::vector<Label>& labels) const;

    QAbstractScrollArea& m_textView;
    const ScreenLines& m_lines;
    std::vector<ScreenLine> m_painted;
    /// What the labels of each length are drawn in while the view has that font: in a font of one
    /// width they all fit alike.
    mutable std::map<qsizetype, LabelFont> m_fittedByLength;
    mutable QFont m_fittedFont;
};

} // namespace kestrel
