// SPDX-License-Identifier: MIT
#include "editors/settings/BuildFileTable.h"

#include <QKeyEvent>
#include <QPainter>

namespace kestrel {

namespace {

constexpr int PreferredRows = 6;
constexpr int SmallestRows = 3;
constexpr int PlaceholderMargin = 8;

bool isDelete(const QEvent& event) {
    const auto& key = static_cast<const QKeyEvent&>(event);
    return (key.key() == Qt::Key_Delete || key.key() == Qt::Key_Backspace) &&
           (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

} // namespace

BuildFileTable::BuildFileTable(QWidget* parent)
    : QListView(parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);
    setUniformItemSizes(true);
    setTabKeyNavigation(false);
}

void BuildFileTable::setPlaceholderText(const QString& text) {
    m_placeholderText = text;
    viewport()->update();
}

int BuildFileTable::selectedRow() const {
    const QModelIndexList rows =
        selectionModel() != nullptr ? selectionModel()->selectedIndexes() : QModelIndexList();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void BuildFileTable::selectRow(int row) {
    if (model() == nullptr || row < 0 || row >= model()->rowCount()) {
        clearSelection();
        return;
    }
    const QModelIndex index = model()->index(row, 0);
    setCurrentIndex(index);
    scrollTo(index);
}

QSize BuildFileTable::sizeHint() const {
    return {QListView::sizeHint().width(),
            PreferredRows * (fontMetrics().height() + 4) + 2 * frameWidth()};
}

QSize BuildFileTable::minimumSizeHint() const {
    return {QListView::minimumSizeHint().width(),
            SmallestRows * (fontMetrics().height() + 4) + 2 * frameWidth()};
}

void BuildFileTable::reset() {
    QListView::reset();
    // Qt does not report that a selection is gone with its rows.
    Q_EMIT selectedRowChanged();
}

bool BuildFileTable::event(QEvent* event) {
    // Keys that act here must not be taken for a menu's shortcut.
    if (event->type() == QEvent::ShortcutOverride && isDelete(*event)) {
        event->accept();
        return true;
    }
    return QListView::event(event);
}

void BuildFileTable::keyPressEvent(QKeyEvent* event) {
    if (isDelete(*event)) {
        if (!event->isAutoRepeat()) { // held down it removes one file
            Q_EMIT deletePressed();
        }
        return;
    }
    QListView::keyPressEvent(event);
}

void BuildFileTable::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (model() != nullptr && model()->rowCount() > 0) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(PlaceholderMargin, 0, -PlaceholderMargin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, m_placeholderText);
}

void BuildFileTable::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    Q_EMIT selectedRowChanged();
}

} // namespace kestrel
