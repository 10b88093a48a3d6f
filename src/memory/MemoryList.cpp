// SPDX-License-Identifier: MIT
#include "memory/MemoryList.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextOption>

namespace kestrel {

namespace {

constexpr int Margin = 16;

} // namespace

MemoryList::MemoryList(const QString& emptyText, QWidget* parent)
    : QListView(parent)
    , m_emptyText(emptyText) {
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(NoFrame);
    setAccessibleDescription(emptyText);
}

void MemoryList::setModel(QAbstractItemModel* model) {
    QListView::setModel(model);
    if (model != nullptr) {
        connect(model, &QAbstractItemModel::modelReset, this, &MemoryList::rowsReplaced);
    }
    rowsReplaced();
}

bool MemoryList::isEmpty() const {
    return model() == nullptr || model()->rowCount() == 0;
}

void MemoryList::rowsReplaced() {
    setAccessibleDescription(isEmpty() ? m_emptyText : QString());
    if (!isEmpty()) {
        setCurrentIndex(model()->index(0, 0)); // where the keys begin
    }
}

/// The base class would copy the name of one row.
void MemoryList::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        Q_EMIT copyWanted();
        event->accept();
        return;
    }
    QListView::keyPressEvent(event);
}

void MemoryList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (!isEmpty()) {
        return;
    }
    QTextOption layout(Qt::AlignHCenter | Qt::AlignTop);
    layout.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRectF(viewport()->rect().adjusted(Margin, Margin, -Margin, -Margin)),
                     m_emptyText, layout);
}

void MemoryList::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    scheduleDelayedItemsLayout(); // in another width the numbers may take other lines
}

} // namespace kestrel
