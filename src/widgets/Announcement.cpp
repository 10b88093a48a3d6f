// SPDX-License-Identifier: MIT
#include "widgets/Announcement.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace kestrel {

namespace {

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr ||
        widget->findChild<Announcement*>(QString(), Qt::FindDirectChildrenOnly) == nullptr) {
        return nullptr;
    }
    // Qt owns it.
    return new QAccessibleWidget(widget, QAccessible::Notification);
}

} // namespace

Announcement::Announcement(QWidget& speaker)
    : QObject(&speaker)
    , m_speaker(speaker) {
    QAccessible::installFactory(makeAccessible); // only the first of several times
}

/// Screen readers speak a notification when it is shown. Qt tells them when that happens; of one
/// that stays in sight it is told here. (QAccessible::Alert does not reach the bus with Qt 6.4.)
void Announcement::say(const QString& text) {
    m_speaker.setAccessibleName(text);
    if (m_speaker.isVisible()) {
        QAccessibleEvent event(&m_speaker, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&event);
        Q_EMIT said(text);
    }
}

} // namespace kestrel
