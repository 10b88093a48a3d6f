// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QAbstractScrollArea;

namespace kestrel {

/// A thin line around a view, whole and crisp at every scale of the screen.
///
/// A view's own frame is not: where a unit of the toolkit is one and a half pixels of the screen,
/// edges of what is inside the frame are rounded to pixels that the frame needs. So this one leaves
/// a unit of room within the line.
class ThinFrame : public QWidget {
    Q_OBJECT

public:
    /// Takes the view in and its own frame away.
    ThinFrame(QAbstractScrollArea& view, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace kestrel
