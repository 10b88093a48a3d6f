// SPDX-License-Identifier: MIT
#include "app/ButtonKeys.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>

namespace kestrel {

namespace {

bool isReturn(const QEvent& event) {
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease) {
        return false;
    }
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Whether it is a button that carries something out and that the toolkit presses by Space alone.
bool isPressedBySpaceAlone(const QObject* object) {
    if (const auto* button = qobject_cast<const QPushButton*>(object)) {
        return !button->autoDefault() && !button->isDefault();
    }
    return qobject_cast<const QAbstractButton*>(object) != nullptr &&
           qobject_cast<const QCheckBox*>(object) == nullptr &&
           qobject_cast<const QRadioButton*>(object) == nullptr;
}

} // namespace

ButtonKeys::ButtonKeys(QObject* parent)
    : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool ButtonKeys::eventFilter(QObject* watched, QEvent* event) {
    if (!isReturn(*event) || !isPressedBySpaceAlone(watched)) {
        return QObject::eventFilter(watched, event);
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    QKeyEvent space(key.type(), Qt::Key_Space, key.modifiers(), QStringLiteral(" "),
                    key.isAutoRepeat());
    QCoreApplication::sendEvent(watched, &space);
    event->accept();
    return true;
}

} // namespace kestrel
