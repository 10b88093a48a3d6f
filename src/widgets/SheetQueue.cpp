// SPDX-License-Identifier: MIT
#include "widgets/SheetQueue.h"

#include <QDialog>
#include <QEvent>

#include <algorithm>
#include <utility>

namespace kestrel {

SheetQueue::SheetQueue(const QWidget& widget)
    : m_widget(widget) {
    m_later.setSingleShot(true);
    connect(&m_later, &QTimer::timeout, this, &SheetQueue::carryOutWaiting);
}

void SheetQueue::carryOut(std::function<void()> action) {
    m_waiting.push_back(std::move(action));
    carryOutWaiting();
}

QDialog* SheetQueue::openSheet() const {
    const auto dialogs = m_widget.window()->findChildren<QDialog*>();
    const auto open = std::find_if(dialogs.begin(), dialogs.end(), [](const QDialog* dialog) {
        return dialog->isVisible() && dialog->isModal();
    });
    return open != dialogs.end() ? *open : nullptr;
}

void SheetQueue::carryOutWaiting() {
    while (!m_waiting.empty()) {
        if (QDialog* sheet = openSheet()) {
            sheet->installEventFilter(this);
            return;
        }
        const std::function<void()> action = std::move(m_waiting.front());
        m_waiting.pop_front();
        action();
    }
}

bool SheetQueue::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        watched->removeEventFilter(this);
        m_later.start(0);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace kestrel
