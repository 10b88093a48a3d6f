// SPDX-License-Identifier: MIT
#include "app/HeldKeys.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QVariant>

namespace kestrel {

namespace {

/// Actions and buttons say so alike.
bool actsOncePerPress(const QObject& target) {
    const QVariant repeats = target.property("autoRepeat");
    return repeats.isValid() && !repeats.toBool();
}

} // namespace

HeldKeys::HeldKeys(QObject* parent)
    : QObject(parent) {}

void HeldKeys::watchApplication() {
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        qGuiApp->installEventFilter(this);
    }
}

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Shortcut) {
        return m_shortcutRepeats && actsOncePerPress(*watched);
    }
    // Keys come to the window first; widgets get what becomes of them there.
    if (!watched->isWindowType()) {
        return false;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        m_shortcutRepeats = isUnmarkedRepeat(*static_cast<QKeyEvent*>(event));
    } else if (event->type() == QEvent::KeyRelease) {
        const auto& release = *static_cast<QKeyEvent*>(event);
        m_releasedKey = release.nativeScanCode();
        m_releasedAt = release.timestamp();
    } else if (event->type() == QEvent::KeyPress) {
        auto& press = *static_cast<QKeyEvent*>(event);
        return isUnmarkedRepeat(press) && mark(*watched, press);
    }
    return false;
}

bool HeldKeys::isUnmarkedRepeat(const QKeyEvent& press) const {
    // An event that a program made up may have no time.
    return !press.isAutoRepeat() && m_releasedAt != 0 && press.timestamp() == m_releasedAt &&
           press.nativeScanCode() == m_releasedKey;
}

/// Sends the window a marked copy in place of the press.
bool HeldKeys::mark(QObject& window, QKeyEvent& press) {
    QKeyEvent marked(press.type(), press.key(), press.modifiers(), press.nativeScanCode(),
                     press.nativeVirtualKey(), press.nativeModifiers(), press.text(), true,
                     static_cast<quint16>(press.count()));
    marked.setTimestamp(press.timestamp());
    QCoreApplication::sendEvent(&window, &marked);
    press.setAccepted(marked.isAccepted());
    return true;
}

} // namespace kestrel
