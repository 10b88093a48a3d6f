// SPDX-License-Identifier: MIT
#include "newitem/CreateNewItemController.h"

#include "newitem/CreateNewItemDataSource.h"
#include "newitem/CreateNewItemDelegate.h"
#include "newitem/NewItemCollectionViewItem.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

#include <utility>

namespace kestrel {

namespace {

constexpr int Spacing = 4;     ///< around every cell, in pixels
constexpr int CellsInARow = 3; ///< minimum

} // namespace

CreateNewItemController::CreateNewItemController(QWidget* parent)
    : QWidget(parent)
    , m_createNewItemDataSource(new CreateNewItemDataSource(this))
    , m_createNewItemDelegate(new CreateNewItemDelegate(this)) {
    setObjectName(QStringLiteral("CreateNewItemController"));
    buildView();
    m_createNewItemDataSource->setSelectedItem(0);
    m_collectionView->setModel(m_createNewItemDataSource);
    m_collectionView->setItemDelegate(m_createNewItemDelegate);
    connect(m_collectionView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CreateNewItemController::selectionChanged);
    connect(m_collectionView, &QListView::doubleClicked, this, [this] {
        if (m_nextButton) {
            m_nextButton->click();
        }
    });
}

void CreateNewItemController::buildView() {
    auto* heading = new QLabel(QStringLiteral("&Kind of item to create:"), this);
    heading->setObjectName(QStringLiteral("kindLabel"));
    m_collectionView = new QListView(this);
    m_collectionView->setObjectName(QStringLiteral("collectionView"));
    m_collectionView->setAccessibleName(QStringLiteral("Kind of item to create"));
    m_collectionView->setViewMode(QListView::IconMode);
    m_collectionView->setMovement(QListView::Static);
    m_collectionView->setResizeMode(QListView::Adjust);
    m_collectionView->setUniformItemSizes(true);
    m_collectionView->setSpacing(Spacing);
    m_collectionView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_collectionView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_collectionView->setTextElideMode(Qt::ElideRight);
    const QSize cell = NewItemCollectionViewItem::size(m_collectionView->fontMetrics());
    const int frame = 2 * m_collectionView->frameWidth();
    const int scrollBar = m_collectionView->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    m_collectionView->setMinimumSize(
        {CellsInARow * (cell.width() + Spacing) + 2 * Spacing + frame + scrollBar,
         cell.height() + 2 * Spacing + frame});
    m_collectionView->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    heading->setBuddy(m_collectionView);

    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(heading);
    box->addWidget(m_collectionView, 1);
}

void CreateNewItemController::setNewItems(std::vector<NewItemType> newItems) {
    m_newItems = std::move(newItems);
}

void CreateNewItemController::viewWillAppear() {
    m_createNewItemDataSource->setNewItems(m_newItems);
    m_collectionView->setCurrentIndex(
        m_createNewItemDataSource->index(m_createNewItemDataSource->selectedItem()));
    updateButtons();
}

void CreateNewItemController::viewDidAppear() {
    m_collectionView->setFocus();
}

void CreateNewItemController::updateButtons() {
    if (m_nextButton) {
        m_nextButton->setEnabled(true);
    }
    if (m_backButton) {
        m_backButton->setEnabled(false);
    }
}

int CreateNewItemController::selectedItem() const {
    return m_createNewItemDataSource->selectedItem();
}

void CreateNewItemController::selectionChanged() {
    const QModelIndexList selected = m_collectionView->selectionModel()->selectedIndexes();
    if (!selected.isEmpty()) {
        m_createNewItemDelegate->selectionChanged(selected, *m_createNewItemDataSource);
        return;
    }
    // Ctrl and a click would deselect the chosen kind.
    m_collectionView->selectionModel()->select(m_createNewItemDataSource->index(selectedItem()),
                                               QItemSelectionModel::ClearAndSelect);
}

} // namespace kestrel
