// SPDX-License-Identifier: MIT
#pragma once

#include "newitem/types/NewItemType.h"

#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include <vector>

namespace kestrel {

class CreateNewItemDataSource;
class CreateNewItemDelegate;

/// The wizard's first page: a grid of the kinds of item, one of which is always chosen.
class CreateNewItemController : public QWidget {
    Q_OBJECT

public:
    explicit CreateNewItemController(QWidget* parent = nullptr);

    /// To be called before the page is shown: fills the grid and sets the buttons.
    void viewWillAppear();
    /// To be called when the page is shown: gives the grid the keyboard focus.
    void viewDidAppear();

    void setNewItems(std::vector<NewItemType> newItems);
    void setBackButton(QPushButton* button) { m_backButton = button; }
    void setNextButton(QPushButton* button) { m_nextButton = button; }

    /// Enables Next and disables Back.
    void updateButtons();

    /// The index of the chosen kind in the list of kinds.
    int selectedItem() const;

    QListView* collectionView() const { return m_collectionView; }
    CreateNewItemDataSource* createNewItemDataSource() const { return m_createNewItemDataSource; }
    CreateNewItemDelegate* createNewItemDelegate() const { return m_createNewItemDelegate; }

private:
    void buildView();
    void selectionChanged();

    QPointer<QListView> m_collectionView;
    QPointer<QPushButton> m_backButton;
    QPointer<QPushButton> m_nextButton;
    CreateNewItemDataSource* m_createNewItemDataSource;
    CreateNewItemDelegate* m_createNewItemDelegate;
    std::vector<NewItemType> m_newItems;
};

} // namespace kestrel
