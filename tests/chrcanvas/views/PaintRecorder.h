// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

namespace kestrel::test {

/// Notes which part of a widget is painted.
class PaintRecorder : public QObject {
public:
    explicit PaintRecorder(QWidget& widget) { widget.installEventFilter(this); }

    /// What was painted since the last call.
    QRegion takePainted() { return std::exchange(m_painted, QRegion()); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            m_painted += static_cast<QPaintEvent*>(event)->region();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QRegion m_painted;
};

} // namespace kestrel::test
