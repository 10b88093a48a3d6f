// SPDX-License-Identifier: MIT
#include "app/ButtonKeys.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialog>
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

/// Whether Qt would press a dialog's button for a held Return: the focused one, or the default one.
bool isRepeatedInDialog(const QObject* object, const QEvent& event) {
    return event.type() == QEvent::KeyPress &&
           static_cast<const QKeyEvent&>(event).isAutoRepeat() &&
           (qobject_cast<const QPushButton*>(object) != nullptr ||
            qobject_cast<const QDialog*>(object) != nullptr);
}

/// Whether it is a button that carries something out and that Qt presses by Space alone.
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
    if (!isReturn(*event)) {
        return QObject::eventFilter(watched, event);
    }
    if (!isPressedBySpaceAlone(watched)) {
        return isRepeatedInDialog(watched, *event);
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    QKeyEvent space(key.type(), Qt::Key_Space, key.modifiers(), QStringLiteral(" "),
                    key.isAutoRepeat());
    QCoreApplication::sendEvent(watched, &space);
    event->accept();
    return true;
}

} // namespace kestrel
