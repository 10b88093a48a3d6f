// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Announcement.h"

#include <QEvent>
#include <QWidget>

#include <utility>
#include <vector>

namespace kestrel::test {

/// Listens to what is announced in a window. Without a screen Qt tells nobody that a speaker is
/// shown, so the showing itself is watched.
class Announced : public QObject {
public:
    explicit Announced(QWidget& window) {
        for (const Announcement* announcement : window.findChildren<Announcement*>()) {
            connect(announcement, &Announcement::said, this,
                    [this](const QString& text) { m_heard.push_back(text); });
            announcement->parent()->installEventFilter(this);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && !event->spontaneous()) {
            m_heard.push_back(qobject_cast<QWidget*>(watched)->accessibleName());
        }
        return QObject::eventFilter(watched, event);
    }

    /// What was announced since it was asked last.
    std::vector<QString> take() { return std::exchange(m_heard, {}); }

private:
    std::vector<QString> m_heard;
};

} // namespace kestrel::test
