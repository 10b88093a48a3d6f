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

/// The pages of the new-item wizard, each created when it is first shown.
class CreateNewItemPageController : public QStackedWidget {
    Q_OBJECT

public:
    explicit CreateNewItemPageController(QWidget* parent = nullptr);

    /// Passes the kinds and the buttons to the existing pages, then shows the first page.
    void viewWillAppear();

    void setNewItems(std::vector<NewItemType> newItems);
    void setBackButton(QPushButton* button) { m_backButton = button; }
    void setNextButton(QPushButton* button) { m_nextButton = button; }

    /// The identifiers of the pages, in order.
    const QStringList& arrangedObjects() const { return m_arrangedObjects; }

    /// The identifier of an arranged object: the object itself.
    QString pageControllerIdentifierFor(const QString& object) const { return object; }
    /// The page with this identifier, created if necessary; nullptr for any other identifier.
    QWidget* pageControllerViewControllerForIdentifier(const QString& identifier);

    /// The index of the shown page; -1 before the first.
    int selectedIndex() const { return m_selectedIndex; }
    /// The shown page; nullptr before the first.
    QWidget* selectedViewController() const;
    /// Shows the page with this index; an invalid index is ignored.
    void navigateTo(int index);
    /// Tells the shown page that it has appeared, so that it takes the keyboard focus.
    void completeTransition();

    /// The pages; nullptr until first shown.
    CreateNewItemController* createNewItemController() const;
    CreateNewItemAtPathController* createNewItemPathController() const;

protected:
    /// Accepts the event and does nothing, so that swiping does not turn pages.
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
