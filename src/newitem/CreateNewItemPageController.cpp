// SPDX-License-Identifier: MIT
#include "newitem/CreateNewItemPageController.h"

#include "newitem/CreateNewItemAtPathController.h"
#include "newitem/CreateNewItemController.h"

#include <QWheelEvent>

#include <utility>

namespace kestrel {

namespace {

const QString KindPage = QStringLiteral("CreateNewItemController");
const QString NamePage = QStringLiteral("NewFileNameController");

} // namespace

CreateNewItemPageController::CreateNewItemPageController(QWidget* parent)
    : QStackedWidget(parent)
    , m_arrangedObjects({KindPage, NamePage}) {
    setObjectName(QStringLiteral("pageController"));
}

void CreateNewItemPageController::setNewItems(std::vector<NewItemType> newItems) {
    m_newItems = std::move(newItems);
}

void CreateNewItemPageController::viewWillAppear() {
    if (m_createNewItemController) {
        m_createNewItemController->setNewItems(m_newItems);
        m_createNewItemController->setBackButton(m_backButton);
        m_createNewItemController->setNextButton(m_nextButton);
    }
    if (m_createNewItemPathController) {
        m_createNewItemPathController->setBackButton(m_backButton);
        m_createNewItemPathController->setNextButton(m_nextButton);
    }
    navigateTo(0);
    completeTransition();
}

QWidget*
CreateNewItemPageController::pageControllerViewControllerForIdentifier(const QString& identifier) {
    if (identifier == KindPage) {
        if (!m_createNewItemController) {
            m_createNewItemController = new CreateNewItemController(this);
            m_createNewItemController->setNewItems(m_newItems);
            m_createNewItemController->setBackButton(m_backButton);
            m_createNewItemController->setNextButton(m_nextButton);
            addWidget(m_createNewItemController);
        }
        return m_createNewItemController;
    }
    if (identifier == NamePage) {
        if (!m_createNewItemPathController) {
            m_createNewItemPathController = new CreateNewItemAtPathController(this);
            m_createNewItemPathController->setBackButton(m_backButton);
            m_createNewItemPathController->setNextButton(m_nextButton);
            addWidget(m_createNewItemPathController);
        }
        return m_createNewItemPathController;
    }
    return nullptr;
}

QWidget* CreateNewItemPageController::selectedViewController() const {
    return m_selectedIndex < 0 ? nullptr : currentWidget();
}

void CreateNewItemPageController::navigateTo(int index) {
    if (index < 0 || index >= m_arrangedObjects.size()) {
        return;
    }
    QWidget* page = pageControllerViewControllerForIdentifier(
        pageControllerIdentifierFor(m_arrangedObjects.at(index)));
    m_selectedIndex = index;
    if (page == m_createNewItemController) {
        m_createNewItemController->viewWillAppear();
    }
    setCurrentWidget(page);
}

void CreateNewItemPageController::completeTransition() {
    const QWidget* page = selectedViewController();
    if (page != nullptr && page == m_createNewItemController) {
        m_createNewItemController->viewDidAppear();
    }
    if (page != nullptr && page == m_createNewItemPathController) {
        m_createNewItemPathController->viewDidAppear();
    }
}

CreateNewItemController* CreateNewItemPageController::createNewItemController() const {
    return m_createNewItemController;
}

CreateNewItemAtPathController* CreateNewItemPageController::createNewItemPathController() const {
    return m_createNewItemPathController;
}

void CreateNewItemPageController::wheelEvent(QWheelEvent* event) {
    event->accept();
}

} // namespace kestrel
