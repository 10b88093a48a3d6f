// SPDX-License-Identifier: MIT
#include "app/UsesWindow.h"

#include "navigation/container/PlaceJump.h"
#include "navigation/container/PlaceList.h"

#include <QHideEvent>
#include <QListWidget>

namespace kestrel {

namespace {

constexpr QSize FirstSize(680, 320);

} // namespace

UsesWindow::UsesWindow(PlaceList& places, PlaceJump& jump, QWidget* parent)
    : SecondaryWindow(QStringLiteral("usesWindow"), tr("Uses"), parent)
    , m_places(places)
    , m_jump(jump)
    , m_rows(new QListWidget(this)) {
    m_rows->setObjectName(QStringLiteral("usesList"));
    m_rows->setAccessibleName(tr("Uses"));
    m_rows->setUniformItemSizes(true);
    setCentralWidget(m_rows);
    resizeWithinScreen(FirstSize);
    connect(m_rows, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { goTo(m_rows->row(item)); });
    connect(&m_places, &PlaceList::filled, this, &UsesWindow::fill);
    connect(&m_places, &PlaceList::currentChanged, this, &UsesWindow::showCurrent);
}

void UsesWindow::showUsesOf(const QString& name) {
    const QString title = tr("Uses of %1 (%2)").arg(name).arg(m_rows->count());
    setWindowTitle(title);
    setAccessibleName(title);
    m_rows->setCurrentRow(0);
    comeToFront();
}

/// What else the list of places is filled with leaves the uses here.
void UsesWindow::fill() {
    if (m_places.content() != PlaceList::Content::uses) {
        return;
    }
    m_project = m_places.project();
    if (m_uses == m_places.places()) {
        return;
    }
    m_uses = m_places.places();
    m_rows->clear();
    for (const Place& place : m_uses) {
        m_rows->addItem(
            QStringLiteral("%1:%2: %3").arg(place.file).arg(place.line).arg(place.text));
    }
}

void UsesWindow::showCurrent() {
    if (m_places.content() == PlaceList::Content::uses && m_places.currentIndex()) {
        m_rows->setCurrentRow(static_cast<int>(*m_places.currentIndex()));
    }
}

/// Problems may have taken the place of the uses in the list; then these are walked through again.
void UsesWindow::goTo(int row) {
    const auto index = static_cast<std::size_t>(row);
    if (row < 0 || index >= m_uses.size()) {
        return;
    }
    if (m_places.content() != PlaceList::Content::uses) {
        m_places.fill(PlaceList::Content::uses, m_project.lock(), std::vector<Place>(m_uses));
    }
    m_places.setCurrentIndex(index);
    m_jump.goTo(m_project.lock(), m_uses[index]);
}

void UsesWindow::hideEvent(QHideEvent* event) {
    SecondaryWindow::hideEvent(event);
    if (!event->spontaneous()) {
        Q_EMIT closed();
    }
}

} // namespace kestrel
