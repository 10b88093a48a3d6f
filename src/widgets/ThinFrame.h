// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QAbstractScrollArea;

namespace kestrel {

/// A thin frame around a view that is complete and crisp at every scale factor.
///
/// QFrame's own is not: at a fractional scale factor the edges of the view inside are rounded onto
/// device pixels of the frame. So this one leaves a device-independent pixel free inside its line.
class ThinFrame : public QWidget {
    Q_OBJECT

public:
    /// Puts `view` into this frame and removes its own.
    ThinFrame(QAbstractScrollArea& view, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace kestrel
