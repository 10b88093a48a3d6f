// SPDX-License-Identifier: MIT
#pragma once

#include "newitem/types/NewItemType.h"

#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QStringList>

#include <vector>

namespace kestrel {

class CreateNewItemAtPathController;
class CreateNewItemController;

/// The pages of the new-item wizard, made when they are first shown.
class CreateNewItemPageController : public QStackedWidget {
    Q_OBJECT

public:
    explicit CreateNewItemPageController(QWidget* parent = nullptr);

    /// Hands the kinds and the buttons to the pages that exist already, then shows the first page.
    void viewWillAppear();

    void setNewItems(std::vector<NewItemType> newItems);
    void setBackButton(QPushButton* button) { m_backButton = button; }
    void setNextButton(QPushButton* button) { m_nextButton = button; }

    /// The identifiers of the pages, in their order.
    const QStringList& arrangedObjects() const { return m_arrangedObjects; }

    /// The identifier of an arranged object: the object itself.
    QString pageControllerIdentifierFor(const QString& object) const { return object; }
    /// The page with this identifier, made now if need be; null for any other identifier.
    QWidget* pageControllerViewControllerForIdentifier(const QString& identifier);

    /// The number of the shown page, -1 before the first.
    int selectedIndex() const { return m_selectedIndex; }
    /// The shown page; null before the first.
    QWidget* selectedViewController() const;
    /// Shows the page with this number; nothing for a number that is none.
    void navigateTo(int index);
    /// Tells the shown page that it is in place, which takes the keyboard focus there.
    void completeTransition();

    /// The pages; null until they are first shown.
    CreateNewItemController* createNewItemController() const;
    CreateNewItemAtPathController* createNewItemPathController() const;

protected:
    /// Takes the wheel's turns and does nothing, so that swiping turns no page.
    void wheelEvent(QWheelEvent* event) override;

private:
    std::vector<NewItemType> m_newItems;
    QStringList m_arrangedObjects;
    QPointer<CreateNewItemController> m_createNewItemController;
    QPointer<CreateNewItemAtPathController> m_createNewItemPathController;
    QPointer<QPushButton> m_backButton;
    QPointer<QPushButton> m_nextButton;
    int m_selectedIndex = -1;
};

} // namespace kestrel
