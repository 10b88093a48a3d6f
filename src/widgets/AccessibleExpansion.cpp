// SPDX-License-Identifier: MIT
#include "widgets/AccessibleExpansion.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QLibraryInfo>
#include <QVariantMap>
#include <QVersionNumber>

namespace kestrel {

namespace {

/// Sends AT-SPI's signal for a row. Qt 6.4 has the event but does not pass it on to the bus, so it
/// is sent here, on Qt's own connection and from the row's own object path: to a reader of the bus
/// it is that object which speaks.
void sendOnBus(QAccessibleInterface& row) {
    const QDBusConnection bus(QStringLiteral("a11y"));
    if (!bus.isConnected()) {
        return;
    }
    QDBusMessage signal = QDBusMessage::createSignal(
        QStringLiteral("/org/a11y/atspi/accessible/%1").arg(QAccessible::uniqueId(&row)),
        QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("StateChanged"));
    signal << QStringLiteral("expanded") << (row.state().expanded ? 1 : 0) << 0
           << QVariant::fromValue(QDBusVariant(0)) << QVariantMap();
    bus.send(signal);
}

} // namespace

void announceExpansion(QAccessibleInterface& row) {
    QAccessible::State changed;
    changed.expanded = true;
    changed.collapsed = true;
    QAccessibleStateChangeEvent event(&row, changed);
    QAccessible::updateAccessibility(&event);
    if (QLibraryInfo::version() < QVersionNumber(6, 5)) {
        sendOnBus(row);
    }
}

} // namespace kestrel
